#include "store/private_folder.h"

#include <filesystem>
#include <mutex>
#include <system_error>
#include <vector>

#include "base/fault.h"
#include "store/engine.h"
#include "store/files.h"
#include "store/new_file.h"

namespace merlu {
namespace fs = std::filesystem;
namespace {

void RemoveFolder(const std::string& path) {
  std::error_code error;
  fs::remove_all(path, error);
}

void RemoveAbandoned(const fs::path& path) {
  std::error_code error;
  if (!fs::is_directory(fs::symlink_status(path, error))) return;
  host::File folder(path.string(), host::File::Mode::kRead);
  if (folder.IsOpen() && folder.LockAll()) RemoveFolder(path.string());
}

}  // namespace

PrivateFolder::PrivateFolder() {
  static std::once_flag cleared;
  std::call_once(cleared, RemoveAbandonedFolders);
  std::error_code error;
  const std::string place = fs::temp_directory_path(error).string();
  constexpr int kTries = 3;
  for (int i = 0; i < kTries && !error && path_.empty(); ++i) Make(place);
  if (path_.empty()) throw Fault(fault_number::kFileAccess, kStoreSource, "Cannot make a temporary folder.");
}

void PrivateFolder::Make(const std::string& place) {
  const std::string path = WithSeparator(place) + UnfinishedName();
  if (host::MakePrivateFolder(path) != 0) return;
  lock_ = host::File(path, host::File::Mode::kRead);
  // another program that starts may take it for an abandoned one before it is locked
  std::error_code error;
  if (lock_.IsOpen() && lock_.LockAll() && fs::exists(path, error))
    path_ = path;
  else
    RemoveFolder(path);
}

PrivateFolder::~PrivateFolder() {
  RemoveFolder(path_);
}

std::string PrivateFolder::File(const std::string& name) const {
  return WithSeparator(path_) + name;
}

void RemoveAbandonedFolders() {
  std::error_code error;
  std::vector<fs::path> found;
  for (fs::directory_iterator at(fs::temp_directory_path(error), error), end; !error && at != end; at.increment(error))
    if (IsUnfinishedName(at->path().filename().string())) found.push_back(at->path());
  for (const fs::path& path : found) RemoveAbandoned(path);
}

}  // namespace merlu
