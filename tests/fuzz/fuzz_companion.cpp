// The history beside an inventory: bytes of the file, or of the steps that it holds.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "faults/hostile_companion.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static merlu::test::HostileCompanion companion;
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 3) {
    case 0: companion.ChangeBytes({data + 1, data + size}); break;
    case 1: companion.ChangeStep({data + 1, data + size}); break;
    default: {
      const std::size_t first = text.find('\n'), second = text.find('\n', first + 1);
      if (first == std::string::npos || second == std::string::npos) return 0;
      companion.PutDraft(text.substr(0, first), text.substr(first + 1, second - first - 1), text.substr(second + 1));
    }
  }
  if (!companion.UseLeavesASoundFile()) std::abort();
  return 0;
}
