// Writing files under names that the user chose: the file is complete under its name, or the old one stays.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace merlu {

// The files that a writer must not touch, and the folder for its notes of unfinished files.
struct OwnFiles {
  std::string inventory;  // in use; empty when there is none
  std::string notes;      // a folder, made when missing; empty: nothing is noted
};

// The real path of a name, with links followed. kBadFileName for the inventory in use and for its journal, companion
// and temporary files, under any name or link, for a folder and for a device; kFileAccess for a file without write
// permission; kNoSuchFolder. Asking before an overwrite is the caller's task.
std::string TargetPath(const OwnFiles& own, const std::string& name);

// The one way to write a file under a name that a user gave. `write` fills a new, empty temporary file in the target's
// folder, whose path it gets; this is then fsynced and renamed to the target. After a fault, also one of `write`, the
// old file is unchanged and no other is left. The faults of TargetPath, kFileAccess, kDiskFull, kNoSuchFolder,
// kDeviceError and those of `write`.
void WriteNewFile(const OwnFiles& own, const std::string& name,
                  const std::function<void(const std::string& path)>& write);

// The same over a file of the program's own, without a look at its name.
void ReplaceFile(const OwnFiles& own, const std::string& path,
                 const std::function<void(const std::string& path)>& write);

// The same for a name that must still be free when the file is whole: kFileAccess otherwise.
void MakeFile(const OwnFiles& own, const std::string& path, const std::function<void(const std::string& path)>& write);

// A file name that nobody else has, of what is removed again: an unfinished file, a private folder. A fault without
// random numbers.
std::string UnfinishedName();
// Whether a file name is one of these, or of what the engine puts beside such a file.
bool IsUnfinishedName(std::string_view name);

// Removes what writers that were killed have left, wherever it lies. What a running writer has begun stays.
void RemoveUnfinishedFiles(const std::string& notes);

}  // namespace merlu
