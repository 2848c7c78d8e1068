#include "store/new_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <filesystem>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "base/text.h"
#include "store/files.h"

namespace merlu {
namespace fs = std::filesystem;
namespace {

constexpr const char* kSource = "MERLU files";
constexpr const char* kInventory = "This is the database that you are working with. Please choose another filename.";
constexpr const char* kOwnFile = "The program needs this file for itself. Please choose another filename.";

// What may lie beside an inventory and belongs to it: its journals and its companion's.
constexpr const char* kCompanion = ".history";
constexpr const char* kJournals[] = {"-journal", "-wal", "-shm"};
constexpr const char* kSuperJournal = "-mj";

// Names of unfinished files: the same short length whatever the target is called.
constexpr std::string_view kPrefix = ".merlu-", kSuffix = ".tmp";
constexpr std::size_t kDigits = 16;
constexpr const char* kNoteSuffix = ".note";

[[noreturn]] void RefuseName(const std::string& why) {
  throw Fault(fault_number::kBadFileName, kSource, why);
}

std::string RandomName() {
  unsigned long long number = 0;
  if (::getrandom(&number, sizeof number, 0) != sizeof number) FailFile("/dev/urandom", errno);
  std::string digits(kDigits, '0');
  for (char& digit : digits) {
    digit = "0123456789abcdef"[number & 15U];
    number >>= 4U;
  }
  return digits;
}

// Whether a file name is one of an unfinished file, or of what the engine puts beside one.
bool IsUnfinishedName(std::string_view name) {
  if (!name.starts_with(kPrefix) || name.size() < kPrefix.size() + kDigits + kSuffix.size()) return false;
  name.remove_prefix(kPrefix.size());
  if (name.substr(0, kDigits).find_first_not_of("0123456789abcdef") != std::string_view::npos) return false;
  return name.substr(kDigits).starts_with(kSuffix);
}

void RemoveWithJournals(const std::string& path) {
  ::unlink(path.c_str());
  for (const char* journal : kJournals) ::unlink((path + journal).c_str());
}

// ---- what a name stands for ----

// Follows links one by one, as the last one may lead to a file that is not there yet.
fs::path WithoutLinks(const std::string& name) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  fs::path path = fs::absolute(name, error);
  for (int links = 0; fs::is_symlink(path, error); ++links) {
    if (links == kMostLinks) RefuseName("Cannot write the file " + name + ": its links lead nowhere.");
    const fs::path to = fs::read_symlink(path, error);
    path = to.is_absolute() ? to : path.parent_path() / to;
  }
  const fs::path folder = fs::canonical(path.parent_path(), error);
  return error ? path.lexically_normal() : folder / path.filename();
}

// Whether the rest of a file name behind the inventory's makes it a file that belongs to the inventory.
bool IsOwnSuffix(std::string rest) {
  rest = Lower(rest);
  if (rest.starts_with(kCompanion)) rest.erase(0, std::string_view(kCompanion).size());
  if (rest.empty() || rest.starts_with(kSuperJournal)) return true;
  for (const char* journal : kJournals)
    if (rest == journal) return true;
  return false;
}

// Names are compared without regard to case, since some file systems do not tell them apart.
bool IsNamedAsOwn(const fs::path& inventory, const fs::path& path) {
  std::error_code error;
  if (!fs::equivalent(inventory.parent_path(), path.parent_path(), error)) return false;
  const std::string own = Lower(inventory.filename().string()), name = Lower(path.filename().string());
  return name.size() > own.size() && name.starts_with(own) && IsOwnSuffix(name.substr(own.size()));
}

// Whether the path is another name of the inventory's companion or of one of its journals.
bool IsLinkedToOwn(const fs::path& inventory, const fs::path& path) {
  std::error_code error;
  for (const std::string& file : {inventory.string(), inventory.string() + kCompanion}) {
    if (file != inventory.string() && fs::equivalent(file, path, error)) return true;
    for (const char* journal : kJournals)
      if (fs::equivalent(file + journal, path, error)) return true;
  }
  return false;
}

void KeepClearOfInventory(const std::string& inventory, const fs::path& path) {
  std::error_code error;
  const fs::path given = fs::absolute(inventory, error).lexically_normal(), real = WithoutLinks(inventory);
  if (fs::equivalent(real, path, error) || path == given || path == real) RefuseName(kInventory);
  for (const fs::path& own : {given, real})
    if (IsNamedAsOwn(own, path) || IsLinkedToOwn(own, path)) RefuseName(kOwnFile);
}

// ---- a file in the making ----

// A note of an unfinished file. It is locked as long as its program lives, so that a start tells the notes of killed
// programs from those of running ones.
class Note {
 public:
  explicit Note(const std::string& folder) : folder_(folder) {
    constexpr int kTries = 3;
    for (int i = 0; i < kTries && file_ < 0 && !folder_.empty(); ++i) Make();
  }
  ~Note() {
    if (file_ < 0) return;
    ::unlink(path_.c_str());
    ::close(file_);
    ::rmdir(folder_.c_str());  // goes with its last note
  }
  Note(const Note&) = delete;
  Note& operator=(const Note&) = delete;

