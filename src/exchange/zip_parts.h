// The parts of a zip archive, as workbooks are stored. Sizes and check sums in the archive are verified, never trusted.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace merlu {

class ZipParts {
 public:
  // kNotADatabase for bytes that are no archive, or an encrypted one; kOverflow for more than 10,000 parts, or a
  // declared size of more than 256 MB.
  explicit ZipParts(std::string bytes);

  bool Has(std::string_view name) const { return parts_.find(name) != parts_.end(); }
  // The part unpacked; kNotADatabase for one that is not there or damaged.
  std::string Read(std::string_view name) const;

 private:
  struct Part {
    std::uint32_t method = 0, check = 0, packed = 0, size = 0, at = 0;
  };

  std::string bytes_;
  std::map<std::string, Part, std::less<>> parts_;
};

}  // namespace merlu
