#include "store/image.h"

#include <sqlite3.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/fault.h"
#include "store/engine.h"
#include "store/private_folder.h"

namespace merlu {
namespace {

namespace fs = std::filesystem;

constexpr std::array<char, 16> kMagic = {'S', 'Q', 'L', 'i', 't', 'e', ' ', 'f', 'o', 'r', 'm', 'a', 't', ' ', '3', 0};
constexpr std::size_t kHeader = 100, kWriteVersion = 18;
constexpr unsigned char kWriteAhead = 2;
constexpr int kPatience = 5000, kPause = 10;  // milliseconds
constexpr int kTries = 20;
constexpr std::size_t kChunk = std::size_t{1} << 26U;

[[noreturn]] void CannotRead(const std::string& path, const std::string& why) {
  throw Fault(fault_number::kFileAccess, kStoreSource, "Cannot read the file " + path + ": " + why + ".");
}

[[noreturn]] void IsInUse(const std::string& path) {
  throw Fault(fault_number::kInUse, kStoreSource, "The file " + path + " is being written by another program.");
}

Image NewImage(std::size_t size) {
  // the engine's own memory, so that it can take it over
  auto* bytes = static_cast<unsigned char*>(sqlite3_malloc64(size == 0 ? 1 : size));
  if (bytes == nullptr) throw std::bad_alloc();
  return {std::shared_ptr<unsigned char>(bytes, sqlite3_free), size};
}

// The engine's own hold on the file, open for reading only and shared with other readers as long as this lives: no
// commit ends and no journal is rolled back meanwhile.
class Hold {
 public:
  explicit Hold(const std::string& path) : path_(path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error))
      throw Fault(fault_number::kPathNotFound, kStoreSource, "Could not find file '" + path + "'.");
    const std::string full = fs::absolute(path, error).string();
    const int code = sqlite3_open_v2(full.c_str(), &db_, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code == SQLITE_OK) sqlite3_file_control(db_, "main", SQLITE_FCNTL_FILE_POINTER, &file_);
    if (file_ == nullptr || file_->pMethods == nullptr) {
      sqlite3_close_v2(db_);
      CannotRead(path, "it cannot be opened");
    }
    try {
      Lock();
    } catch (const Fault&) {
      sqlite3_close_v2(db_);
      throw;
    }
  }
  ~Hold() {
    file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
    sqlite3_close_v2(db_);
  }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

  std::string JournalName() const { return sqlite3_filename_journal(sqlite3_db_filename(db_, "main")); }
  std::string LogName() const { return sqlite3_filename_wal(sqlite3_db_filename(db_, "main")); }

  // Whether another program is between the beginning of a write and its commit; the file itself is untouched then.
  bool IsReserved() const {
    int reserved = 0;
    file_->pMethods->xCheckReservedLock(file_, &reserved);
    return reserved != 0;
  }

  Image Read() const {
    sqlite3_int64 size = 0;
    if (file_->pMethods->xFileSize(file_, &size) != SQLITE_OK) CannotRead(path_, "its size is unknown");
    Image image = NewImage(static_cast<std::size_t>(size));
    for (std::size_t at = 0; at < image.size; at += kChunk) {
      const std::size_t part = std::min(kChunk, image.size - at);
      if (file_->pMethods->xRead(file_, image.bytes.get() + at, static_cast<int>(part),
                                 static_cast<sqlite3_int64>(at)) != SQLITE_OK)
        CannotRead(path_, "the disk does not give it");
    }
    return image;
  }

 private:
  void Lock() {
    for (int waited = 0;; waited += kPause) {
      const int code = file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED);
      if (code == SQLITE_OK) return;
      if ((code & 0xFF) != SQLITE_BUSY) CannotRead(path_, "it cannot be locked");
      if (waited >= kPatience) IsInUse(path_);
      sqlite3_sleep(kPause);
    }
  }

  std::string path_;
  sqlite3* db_ = nullptr;
  sqlite3_file* file_ = nullptr;
};

void WriteBytes(const std::string& path, const unsigned char* bytes, std::size_t size) {
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
  out.close();
  if (!out)
    throw Fault(fault_number::kDiskFull, kStoreSource, "There is no room for a copy of the file in " + path + ".");
}

std::vector<char> ReadBytes(const std::string& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  std::vector<char> bytes(error ? 0 : size);
  std::ifstream in(path, std::ios::binary);
  in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

// What the engine makes of the file with its journal or log beside it, both in the private folder.
Image Recovered(const PrivateFolder& folder) {
  sqlite3* db = nullptr;
  const std::string path = folder.File("copy.mdb");
  int code = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code == SQLITE_OK) code = sqlite3_exec(db, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
  if (code == SQLITE_OK) code = sqlite3_exec(db, "SELECT COUNT(*) FROM sqlite_schema", nullptr, nullptr, nullptr);
  const std::string why = code == SQLITE_OK ? "" : sqlite3_errmsg(db);
  sqlite3_close_v2(db);
  if (code != SQLITE_OK)
    throw Fault(fault_number::kDamaged, kStoreSource, "The database file is damaged (" + why + ").");
  return Hold(path).Read();
}

bool IsHot(const Hold& hold) {
  char first = 0;
  std::ifstream journal(hold.JournalName(), std::ios::binary);
  return journal.get(first) && first != 0 && !hold.IsReserved();
}

// What must stay the same while file and log are copied.
struct Stamp {
  std::uintmax_t file = 0, log = 0;
  fs::file_time_type file_time, log_time;
  std::vector<char> log_head;
  bool operator==(const Stamp&) const = default;
};

Stamp StampOf(const std::string& path, const std::string& log) {
  std::error_code error;
  Stamp stamp{fs::file_size(path, error), fs::file_size(log, error), fs::last_write_time(path, error),
              fs::last_write_time(log, error), std::vector<char>(32)};
  std::ifstream(log, std::ios::binary).read(stamp.log_head.data(), 32);
  return stamp;
}

Image ReadWithLog(const std::string& path, const Hold& hold) {
  for (int tries = 0; tries < kTries; ++tries) {
    const Stamp before = StampOf(path, hold.LogName());
    const Image image = hold.Read();
    const std::vector<char> log = ReadBytes(hold.LogName());
    if (StampOf(path, hold.LogName()) != before) continue;
    const PrivateFolder folder;
    WriteBytes(folder.File("copy.mdb"), image.bytes.get(), image.size);
    WriteBytes(folder.File("copy.mdb-wal"), reinterpret_cast<const unsigned char*>(log.data()), log.size());
    return Recovered(folder);
  }
  IsInUse(path);
}

}  // namespace

Image ReadImage(const std::string& path) {
  const Hold hold(path);
  Image image = hold.Read();
  if (image.size < kHeader || std::memcmp(image.bytes.get(), kMagic.data(), kMagic.size()) != 0)
    throw Fault(fault_number::kNotADatabase, kStoreSource, "Unrecognized database format '" + path + "'.");
  if (image.bytes.get()[kWriteVersion] == kWriteAhead) return ReadWithLog(path, hold);
  if (!IsHot(hold)) return image;
  const PrivateFolder folder;
  const std::vector<char> journal = ReadBytes(hold.JournalName());
  WriteBytes(folder.File("copy.mdb"), image.bytes.get(), image.size);
  WriteBytes(folder.File("copy.mdb-journal"), reinterpret_cast<const unsigned char*>(journal.data()), journal.size());
  return Recovered(folder);
}

}  // namespace merlu
