// A zip archive of texts, as workbooks are kept, its parts not packed so that a test can find them.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <map>
#include <string>

namespace merlu::test {

using Parts = std::map<std::string, std::string>;

inline std::string Zip(const Parts& parts) {
  const auto number = [](std::uint64_t value, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i, value >>= 8) bytes += static_cast<char>(value & 0xFFU);
    return bytes;
  };
  std::string files, directory;
  for (const auto& [name, text] : parts) {
    const auto check = crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size()));
    const std::string common = number(20, 2) + number(0, 2) + number(0, 2) + number(0, 4) + number(check, 4) +
                               number(text.size(), 4) + number(text.size(), 4) + number(name.size(), 2) + number(0, 2);
    directory += "PK\x01\x02" + number(20, 2) + common + number(0, 10) + number(files.size(), 4) + name;
    files += "PK\x03\x04" + common + name + text;
  }
  return files + directory + "PK\x05\x06" + number(0, 4) + number(parts.size(), 2) + number(parts.size(), 2) +
         number(directory.size(), 4) + number(files.size(), 4) + number(0, 2);
}

}  // namespace merlu::test
