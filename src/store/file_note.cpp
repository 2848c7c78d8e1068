#include "store/file_note.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace merlu {
namespace {

// The lock at kPlace is the note. Its text is in the locks after it, one for each byte: of the 256 places for a byte
// the one at its value is locked.
constexpr std::int64_t kPlace = std::int64_t{1} << 40;
constexpr std::int64_t kPlacesOfByte = 256;
constexpr std::size_t kLongestText = 200;

std::int64_t PlaceOfByte(std::size_t byte) {
  return kPlace + kPlacesOfByte * static_cast<std::int64_t>(byte + 1);
}

std::string TextOfHolder(const host::File& file) {
  std::string text;
  while (text.size() < kLongestText) {
    const std::int64_t first = PlaceOfByte(text.size());
    const auto locked = file.LockedByOthers(first, kPlacesOfByte);
    if (!locked || *locked < first) break;
    text += static_cast<char>(*locked - first);
  }
  return text;
}

}  // namespace

bool FileNote::Take(const std::string& path, const std::string& text, std::string& holder) {
  Release();
  holder.clear();
  host::File file(path, host::File::Mode::kRegular);
  if (!file.IsOpen()) return true;
  if (file.LockByte(kPlace)) {
    for (std::size_t byte = 0; byte < text.size() && byte < kLongestText; ++byte)
      file.LockByte(PlaceOfByte(byte) + static_cast<unsigned char>(text[byte]));
    file_ = std::move(file);
    return true;
  }
  const bool held = file.LockedByOthers(kPlace, 1).has_value();
  if (held) holder = TextOfHolder(file);
  return !held;
}

void FileNote::Release() {
  if (!file_.IsOpen()) return;
  file_.UnlockFrom(kPlace);
  file_.Close();
}

}  // namespace merlu
