// The sixteen equipment types: one list, from which everything that names a type derives.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace merlu {

struct EquipmentType {
  std::string_view code;         // stored in ED_EQUIP_TYP, EA_EQUIP_TYP and EquipType
  int number;                    // of per-type arrays
  std::string_view letters;      // of the names of its form and controls
  std::string_view dialog_name;  // in the drop-down of the new-equipment dialog
  std::string_view build_name;   // that the tree's build calls it by
  std::string_view tree_name;    // in node texts
  bool has_activity;             // false: no EA_<code> table, and no activity mode
};

// In the order of the new-equipment dialog's drop-down.
const std::array<EquipmentType, 16>& EquipmentTypes();

// By code; null for an unknown one.
const EquipmentType* FindType(std::string_view code);
// By any of its names.
const EquipmentType* FindTypeByName(std::string_view name);

// Name of the type in node texts and summaries; the code itself for an unknown one.
std::string TreeTypeName(std::string_view code);

}  // namespace merlu
