// The equipment types: one table, from which everything that lists types derives. A further type is its sheet
// (sheets/TARNE_*), a row here with the sheet's declaration, and its tables in the schema.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

struct SheetSpec;

struct EquipmentType {
  std::string_view code;         // stored in ED_EQUIP_TYP, EA_EQUIP_TYP and EquipType
  int number;                    // in the order of the sheets
  std::string_view letters;      // of the names of its form and controls
  std::string_view dialog_name;  // in the drop-down of the new-equipment dialog
  std::string_view build_name;   // that the tree's build calls it by
  std::string_view tree_name;    // in node texts
  bool has_activity;             // false: no EA_<code> table, and no activity mode
  // Positions in lists, from 1; 0: it is not in the list
  int in_tree;      // the build of a tree
  int in_walk;      // a structure's QC run
  int in_year;      // the annual run's passes by type
  int in_import;    // the tables of an import
  int in_workbook;  // the workbook of the descriptions
  const SheetSpec& (*sheet)();
};

// In the order of the new-equipment dialog's drop-down.
const std::vector<EquipmentType>& EquipmentTypes();

// Those that are in a list, in its order: TypesBy(&EquipmentType::in_walk).
std::vector<const EquipmentType*> TypesBy(int EquipmentType::*position);

// By code; null for an unknown one.
const EquipmentType* FindType(std::string_view code);
// By any of its names.
const EquipmentType* FindTypeByName(std::string_view name);

// Name of the type in node texts and summaries; the code itself for an unknown one.
std::string TreeTypeName(std::string_view code);

// The sheets, one in each sheets/TARNE_*.cpp.
const SheetSpec& TARNE_AMI();
const SheetSpec& TARNE_BOI();
const SheetSpec& TARNE_DIE();
const SheetSpec& TARNE_FLA();
const SheetSpec& TARNE_FUG();
const SheetSpec& TARNE_GLY();
const SheetSpec& TARNE_JAC();
const SheetSpec& TARNE_LOA();
const SheetSpec& TARNE_LOS();
const SheetSpec& TARNE_MUD();
const SheetSpec& TARNE_NGE();
const SheetSpec& TARNE_NGT();
const SheetSpec& TARNE_PNE();
const SheetSpec& TARNE_PRE();
const SheetSpec& TARNE_STO();
const SheetSpec& TARNE_VEN();

}  // namespace merlu
