#include "exchange/compact.h"

#include "base/fault.h"
#include "store/files.h"

namespace merlu {

Compaction CompactDatabaseFile(const OwnFiles& own, const std::string& file, std::uint64_t free_bytes) {
  if (free_bytes < FileSize(file)) return Compaction::kNoRoom;
  bool compacted = false;
  try {
    ReplaceFile(own, file, [&](const std::string& path) {
      CompactInto(file, path);
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
