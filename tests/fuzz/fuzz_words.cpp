// The words of a script's line.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "script/words.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view line(reinterpret_cast<const char*>(data), size);
  const auto words = merlu::SplitWords(line);
  if (!words) return 0;
  // quoted again, the words are the same
  std::string quoted;
  for (const std::string& word : *words) {
    quoted += " \"";
    for (const char c : word) {
      if (c == '"' || c == '\\') quoted += '\\';
      quoted += c;
    }
    quoted += "\"";
  }
  if (merlu::SplitWords(quoted) != words) std::abort();
  return 0;
}
