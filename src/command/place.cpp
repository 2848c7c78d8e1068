#include "command/place.h"

#include <array>
#include <cstdio>

#include "base/text.h"
#include "session/types.h"

namespace merlu {

std::string StructureWords(std::string_view area, std::string_view block, std::string_view name) {
  return std::string(area).append(", ").append(block).append(", ").append(name);
}

std::string PlaceText(int year, int month, const std::string& structure, const std::string& type,
                      const std::string& id) {
  std::array<char, 32> date{};
  if (month > 0) std::snprintf(date.data(), date.size(), "%04d/%02d", year, month);
  const std::string equipment = type.empty() ? "" : TreeTypeName(type) + ": " + Trim(id);
  std::string place;
  for (const std::string& part : {std::string(date.data()), structure, equipment})
    if (!part.empty()) place += (place.empty() ? "" : " · ") + part;
  return place;
}

}  // namespace merlu
