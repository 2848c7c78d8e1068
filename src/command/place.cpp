#include "command/place.h"

#include "base/text.h"
#include "session/place.h"
#include "session/types.h"

namespace merlu {

std::string StructureWords(std::string_view area, std::string_view block, std::string_view name) {
  return std::string(area).append(", ").append(block).append(", ").append(name);
}

std::string PlaceText(int year, int month, const std::string& structure, const std::string& type,
                      const std::string& id) {
  const std::string equipment = type.empty() ? "" : TreeTypeName(type) + ": " + Trim(id);
  return JoinPlace(month, year, structure, equipment);
}

}  // namespace merlu
