// What an import would do with the chosen structures, found by reading alone.
#pragma once

#include <string>
#include <vector>

#include "exchange/export_file.h"

namespace merlu {

enum class ImportAction {
  kAdd,
  kOtherYear,  // the file is of another year than the inventory
  kExists,     // the inventory has that structure
  kNotSound,   // why, is in words beside it
  kHeldBack    // it could be added, but another one exists
};

struct PlannedEquipment {
  std::string type, id;  // code of the type
  int months = 0;        // that the file has
};

// A value that the inventory and the file do not agree on; a row that one side lacks has no field.
struct ImportDifference {
  std::string place, field, here, there;
};

struct PlannedStructure {
  StructureName name;
  ImportAction action = ImportAction::kAdd;
  std::string why;                             // of kNotSound, in words
  std::vector<PlannedEquipment> equipment;     // in the file's order
  std::vector<int> months_here, months_there;  // added empty to the inventory, and to the structure
  std::vector<ImportDifference> differences;   // of kExists
};

struct ImportPlan {
  std::vector<PlannedStructure> structures;  // as chosen
  std::string year_here, year_there;
  int last_month_here = 0;  // of the inventory before
  int last_month = 0;       // of the inventory afterwards
  bool adds = true;         // every structure is added; otherwise none is
  std::string refusal;      // why none is, in words
};

// The file must be open and accepted by CheckImportFile. kNoSuchItem for a structure that the file does not have; the
// faults of the store.
ImportPlan PlanImport(Database& working, Database& file, const std::vector<StructureName>& chosen);

// "add", "refused: exists" ...
std::string ActionText(ImportAction action);
// "3, 4"
std::string MonthsText(const std::vector<int>& months);

}  // namespace merlu
