#include "sheets/units.h"

#include <algorithm>
#include <memory>

#include "session/types.h"

namespace merlu {
namespace {

struct Unit {
  std::string_view code;
  const SheetSpec& (*sheet)();
};

constexpr Unit kUnits[] = {
    {"BOI", TARNE_BOI},
    {"FLA", TARNE_FLA},
    {"VEN", TARNE_VEN},
};

SheetSpec CommonControlsOnly(const EquipmentType& type) {
  SheetSpec sheet;
  sheet.type = type.code;
  sheet.number = type.number;
  sheet.letters = type.letters;
  sheet.title = type.dialog_name;
  sheet.edit_title = sheet.title + " - EDIT DATA";
  sheet.pages = {"General Information", "QC Results"};
  sheet.comments_tag = "Comments";
  sheet.focus_actv = sheet.comments();
  return sheet;
}

const SheetSpec* SheetOf(const EquipmentType& type) {
  const auto* unit = std::find_if(std::begin(kUnits), std::end(kUnits), [&](const Unit& u) { return u.code == type.code; });
  if (unit != std::end(kUnits)) return &unit->sheet();
  static std::vector<std::unique_ptr<SheetSpec>> common;
  return common.emplace_back(std::make_unique<SheetSpec>(CommonControlsOnly(type))).get();
}

}  // namespace

const std::vector<const SheetSpec*>& AllSheets() {
  static const std::vector<const SheetSpec*> sheets = [] {
    std::vector<const SheetSpec*> all;
    for (const EquipmentType& type : EquipmentTypes()) all.push_back(SheetOf(type));
    std::sort(all.begin(), all.end(), [](const SheetSpec* a, const SheetSpec* b) { return a->number < b->number; });
    return all;
  }();
  return sheets;
}

const SheetSpec* FindSheet(std::string_view code) {
  for (const SheetSpec* sheet : AllSheets())
    if (sheet->type == code) return sheet;
  return nullptr;
}

bool HasOwnTable(const SheetSpec& sheet) {
  return std::any_of(std::begin(kUnits), std::end(kUnits), [&](const Unit& u) { return u.code == sheet.type; });
}

}  // namespace merlu
