// Writing an exported database in its least size.
#pragma once

#include <cstdint>
#include <string>

#include "store/database.h"
#include "store/new_file.h"

namespace merlu {

enum class Compaction {
  kDone,
  kNoRoom,        // fewer free bytes than the database has
  kNotCompacted,  // the compact copy could not be made, or was not sound
  kNotReplaced,   // it could not take the file's place
};

// Writes the whole database in its least size into a temporary file of the same folder, which is checked and then
// replaces the file. After any result but kDone the file is unchanged.
Compaction WriteCompact(const OwnFiles& own, Database& db, const std::string& file, std::uint64_t free_bytes);

// The text of the message box; empty for kDone.
std::string CompactionMessage(Compaction result);

}  // namespace merlu
