#include "faults/power_cut.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace merlu::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSector = 512;

struct Op {
  enum What { kWrite, kTruncate, kCreate, kDelete } what;
  std::string path;
  std::int64_t at = 0;        // of a write; the new size of a truncation
  std::int64_t size = 0;      // of the file before it
  std::string before, after;  // bytes; of a deletion the whole file
};

// Not yet on the disk for certain, in the order of the calls.
std::vector<Op> unsynced;
std::string database;
std::mt19937 dice;

// The database, its journals, the companion and its journal, and the super-journal.
bool IsWatched(const std::string& path) {
  return !database.empty() &&
         (path == database || path.starts_with(database + "-") || path.starts_with(database + ".history"));
}

bool IsOfFolder(const Op& op) {
  return op.what == Op::kCreate || op.what == Op::kDelete;
}

std::string BytesAt(sqlite3_file* real, std::int64_t at, std::int64_t count) {
  std::string bytes(static_cast<std::size_t>(count), '\0');
  if (count > 0) real->pMethods->xRead(real, bytes.data(), static_cast<int>(count), at);  // short of the end: zeros
  return bytes;
}

std::int64_t SizeOf(sqlite3_file* real) {
  sqlite3_int64 size = 0;
  real->pMethods->xFileSize(real, &size);
  return size;
}

void Put(const std::string& path, std::int64_t at, const std::string& bytes) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) return;
  if (::pwrite(file, bytes.data(), bytes.size(), at) < 0) ::_exit(4);
  ::close(file);
}

void Resize(const std::string& path, std::int64_t size) {
  std::error_code error;
  fs::resize_file(path, static_cast<std::uintmax_t>(size), error);
}

// Back to what is on the disk for certain.
void TakeBack(const Op& op) {
  switch (op.what) {
    case Op::kWrite: Put(op.path, op.at, op.before); return Resize(op.path, op.size);
    case Op::kTruncate: Resize(op.path, op.size); return Put(op.path, op.at, op.before);
    case Op::kCreate: fs::remove(op.path); return;
    case Op::kDelete: std::ofstream(op.path, std::ios::binary) << op.before; return;
  }
}

void Carry(const Op& op) {
  switch (op.what) {
    case Op::kWrite: {
      const bool torn = dice() % 8 == 0;
      const std::size_t whole = op.after.size(), part = dice() % (whole / kSector + 1) * kSector;
      return Put(op.path, op.at, op.after.substr(0, torn ? part : whole));
    }
    case Op::kTruncate: return Resize(op.path, op.at);
    case Op::kCreate: std::ofstream(op.path, std::ios::binary | std::ios::trunc); return;
    case Op::kDelete: fs::remove(op.path); return;
  }
}

}  // namespace

void WatchForPowerCut(const std::string& path, std::uint32_t seed) {
  database = path;
  dice.seed(seed);
  unsynced.clear();
}

void WillOpen(const char* path, bool creates) {
  if (path != nullptr && creates && IsWatched(path) && !fs::exists(path)) unsynced.push_back({Op::kCreate, path});
}

void WillWrite(const std::string& path, sqlite3_file* real, const void* bytes, int count, std::int64_t at) {
  if (!IsWatched(path)) return;
  const std::string after(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
  const std::int64_t size = SizeOf(real), overwritten = std::clamp<std::int64_t>(size - at, 0, count);
  unsynced.push_back({Op::kWrite, path, at, size, BytesAt(real, at, overwritten), after});
}

void WillTruncate(const std::string& path, sqlite3_file* real, std::int64_t size) {
  if (!IsWatched(path)) return;
  const std::int64_t old_size = SizeOf(real);
  unsynced.push_back(
      {Op::kTruncate, path, size, old_size, BytesAt(real, size, std::max<std::int64_t>(old_size - size, 0)), {}});
}

void WillDelete(const char* path) {
  if (!IsWatched(path) || !fs::exists(path)) return;
  std::ifstream in(path, std::ios::binary);
  unsynced.push_back({Op::kDelete, path, 0, 0, {std::istreambuf_iterator<char>(in), {}}, {}});
}

void HasSynced(const std::string& path) {
  if (!IsWatched(path)) return;
  // the first sync of a file that was made brings its folder to the disk too, with all that happened there before
  const auto made = std::find_if(unsynced.rbegin(), unsynced.rend(),
                                 [&](const Op& op) { return op.what == Op::kCreate && op.path == path; });
  const auto folder_until = made == unsynced.rend() ? unsynced.begin() : made.base();
  // writes to a file that was deleted for certain do not matter any more
  std::vector<Op> left;
  for (auto op = unsynced.begin(); op != unsynced.end(); ++op) {
    const bool certain = op->path == path || (op < folder_until && IsOfFolder(*op));
    if (!certain) left.push_back(std::move(*op));
  }
  unsynced = std::move(left);
}

void HasDeleted(const char* path, bool synced) {
  if (!synced || !IsWatched(path)) return;
  std::erase_if(unsynced, [&](const Op& op) { return op.path == path || IsOfFolder(op); });
}

void CutPower() {
  if (database.empty()) return;
  for (auto op = unsynced.rbegin(); op != unsynced.rend(); ++op) TakeBack(*op);
  const auto of_folder = std::count_if(unsynced.begin(), unsynced.end(), IsOfFolder);
  auto reached = static_cast<std::ptrdiff_t>(dice() % (static_cast<std::size_t>(of_folder) + 1));
  const std::uint32_t share = dice() % 3;  // nothing of the rest, half of it, all of it
  for (const Op& op : unsynced) {
    if (IsOfFolder(op) ? reached-- > 0 : fs::exists(op.path) && dice() % 2 < share) Carry(op);
  }
}

}  // namespace merlu::test
