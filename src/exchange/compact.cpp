#include "exchange/compact.h"

#include <functional>

#include "session/messages.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kRoot = "/";

bool Succeeds(const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const Fault&) {
    return false;
  }
}

}  // namespace

const FileSteps& RealFileSteps() {
  static constexpr FileSteps steps = {CompactInto, RemoveFile,
                                      [](const std::string& from, const std::string& to) { CopyDatabase(from, to); },
                                      MoveFile};
  return steps;
}

bool CompactDatabaseFile(Session& s, const std::string& source, const std::string& temporary, const FileSteps& steps) {
  if (s.platform.FreeBytes(kRoot) < FileSize(source)) {
    Tell(s, "Not enough disk space to compact database!");
    return false;
  }
  if (!Succeeds([&] { steps.compact(source, temporary); })) {
    Tell(s, "Could not compact exported database. Check available disk space.");
    Succeeds([&] { steps.remove(temporary); });
    return false;
  }
  if (!Succeeds([&] { steps.remove(source); })) {
    Tell(s, "Could not compact database.");
    Succeeds([&] { steps.remove(temporary); });
    return false;
  }
  // what has just been compacted is as small as it gets
  if (!Succeeds([&] { steps.copy(temporary, source); })) {
    Tell(s, "Could not compact exported database. Restoring original file.");
    Succeeds([&] { steps.remove(source); });
    Succeeds([&] { steps.rename(temporary, source); });
    return false;
  }
  if (!Succeeds([&] { steps.remove(temporary); })) Tell(s, "Temp file could not be deleted - Check disk.");
  return true;
}

}  // namespace merlu
