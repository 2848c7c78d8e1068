#include "session/types.h"

#include <algorithm>

namespace merlu {

const std::vector<EquipmentType>& EquipmentTypes() {
  static const std::vector<EquipmentType> types = {
      // clang-format off
      {"AMI", 1, "AMI", "Amine Unit", "Amine Unit", "Amine Unit", true, 1, 2, 1, 1, 1, TARNE_AMI},
      {"BOI", 2, "BOI", "Boiler, Heater, or Burner", "Boiler, Heater, or Burner", "Boiler, Heater, or Burner", true, 2, 3, 2, 2, 2, TARNE_BOI},
      {"VEN", 12, "VEN", "Cold Vent", "Cold Vent", "Cold Vent", true, 16, 12, 15, 15, 16, TARNE_VEN},
      {"FLA", 4, "FLA", "Combustion Flare", "Combustion Flare", "Combustion Flare", true, 5, 4, 4, 4, 5, TARNE_FLA},
      {"DIE", 3, "DIE", "Diesel or Gasoline Engine", "Diesel or Gasoline Engine", "Diesel or Gasoline Engine", true, 3, 1, 3, 3, 3, TARNE_DIE},
      {"DRI", 7, "JAC", "Drilling Equipment", "Drilling Equipment", "Drilling Equipment", true, 4, 7, 6, 6, 4, TARNE_JAC},
      {"FUG", 5, "FUG", "Fugitives", "Fugitives", "Fugitives", false, 6, 5, 0, 16, 6, TARNE_FUG},
      {"GLY", 6, "GLY", "Glycol Unit", "Glycol Unit", "Glycol Unit", true, 7, 6, 5, 5, 7, TARNE_GLY},
      {"LOA", 8, "LOA", "Loading Operation", "Loading Operation", "Loading Operation", true, 8, 8, 10, 7, 8, TARNE_LOA},
      {"LOS", 13, "LOS", "Losses from Flashing", "Losses from Flashing", "Losses from Flashing", true, 9, 0, 11, 8, 9, TARNE_LOS},
      {"MUD", 14, "MUD", "Mud Degassing", "Mud Degassing", "Mud Degassing", true, 10, 0, 7, 9, 12, TARNE_MUD},
      {"NGE", 9, "NGE", "Natural Gas Engine", "NGEngine", "NG Engine", true, 11, 9, 8, 10, 10, TARNE_NGE},
      {"NGT", 10, "NGT", "Natural Gas, Diesel, or Dual-Fuel Turbine", "NGTurbine", "NG Turbine", true, 12, 10, 9, 11, 11, TARNE_NGT},
      {"PNE", 15, "PNE", "Pneumatic Pump", "Pneumatic Pump", "Pneumatic Pump", true, 13, 0, 12, 12, 13, TARNE_PNE},
      {"PRE", 16, "PRE", "Pneumatic Controllers", "Pneumatic Controllers", "Pneumatic Controllers", true, 14, 0, 13, 13, 14, TARNE_PRE},
      {"STO", 11, "STO", "Storage Tank", "Storage Tank", "Storage Tank", true, 15, 11, 14, 14, 15, TARNE_STO},
      // clang-format on
  };
  return types;
}

std::vector<const EquipmentType*> TypesBy(int EquipmentType::*position) {
  std::vector<const EquipmentType*> types;
  for (const EquipmentType& type : EquipmentTypes())
    if (type.*position > 0) types.push_back(&type);
  std::sort(types.begin(), types.end(),
            [position](const EquipmentType* a, const EquipmentType* b) { return a->*position < b->*position; });
  return types;
}

const EquipmentType* FindType(std::string_view code) {
  for (const EquipmentType& type : EquipmentTypes())
    if (type.code == code) return &type;
  return nullptr;
}

const EquipmentType* FindTypeByName(std::string_view name) {
  if (name == "Pressure/Level Controllers") return FindType("PRE");
  for (const EquipmentType& type : EquipmentTypes())
    if (type.dialog_name == name || type.build_name == name || type.tree_name == name) return &type;
  return nullptr;
}

std::string TreeTypeName(std::string_view code) {
  const EquipmentType* type = FindType(code);
  return std::string(type == nullptr ? code : type->tree_name);
}

}  // namespace merlu
