#include "store/files.h"

#include <cerrno>
#include <filesystem>

#include "base/fault.h"
#include "base/host.h"
#include "store/database.h"
#include "store/new_file.h"

namespace merlu {
namespace fs = std::filesystem;
namespace {

constexpr const char* kSource = "MERLU files";

int SyncFile(const std::string& path) {
  host::File file(path, host::File::Mode::kRead);
  return file.IsOpen() ? file.Sync() : file.error();
}

}  // namespace

bool FileExists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

bool CanWriteFolder(const std::string& folder) {
  // permissions alone are not enough: a file system can be mounted read-only
  return host::File::Unnamed(folder).IsOpen();
}

void MakeFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
}

std::string FileName(const std::string& path) {
  return path.substr(path.find_last_of('/') + 1);
}

std::string WithSeparator(const std::string& folder) {
  return folder.ends_with('/') ? folder : folder + "/";
}

std::string FolderOf(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

void FailFile(const std::string& path, int error) {
  const std::string why = "Cannot write the file " + path + ": " + std::generic_category().message(error) + ".";
  switch (error) {
    case EACCES:
    case EPERM:
    case EROFS: throw Fault(fault_number::kFileAccess, kSource, why);
    case ENOSPC:
    case EDQUOT:
    case EFBIG: throw Fault(fault_number::kDiskFull, kSource, why);
    case ENOENT:
    case ENOTDIR: throw Fault(fault_number::kNoSuchFolder, kSource, why);
    default: throw Fault(fault_number::kDeviceError, kSource, why);
  }
}

void WriteBytes(const std::string& path, const std::vector<std::string_view>& parts) {
  host::File file(path, host::File::Mode::kOverwrite);
  int error = file.error();
  for (const std::string_view part : parts)
    if (error == 0) error = file.Write(part);
  // some file systems report a full disk only when the file is closed
  if (const int at_close = file.Close(); error == 0) error = at_close;
  if (error != 0) FailFile(path, error);
}

void CopyDatabase(const std::string& from, const std::string& to) {
  std::error_code error;
  if (!fs::is_regular_file(from, error)) throw Fault(fault_number::kFileNotFound, kSource, "File not found: " + from);
  MakeFile({}, to, [&](const std::string& path) {
    if (!fs::copy_file(from, path, fs::copy_options::overwrite_existing, error)) FailFile(to, error.value());
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, error);
    if (error) FailFile(to, error.value());
  });
}

bool IsMarkedReadOnly(const std::string& path) {
  std::error_code error;
  const auto status = fs::status(path, error);
  const auto writers = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return !error && (status.permissions() & writers) == fs::perms::none;
}

void BringToDisk(const std::string& path) {
  if (const int error = SyncFile(path)) FailFile(path, error);
}

void BringFolderToDisk(const std::string& path) {
  std::error_code error;
  SyncFile(fs::absolute(path, error).parent_path().string());
}

std::uint64_t FileSize(const std::string& path) {
  std::error_code error;
  const std::uint64_t size = fs::file_size(path, error);
  return error ? 0 : size;
}

std::uint64_t FreeBytes(const std::string& folder) {
  std::error_code error;
  const fs::space_info space = fs::space(folder, error);
  return error ? 0 : space.available;
}

void CheckPages(const std::string& path) {
  Database db;
  db.OpenReadOnly(path);
  const std::string state = NullToEmpty(db.Single("PRAGMA quick_check(1)"));
  if (state != "ok") throw Fault(fault_number::kDamaged, kSource, "The file is damaged (" + state + ").");
}

std::string NextFreeFileName(const std::string& path) {
  const fs::path wanted(path);
  std::string free = path;
  for (int count = 1; FileExists(free); ++count)
    free = (wanted.parent_path() / (wanted.stem().string() + std::to_string(count) + wanted.extension().string()))
               .string();
  return free;
}

bool IsCurrentDatabase(const std::string& path) {
  try {
    Database db;
    db.OpenReadOnly(path);  // the version of a read-only file can be read too
    return db.HasTable("EA_LOA");
  } catch (const Fault&) {
    return true;  // its failure shows when it is opened
  }
}

}  // namespace merlu
