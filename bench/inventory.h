// Makes inventory databases of any size, filled as a careful operator would have filled them: for
// benchmarks, tests and trying the program.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace merlu {

struct InventoryPlan {
  int structures = 12;
  int equipment = 120;  // shared out evenly among the structures
  int months = 12;      // 1 to 12
  // Codes of the equipment's types, taken in turn; empty for all sixteen.
  std::vector<std::string> types;
  std::string operator_number = "01234";
  int year = 2017;
  // Share of the equipment's rows, descriptions and months alike, in which one value breaks a rule. The seed
  // decides which rows and which values.
  double fault_share = 0;
  std::uint32_t seed = 1;
};

// An operator of everyday size, and the largest one that the tree holds: 3,333 pieces of equipment in
// twelve months make 39,996 equipment months, when all are of types with activity.
InventoryPlan EverydayInventory();
InventoryPlan FullInventory();
// Sound structures with a piece of equipment of each type.
InventoryPlan OneOfEachType(int structures, int months);

// The fifteen types with activity. With fugitives in the mix a file holds fewer equipment months.
std::vector<std::string> MonthlyTypes();

struct InventoryCounts {
  int structure_months = 0;
  int equipment_months = 0;  // rows of the types' monthly tables
  int faulty_descriptions = 0;
  int faulty_months = 0;
};

// Makes the file from the empty template, over an older one. Keys, and the order of the rows in the file, are
// those of a year whose months were added one after the other. Nothing has been checked yet: there are no
// findings and no dates of last QC. A Fault when a file cannot be read or written.
InventoryCounts MakeInventory(const std::string& template_path, const std::string& path, const InventoryPlan& plan);

}  // namespace merlu
