#include "session/types.h"

namespace merlu {

const std::array<EquipmentType, 16>& EquipmentTypes() {
  static constexpr std::array<EquipmentType, 16> kTypes = {{
      {"AMI", 1, "AMI", "Amine Unit", "Amine Unit", "Amine Unit", true},
      {"BOI", 2, "BOI", "Boiler, Heater, or Burner", "Boiler, Heater, or Burner", "Boiler, Heater, or Burner", true},
      {"VEN", 12, "VEN", "Cold Vent", "Cold Vent", "Cold Vent", true},
      {"FLA", 4, "FLA", "Combustion Flare", "Combustion Flare", "Combustion Flare", true},
      {"DIE", 3, "DIE", "Diesel or Gasoline Engine", "Diesel or Gasoline Engine", "Diesel or Gasoline Engine", true},
      {"DRI", 7, "JAC", "Drilling Equipment", "Drilling Equipment", "Drilling Equipment", true},
      {"FUG", 5, "FUG", "Fugitives", "Fugitives", "Fugitives", false},
      {"GLY", 6, "GLY", "Glycol Unit", "Glycol Unit", "Glycol Unit", true},
      {"LOA", 8, "LOA", "Loading Operation", "Loading Operation", "Loading Operation", true},
      {"LOS", 13, "LOS", "Losses from Flashing", "Losses from Flashing", "Losses from Flashing", true},
      {"MUD", 14, "MUD", "Mud Degassing", "Mud Degassing", "Mud Degassing", true},
      {"NGE", 9, "NGE", "Natural Gas Engine", "NGEngine", "NG Engine", true},
      {"NGT", 10, "NGT", "Natural Gas, Diesel, or Dual-Fuel Turbine", "NGTurbine", "NG Turbine", true},
      {"PNE", 15, "PNE", "Pneumatic Pump", "Pneumatic Pump", "Pneumatic Pump", true},
      {"PRE", 16, "PRE", "Pneumatic Controllers", "Pneumatic Controllers", "Pneumatic Controllers", true},
      {"STO", 11, "STO", "Storage Tank", "Storage Tank", "Storage Tank", true},
  }};
  return kTypes;
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