  // A note that cannot be kept costs no more than the clearing up after a kill.
  void Put(const std::string& unfinished) {
    if (file_ < 0 || ::ftruncate(file_, 0) != 0) return;
    if (::pwrite(file_, unfinished.data(), unfinished.size(), 0) == static_cast<ssize_t>(unfinished.size()))
      ::fsync(file_);
  }

 private:
  void Make() {
    MakeFolder(folder_);
    path_ = WithSeparator(folder_) + RandomName() + kNoteSuffix;
    file_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file_ < 0) return;
    struct stat state {};
    // a program that starts may take a note away before it is locked
    if (::flock(file_, LOCK_EX | LOCK_NB) == 0 && ::fstat(file_, &state) == 0 && state.st_nlink == 1) return;
    ::close(std::exchange(file_, -1));
  }

  std::string folder_, path_;
  int file_ = -1;
};

class UnfinishedFile {
 public:
  UnfinishedFile(const OwnFiles& own, const std::string& target) : note_(own.notes), target_(target) {
    std::error_code error;
    const std::string folder = fs::absolute(target, error).parent_path().string();
    int file = -1;
    while (file < 0) {
      path_ = WithSeparator(folder) + std::string(kPrefix) + RandomName() + std::string(kSuffix);
      note_.Put(path_);
      file = ::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
      if (file < 0 && errno != EEXIST) FailFile(target, errno);
    }
    struct stat state {};
    if (::stat(target.c_str(), &state) == 0) ::fchmod(file, state.st_mode & 0777U);
    ::close(file);
  }
  ~UnfinishedFile() {
    if (!path_.empty()) RemoveWithJournals(path_);
  }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  const std::string& path() const { return path_; }

  void Finish(bool over_existing) {
    BringToDisk(path_);
    if (over_existing ? ::rename(path_.c_str(), target_.c_str()) != 0 : !TakeFreeName()) FailFile(target_, errno);
    path_.clear();
    BringFolderToDisk(target_);
  }

 private:
  bool TakeFreeName() {
    if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // a file system that cannot rename so
    if (::link(path_.c_str(), target_.c_str()) != 0) return false;
    ::unlink(path_.c_str());
    return true;
  }

  Note note_;
  std::string target_, path_;
};

void RemoveNoted(const fs::path& note) {
  const int file = ::open(note.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
  if (file < 0) return;
  if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
    std::string path(PATH_MAX, '\0');
    const ssize_t size = ::pread(file, path.data(), path.size(), 0);
    path.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    std::error_code error;
    const fs::path noted(path);
    const bool known = noted.is_absolute() && IsUnfinishedName(noted.filename().string());
    // the folder may come back with its disk
    if (!known || fs::is_directory(noted.parent_path(), error)) {
      if (known) RemoveWithJournals(path);
      ::unlink(note.c_str());
    }
  }
  ::close(file);
}

}  // namespace

std::string TargetPath(const OwnFiles& own, const std::string& name) {
  const fs::path path = WithoutLinks(name);
  if (!own.inventory.empty()) KeepClearOfInventory(own.inventory, path);
  if (IsUnfinishedName(path.filename().string())) RefuseName(kOwnFile);
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::is_directory(status)) RefuseName("Cannot write the file " + name + ": it is a folder.");
  if (!fs::exists(status)) {
    if (!fs::is_directory(path.parent_path(), error)) FailFile(name, ENOENT);
    return path.string();
  }
  if (!fs::is_regular_file(status)) RefuseName("Cannot write the file " + name + ": it is a device.");
  if (IsMarkedReadOnly(path.string()) || ::access(path.c_str(), W_OK) != 0) FailFile(name, EACCES);
  return path.string();
}

void ReplaceFile(const OwnFiles& own, const std::string& path,
                 const std::function<void(const std::string& path)>& write) {
  UnfinishedFile file(own, path);
  write(file.path());
  file.Finish(true);
}

void MakeFile(const OwnFiles& own, const std::string& path, const std::function<void(const std::string& path)>& write) {
  UnfinishedFile file(own, path);
  write(file.path());
  file.Finish(false);
}

void WriteNewFile(const OwnFiles& own, const std::string& name,
                  const std::function<void(const std::string& path)>& write) {
  ReplaceFile(own, TargetPath(own, name), write);
}

void RemoveUnfinishedFiles(const std::string& notes) {
  if (notes.empty()) return;
  std::error_code error;
  std::vector<fs::path> found;
  for (fs::directory_iterator at(notes, error), end; !error && at != end; at.increment(error))
    if (at->path().extension() == kNoteSuffix) found.push_back(at->path());
  for (const fs::path& note : found) RemoveNoted(note);
  if (!found.empty()) ::rmdir(notes.c_str());
}

}  // namespace merlu
