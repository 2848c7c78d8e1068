#include "store/new_file.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "base/host.h"
#include "base/text.h"
#include "store/files.h"
#include "store/private_folder.h"

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
  const std::optional<std::uint64_t> random = host::RandomNumber();
  if (!random) throw Fault(fault_number::kDeviceError, kSource, "The system has no random numbers.");
  std::uint64_t number = *random;
  std::string digits(kDigits, '0');
  for (char& digit : digits) {
    digit = "0123456789abcdef"[number & 15U];
    number >>= 4U;
  }
  return digits;
}

void RemoveWithJournals(const std::string& path) {
  host::Remove(path);
  for (const char* journal : kJournals) host::Remove(path + journal);
}

// ---- the real path of a name ----

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

// Whether the rest of a file name after the inventory's makes it a file that belongs to the inventory.
bool IsOwnSuffix(std::string rest) {
  rest = Lower(rest);
  if (rest.starts_with(kCompanion)) rest.erase(0, std::string_view(kCompanion).size());
  if (rest.empty() || rest.starts_with(kSuperJournal)) return true;
  for (const char* journal : kJournals)
    if (rest == journal) return true;
  return false;
}

// Names are compared without regard to case, as some file systems do.
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

// A note of an unfinished file. It is locked while its program runs, so that a later start can distinguish the notes of
// killed programs from those of running ones.
class Note {
 public:
  explicit Note(const std::string& folder) : folder_(folder) {
    constexpr int kTries = 3;
    for (int i = 0; i < kTries && !file_.IsOpen() && !folder_.empty(); ++i) Make();
  }
  ~Note() {
    if (!file_.IsOpen()) return;
    host::Remove(path_);
    file_.Close();
    host::RemoveEmptyFolder(folder_);
  }
  Note(const Note&) = delete;
  Note& operator=(const Note&) = delete;

  // A failure is ignored: without the note only the clean-up after a kill is missing.
  void Put(const std::string& unfinished) {
    if (file_.IsOpen()) file_.Replace(unfinished);
  }

 private:
  void Make() {
    MakeFolder(folder_);
    path_ = WithSeparator(folder_) + RandomName() + kNoteSuffix;
    host::File file(path_, host::File::Mode::kNewPrivate);
    // another program that starts may remove the note before it is locked
    if (file.IsOpen() && file.LockAll() && file.HasOneName()) file_ = std::move(file);
  }

  std::string folder_, path_;
  host::File file_;
};

class UnfinishedFile {
 public:
  UnfinishedFile(const OwnFiles& own, const std::string& target) : note_(own.notes), target_(target) {
    std::error_code error;
    const std::string folder = fs::absolute(target, error).parent_path().string();
    host::File file;
    while (!file.IsOpen()) {
      path_ = WithSeparator(folder) + UnfinishedName();
      note_.Put(path_);
      file = host::File(path_, host::File::Mode::kNew);
      if (!file.IsOpen() && file.error() != EEXIST) FailFile(target, file.error());
    }
    file.TakePermissionsOf(target);
  }
  ~UnfinishedFile() {
    if (!path_.empty()) RemoveWithJournals(path_);
  }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  // A failure names the file as it was asked for.
  void Write(const std::function<void(const std::string& path)>& write) {
    try {
      write(path_);
      BringToDisk(path_);
    } catch (Fault& fault) {
      if (const auto at = fault.description.find(path_); at != std::string::npos)
        fault.description.replace(at, path_.size(), target_);
      throw;
    }
  }

  void Finish(bool over_existing) {
    const int error = over_existing ? host::Rename(path_, target_) : host::RenameToFreeName(path_, target_);
    if (error != 0) FailFile(target_, error);
    path_.clear();
    BringFolderToDisk(target_);
  }

 private:
  Note note_;
  std::string target_, path_;
};

void RemoveNoted(const fs::path& note) {
  constexpr std::size_t kLongestPath = 4096;
  host::File file(note.string(), host::File::Mode::kExisting);
  if (!file.IsOpen() || !file.LockAll()) return;
  const std::string path = file.Read(kLongestPath);
  std::error_code error;
  const fs::path noted(path);
  const bool known = noted.is_absolute() && IsUnfinishedName(noted.filename().string());
  // without its folder the note is kept: the disk may be mounted again later
  if (known && !fs::is_directory(noted.parent_path(), error)) return;
  if (known) RemoveWithJournals(path);
  host::Remove(note.string());
}

}  // namespace

std::string UnfinishedName() {
  return std::string(kPrefix) + RandomName() + std::string(kSuffix);
}

bool IsUnfinishedName(std::string_view name) {
  if (!name.starts_with(kPrefix) || name.size() < kPrefix.size() + kDigits + kSuffix.size()) return false;
  name.remove_prefix(kPrefix.size());
  if (name.substr(0, kDigits).find_first_not_of("0123456789abcdef") != std::string_view::npos) return false;
  return name.substr(kDigits).starts_with(kSuffix);
}

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
  if (IsMarkedReadOnly(path.string()) || !host::MayWrite(path.string())) FailFile(name, EACCES);
  return path.string();
}

void ReplaceFile(const OwnFiles& own, const std::string& path,
                 const std::function<void(const std::string& path)>& write) {
  UnfinishedFile file(own, path);
  file.Write(write);
  file.Finish(true);
}

void MakeFile(const OwnFiles& own, const std::string& path, const std::function<void(const std::string& path)>& write) {
  UnfinishedFile file(own, path);
  file.Write(write);
  file.Finish(false);
}

void WriteNewFile(const OwnFiles& own, const std::string& name,
                  const std::function<void(const std::string& path)>& write) {
  ReplaceFile(own, TargetPath(own, name), write);
}

void RemoveUnfinishedFiles(const std::string& notes) {
  RemoveAbandonedFolders();
  if (notes.empty()) return;
  std::error_code error;
  std::vector<fs::path> found;
  for (fs::directory_iterator at(notes, error), end; !error && at != end; at.increment(error))
    if (at->path().extension() == kNoteSuffix) found.push_back(at->path());
  for (const fs::path& note : found) RemoveNoted(note);
  if (!found.empty()) host::RemoveEmptyFolder(notes);
}

}  // namespace merlu
