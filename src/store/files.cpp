#include "store/files.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "base/fault.h"
#include "store/database.h"

namespace merlu {
namespace fs = std::filesystem;
namespace {

constexpr const char* kSource = "MERLU files";

std::error_code SeeOnDisk(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  std::error_code error;
  if (file < 0 || ::fsync(file) != 0) error = std::error_code(errno, std::generic_category());
  if (file >= 0) ::close(file);
  return error;
}

// So that the file keeps its name through a power cut. Not every file system can: what fails is let be.
void SeeNameOnDisk(const std::string& path) {
  std::error_code error;
  SeeOnDisk(fs::absolute(path, error).parent_path().string());
}

}  // namespace

bool FileExists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

bool CanWriteFolder(const std::string& folder) {
  // permissions alone do not tell: a file system may refuse whoever asks
  std::string probe = WithSeparator(folder) + ".merluXXXXXX";
  const int file = ::mkstemp(probe.data());
  if (file < 0) return false;
  ::close(file);
  ::unlink(probe.c_str());
  return true;
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

void CopyDatabase(const std::string& from, const std::string& to, Copy how) {
  std::error_code error;
  if (!fs::is_regular_file(from, error)) throw Fault(fault_number::kFileNotFound, kSource, "File not found: " + from);
  const std::string part = to + ".part";
  if (fs::copy_file(from, part, fs::copy_options::overwrite_existing, error)) {
    fs::permissions(part, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, error);
    if (!error && how == Copy::kToDisk) error = SeeOnDisk(part);
    if (!error) fs::rename(part, to, error);
    if (!error && how == Copy::kToDisk) SeeNameOnDisk(to);
    if (!error) return;
  }
  const std::string why = error.message();
  fs::remove(part, error);
  throw Fault(fault_number::kFileAccess, kSource, "Cannot make the file " + to + ": " + why + ".");
}

void BringToDisk(const std::string& path) {
  if (const std::error_code error = SeeOnDisk(path))
    throw Fault(fault_number::kFileAccess, kSource,
                "The file " + path + " could not be written: " + error.message() + ".");
  SeeNameOnDisk(path);
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

void CompactInto(const std::string& from, const std::string& to) {
  if (FileExists(to)) throw Fault(fault_number::kFileAccess, kSource, "The file " + to + " exists already.");
  // the name is taken when the file is whole, so that a cut never leaves half a file under it
  const std::string part = to + ".part";
  std::error_code error;
  fs::remove(part, error);
  try {
    Database db;
    db.Open(from);
    db.Execute("VACUUM INTO ?", {part});
  } catch (const Fault&) {
    fs::remove(part, error);
    throw;
  }
  error = SeeOnDisk(part);
  if (!error) fs::rename(part, to, error);
  if (!error) return SeeNameOnDisk(to);
  const std::string why = error.message();
  fs::remove(part, error);
  throw Fault(fault_number::kFileAccess, kSource, "The file " + to + " could not be written: " + why + ".");
}

void RemoveFile(const std::string& path) {
  std::error_code error;
  // an empty folder would go without a word
  if (fs::is_directory(path, error))
    throw Fault(fault_number::kFileAccess, kSource, "Cannot delete the file " + path + ": it is a folder.");
  if (fs::remove(path, error)) return;
  if (!error) throw Fault(fault_number::kFileNotFound, kSource, "File not found: " + path);
  throw Fault(fault_number::kFileAccess, kSource, "Cannot delete the file " + path + ": " + error.message() + ".");
}

void MoveFile(const std::string& from, const std::string& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error == std::errc::cross_device_link) {
    CopyDatabase(from, to);
    fs::remove(from, error);
    error.clear();
  }
  if (error)
    throw Fault(fault_number::kFileAccess, kSource, "Cannot move the file " + from + ": " + error.message() + ".");
}

std::string NextFreeFileName(const std::string& path) {
  const fs::path wanted(path);
  std::string free = path;
  for (int count = 1; FileExists(free); ++count)
    free = (wanted.parent_path() / (wanted.stem().string() + std::to_string(count) + wanted.extension().string()))
               .string();
  return free;
}

bool TableExists(const std::string& path, std::string_view table) {
  Database db;
  db.Open(path);
  return db.HasTable(table);
}

bool IsCurrentDatabase(const std::string& path) {
  try {
    Database db;
    db.OpenReadOnly(path);  // a file that cannot be written tells its version, too
    return db.HasTable("EA_LOA");
  } catch (const Fault&) {
    return true;  // its failure shows when it is opened
  }
}

}  // namespace merlu
