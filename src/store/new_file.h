// Writing a file that somebody has named: it is whole under its name, or what was there stays.
#pragma once

#include <functional>
#include <string>

namespace merlu {

// What a writer has to keep clear of, and where it notes what it has begun.
struct OwnFiles {
  std::string inventory;  // in use; empty when there is none
  std::string notes;      // a folder, made when missing; empty: nothing is noted
};

// The file that a name stands for, links followed. kBadFileName for the inventory in use and for what belongs to it
// (journal, companion, temporary files), under any name or link, for a folder and for a device; kFileAccess for a
// file without write permission; kNoSuchFolder. Whether an existing file may go is for the caller to ask.
std::string TargetPath(const OwnFiles& own, const std::string& name);

// The one way to write a file under a name that a user gave. `write` makes the file at the path that it gets, a new,
// empty file of its own in the target's folder; then the file is fsynced and renamed to the target. After a fault,
// also one of `write`, what was there stays and nothing else is left. The faults of TargetPath, kFileAccess,
// kDiskFull, kNoSuchFolder, kDeviceError and those of `write`.
void WriteNewFile(const OwnFiles& own, const std::string& name,
                  const std::function<void(const std::string& path)>& write);

// The same over a file of the program's own, without a look at its name.
void ReplaceFile(const OwnFiles& own, const std::string& path,
                 const std::function<void(const std::string& path)>& write);

// The same for a name that must still be free when the file is whole: kFileAccess otherwise.
void MakeFile(const OwnFiles& own, const std::string& path, const std::function<void(const std::string& path)>& write);

// Removes what writers that were killed have left, wherever it lies. What a running writer has begun stays.
void RemoveUnfinishedFiles(const std::string& notes);

}  // namespace merlu
