// The file layer of the database engine, made to fail on purpose: it passes every call through to the real one
// until a fault is armed. It counts the calls of the whole process, whichever file they are for.
#pragma once

#include <cstdint>
#include <vector>

namespace merlu::test {

enum class FileAct : std::uint8_t { kOpen, kRead, kWrite, kSync, kTruncate, kDelete, kLock };
inline constexpr FileAct kFileActs[] = {FileAct::kOpen,     FileAct::kRead,   FileAct::kWrite, FileAct::kSync,
                                        FileAct::kTruncate, FileAct::kDelete, FileAct::kLock};
const char* FileActName(FileAct act);

// The default file layer of the process for as long as the object lives. It passes on no shared memory, so a
// write-ahead log cannot be used meanwhile.
class FaultyFiles {
 public:
  FaultyFiles();
  ~FaultyFiles();
  FaultyFiles(const FaultyFiles&) = delete;
  FaultyFiles& operator=(const FaultyFiles&) = delete;
};

struct FileFault {
  FileAct act;
  int nth;       // the call that fails, counted from 1 after arming
  int code;      // of the engine, such as SQLITE_FULL
  bool lasting;  // all calls of the kind after it fail too
};
void ArmFault(const FileFault& fault);
// Disarms; true when the fault was met.
bool LiftFault();

// The process kills itself before the n-th call that changes a file or its locks, counted from now. With
// WatchForPowerCut (faults/power_cut.h) the files are left as a power cut leaves them.
void KillBefore(long nth);
// Calls of that kind since KillBefore; with a number that is never reached they are only counted.
long ChangesSoFar();

}  // namespace merlu::test
