// Keys of tree nodes: made from any texts, and cut again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/text.h"
#include "session/node_keys.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace merlu;
  const std::string text(reinterpret_cast<const char*>(data), size);
  ParseDescNodeKey(text);
  const QCLocation location = ParseNodeKey(text);
  for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
    const std::string key = KeyOf(location, mode);
    mode == Mode::kActv ? ParseNodeKey(key) : ParseDescNodeKey(key);
  }
  // four texts of any length, and a month and a year
  const std::size_t part = size / 4;
  const std::string user = text.substr(0, part), complex = text.substr(part, part),
                    structure = text.substr(2 * part, part);
  const int number = size < 2 ? 0 : data[0] * 256 + data[1];
  const std::string key =
      StructureMonthKey(user, number % 12 + 1, number, complex, structure) + EquipmentSuffix("FLA", text);
  ParseNodeKey(key);
  if (!IsUtf8(text) || CountCharacters(complex) > 7 || CountCharacters(structure) > 2) return 0;
  const QCLocation cut = ParseNodeKey(StructureMonthKey("12345", 3, 2017, complex, structure));
  if (IsUtf8(complex) && IsUtf8(structure) && (cut.CmplxID != Trim(complex) || cut.StructID != Trim(structure)))
    std::abort();
  return 0;
}
