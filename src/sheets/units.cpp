#include "sheets/units.h"

#include "sheets/operator.h"
#include "sheets/structure.h"

namespace merlu {

const std::vector<const SheetSpec*>& AllSheets() {
  static const std::vector<const SheetSpec*> sheets = [] {
    std::vector<const SheetSpec*> all;
    for (const EquipmentType* type : TypesBy(&EquipmentType::number)) all.push_back(&type->sheet());
    return all;
  }();
  return sheets;
}

const SheetSpec* FindSheet(std::string_view code) {
  const EquipmentType* type = FindType(code);
  return type == nullptr ? nullptr : &type->sheet();
}

const SheetSpec* SheetOf(const QCLocation& location) {
  if (location.Is(level::kUser)) return &OperatorSheet();
  if (location.Is(level::kStructure)) return &StructureSheet();
  return location.Is(level::kEquipment) ? FindSheet(location.EquipType) : nullptr;
}

}  // namespace merlu
