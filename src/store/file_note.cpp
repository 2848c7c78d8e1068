#include "store/file_note.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace merlu {
namespace {

// The lock at kPlace is the note. Its text stands behind it, a lock for each byte: of the 256 places that belong to
// the byte the one with its value is locked.
constexpr off_t kPlace = off_t{1} << 40;
constexpr off_t kPlacesOfByte = 256;
constexpr std::size_t kLongestText = 200;

struct flock Places(off_t first, off_t count) {
  struct flock places {};
  places.l_type = F_WRLCK;
  places.l_whence = SEEK_SET;
  places.l_start = first;
  places.l_len = count;
  return places;
}

off_t PlaceOfByte(std::size_t byte) {
  return kPlace + kPlacesOfByte * static_cast<off_t>(byte + 1);
}

bool Lock(int file, off_t place) {
  struct flock places = Places(place, 1);
  return ::fcntl(file, F_OFD_SETLK, &places) == 0;
}

// The first place that somebody else has locked; nothing without one, or where locks are unknown.
std::optional<off_t> LockedByOthers(int file, off_t first, off_t count) {
  struct flock places = Places(first, count);
  if (::fcntl(file, F_OFD_GETLK, &places) != 0 || places.l_type == F_UNLCK) return std::nullopt;
  return places.l_start;
}

std::string TextOfHolder(int file) {
  std::string text;
  while (text.size() < kLongestText) {
    const off_t first = PlaceOfByte(text.size());
    const auto locked = LockedByOthers(file, first, kPlacesOfByte);
    if (!locked || *locked < first) break;
    text += static_cast<char>(*locked - first);
  }
  return text;
}

int OpenRegularFile(const std::string& path) {
  struct stat about {};
  if (::stat(path.c_str(), &about) != 0 || !S_ISREG(about.st_mode)) return -1;
  return ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
}

}  // namespace

FileNote::~FileNote() {
  Release();
}

bool FileNote::Take(const std::string& path, const std::string& text, std::string& holder) {
  Release();
  holder.clear();
  const int file = OpenRegularFile(path);
  if (file < 0) return true;
  if (Lock(file, kPlace)) {
    for (std::size_t byte = 0; byte < text.size() && byte < kLongestText; ++byte)
      Lock(file, PlaceOfByte(byte) + static_cast<unsigned char>(text[byte]));
    file_ = file;
    return true;
  }
  const bool held = LockedByOthers(file, kPlace, 1).has_value();
  if (held) holder = TextOfHolder(file);
  ::close(file);
  return !held;
}

void FileNote::Release() {
  const int file = std::exchange(file_, -1);
  if (file < 0) return;
  // a child of this process that has the file, too, keeps no lock of it
  struct flock all = Places(kPlace, 0);
  all.l_type = F_UNLCK;
  ::fcntl(file, F_OFD_SETLK, &all);
  ::close(file);
}

std::string UserName() {
  std::array<char, 4096> memory{};
  struct passwd entry {};
  struct passwd* found = nullptr;
  if (::getpwuid_r(::geteuid(), &entry, memory.data(), memory.size(), &found) != 0 || found == nullptr) return "";
  return found->pw_name;
}

std::string MachineName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace merlu
