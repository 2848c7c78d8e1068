// Compacting an exported database file before it takes its name.
#pragma once

#include <cstdint>
#include <string>

#include "store/new_file.h"

namespace merlu {

enum class Compaction {
  kDone,
  kNoRoom,        // fewer free bytes than the file has
  kNotCompacted,  // the compact copy could not be made, or was not sound
  kNotReplaced,   // it could not take the file's place
};

// Rewrites a closed file in its least size, in a temporary file of the same folder that then replaces it. After any
// result but kDone the file is unchanged.
Compaction CompactDatabaseFile(const OwnFiles& own, const std::string& file, std::uint64_t free_bytes);

// The text of the message box; empty for kDone.
std::string CompactionMessage(Compaction result);

}  // namespace merlu
