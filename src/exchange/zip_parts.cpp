#include "exchange/zip_parts.h"

#include <zlib.h>

#include <algorithm>

#include "exchange/foreign_cells.h"

namespace merlu {
namespace {

constexpr std::uint32_t kEnd = 0x06054b50, kEntry = 0x02014b50, kLocal = 0x04034b50;
constexpr std::size_t kEndLength = 22, kEntryLength = 46, kLocalLength = 30, kLongestComment = 65535;
constexpr std::uint32_t kStored = 0, kDeflated = 8;
constexpr std::uint64_t kMostUnpacked = 256U << 20U;
constexpr std::size_t kMostParts = 10'000;

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8U | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

// Where the archive's directory ends.
std::size_t FindEnd(std::string_view bytes) {
  if (bytes.size() < kEndLength) NoWorkbook();
  const std::size_t last = bytes.size() - kEndLength;
  for (std::size_t back = 0; back <= std::min(last, kLongestComment); ++back)
    if (Number(bytes, last - back, 4) == kEnd) return last - back;
  NoWorkbook();
}

// No more bytes than the directory declares.
std::string Inflate(std::string_view packed, std::size_t size) {
  std::string text(size, '\0');
  z_stream stream{};
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = reinterpret_cast<Bytef*>(text.data());
  stream.avail_out = static_cast<uInt>(size);
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) NoWorkbook("it cannot be unpacked");
  const int state = inflate(&stream, Z_FINISH);
  const bool whole = state == Z_STREAM_END && stream.avail_out == 0;
  inflateEnd(&stream);
  if (!whole) NoWorkbook("a part of it is damaged");
  return text;
}

}  // namespace

ZipParts::ZipParts(std::string bytes) : bytes_(std::move(bytes)) {
  const std::string_view all = bytes_;
  const std::size_t end = FindEnd(all);
  std::size_t at = Number(all, end + 16, 4);
  std::uint64_t unpacked = 0;
  for (std::uint32_t left = Number(all, end + 10, 2); left > 0; --left) {
    if (at + kEntryLength > end || Number(all, at, 4) != kEntry) NoWorkbook("its directory is damaged");
    const std::size_t name = Number(all, at + 28, 2), extra = Number(all, at + 30, 2), note = Number(all, at + 32, 2);
    if (at + kEntryLength + name > end) NoWorkbook("its directory is damaged");
    if ((Number(all, at + 8, 2) & 1U) != 0) NoWorkbook("it is locked with a password");
    const Part part{Number(all, at + 10, 2), Number(all, at + 16, 4), Number(all, at + 20, 4), Number(all, at + 24, 4),
                    Number(all, at + 42, 4)};
    unpacked += part.size;
    if (unpacked > kMostUnpacked) TooLargeWorkbook("more than 256 MB unpacked");
    if (parts_.size() == kMostParts) TooLargeWorkbook("more than 10,000 parts");
    parts_.emplace(std::string(all.substr(at + kEntryLength, name)), part);
    at += kEntryLength + name + extra + note;
  }
}

std::string ZipParts::Read(std::string_view name) const {
  const auto found = parts_.find(name);
  if (found == parts_.end()) NoWorkbook("it lacks " + std::string(name));
  const Part& part = found->second;
  const std::string_view all = bytes_;
  const std::size_t at = part.at;
  if (at + kLocalLength > all.size() || Number(all, at, 4) != kLocal) NoWorkbook("a part of it is damaged");
  const std::size_t begin = at + kLocalLength + Number(all, at + 26, 2) + Number(all, at + 28, 2);
  if (begin > all.size() || all.size() - begin < part.packed) NoWorkbook("a part of it is damaged");
  const std::string_view packed = all.substr(begin, part.packed);
  if (part.method != kStored && part.method != kDeflated) NoWorkbook("it is packed in another way");
  if (part.method == kStored && part.packed != part.size) NoWorkbook("a part of it is damaged");
  std::string text = part.method == kStored ? std::string(packed) : Inflate(packed, part.size);
  const uLong check = crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size()));
  if (check != part.check) NoWorkbook("a part of it is damaged");
  return text;
}

}  // namespace merlu
