// The history beside an inventory: bytes of the file, or of the steps that it holds. Most inputs are read, undone and
// redone by the history alone; some of them, picked by their bytes, by the program with all its screens.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <string>

#include "faults/hostile_companion.h"

namespace {

constexpr unsigned kReadingsToAUse = 16;

bool IsForTheProgram(const std::uint8_t* data, std::size_t size) {
  return std::accumulate(data, data + size, 0U) % kReadingsToAUse == 0;
}

}  // namespace

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
  const bool use = IsForTheProgram(data, size);
  if (!(use ? companion.UseLeavesASoundFile() : companion.ReadingLeavesASoundFile())) std::abort();
  return 0;
}
