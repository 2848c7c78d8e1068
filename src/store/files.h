// Database files on disk: their paths, copies and first looks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

// The folder of a file, "." for a name alone.
std::string FolderOf(const std::string& path);

// Copies a file to a path that does not exist yet; no partial file is left after a fault. kFileNotFound and the faults
// of MakeFile.
void CopyDatabase(const std::string& from, const std::string& to);

// Writes the parts one after the other, over what the file held. The faults of FailFile.
void WriteBytes(const std::string& path, const std::vector<std::string_view>& parts);
// Throws the fault for an error number of the system: kFileAccess, kDiskFull, kNoSuchFolder, kDeviceError.
[[noreturn]] void FailFile(const std::string& path, int error);
// fsyncs a file. The faults of FailFile.
void BringToDisk(const std::string& path);
// fsyncs the folder of a file, so that the file keeps its name after a power cut. Failures are ignored, as not every
// file system supports it.
void BringFolderToDisk(const std::string& path);

// A file without any write permission bit counts as read-only, also for the superuser.
bool IsMarkedReadOnly(const std::string& path);

// Size in bytes; 0 for a file that is not there.
std::uint64_t FileSize(const std::string& path);

// What the file system of the folder has left; 0 when it cannot be asked.
std::uint64_t FreeBytes(const std::string& folder);

// kDamaged for a database file with damaged pages.
void CheckPages(const std::string& path);
// The path itself, or the first of base1, base2, ... with its extension that does not exist.
std::string NextFreeFileName(const std::string& path);

// False only for a database file without the table EA_LOA, which files of the earlier version lack.
bool IsCurrentDatabase(const std::string& path);

}  // namespace merlu
