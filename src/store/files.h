// Database files on disk: their paths, copies and first looks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace merlu {

bool FileExists(const std::string& path);
// Whether a file can be made in the folder.
bool CanWriteFolder(const std::string& folder);
// Makes a folder and what leads to it; silent when it cannot.
void MakeFolder(const std::string& folder);
// The name of the file alone.
std::string FileName(const std::string& path);
// The folder with a separator at its end.
std::string WithSeparator(const std::string& folder);

// Copies a file to a path that does not exist yet, under a temporary name first, so that no half file is
// left behind. kFileNotFound, kFileAccess.
// A copy that is worked on further need not be seen on the disk yet.
enum class Copy { kToDisk, kForNow };
void CopyDatabase(const std::string& from, const std::string& to, Copy how = Copy::kToDisk);
// Sees a file, and its name, on the disk. kFileAccess.
void BringToDisk(const std::string& path);

// Size in bytes; 0 for a file that is not there.
std::uint64_t FileSize(const std::string& path);

// What the file system of the folder has left; 0 when it cannot be asked.
std::uint64_t FreeBytes(const std::string& folder);

// Writes the rows of a database file into a new one, as small as they are, and sees it on the disk. The new
// file must not exist, and none is left after a failure that began here. kFileAccess and the faults of the
// store.
void CompactInto(const std::string& from, const std::string& to);
// kFileNotFound; kFileAccess, also for a folder.
void RemoveFile(const std::string& path);
// Also from one file system to another. kFileAccess.
void MoveFile(const std::string& from, const std::string& to);

// The path itself, or the first of base1, base2, ... with its extension that does not exist.
std::string NextFreeFileName(const std::string& path);

// Whether the file has the table. A file that cannot be opened is a fault.
bool TableExists(const std::string& path, std::string_view table);

// False only for a database file without the table EA_LOA, which files of the earlier version lack.
bool IsCurrentDatabase(const std::string& path);

}  // namespace merlu
