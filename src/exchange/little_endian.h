// Bytes in the making, low bytes first.
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace merlu {

struct Bytes {
  std::string data;

  std::size_t size() const { return data.size(); }
  Bytes& U8(unsigned value) {
    data.push_back(static_cast<char>(value));
    return *this;
  }
  Bytes& U16(unsigned value) { return U8(value & 0xFF).U8(value >> 8 & 0xFF); }
  Bytes& U32(std::uint32_t value) { return U16(value & 0xFFFF).U16(value >> 16); }
  Bytes& F64(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return U32(static_cast<std::uint32_t>(bits)).U32(static_cast<std::uint32_t>(bits >> 32));
  }
  Bytes& Put(std::string_view bytes) {
    data.append(bytes);
    return *this;
  }
  Bytes& Fill(std::size_t count, char byte = 0) {
    data.append(count, byte);
    return *this;
  }
};

}  // namespace merlu
