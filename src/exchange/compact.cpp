#include "exchange/compact.h"

#include "base/fault.h"
#include "store/files.h"

namespace merlu {

Compaction WriteCompact(const OwnFiles& own, Database& db, const std::string& file, std::uint64_t free_bytes) {
  constexpr const char* kSize = "SELECT page_count*page_size FROM pragma_page_count,pragma_page_size";
  bool compacted = false;
  try {
    if (free_bytes < static_cast<std::uint64_t>(ToInteger(db.Single(kSize)))) return Compaction::kNoRoom;
    ReplaceFile(own, file, [&](const std::string& path) {
      db.Execute("VACUUM INTO ?", {path});
      CheckPages(path);
      compacted = true;
    });
  } catch (const Fault&) {
    return compacted ? Compaction::kNotReplaced : Compaction::kNotCompacted;
  }
  return Compaction::kDone;
}

std::string CompactionMessage(Compaction result) {
  switch (result) {
    case Compaction::kDone: return "";
    case Compaction::kNoRoom: return "Not enough disk space to compact database!";
    case Compaction::kNotCompacted: return "Could not compact exported database. Check available disk space.";
    case Compaction::kNotReplaced: return "Could not compact database.";
  }
  return "";
}

}  // namespace merlu
