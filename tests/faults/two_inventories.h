// An inventory of two structures and two months, and one with other structures to import.
#pragma once

#include <string>

#include "inventory.h"
#include "support/test_run.h"

namespace merlu::test {

// Makes them as inventory.mdb and other.mdb in the run's folder, and starts the run on the first; its first piece of
// equipment is the flare FLA5, whose first month has the key 1. Returns its path.
inline std::string StartOnTwoStructures(TestRun& run) {
  const std::string path = run.folder.path("inventory.mdb"), other = run.folder.path("other.mdb");
  InventoryPlan plan;
  plan.structures = 2;
  plan.equipment = 10;
  plan.months = 2;
  plan.operator_number = "12345";
  plan.types = {"FLA", "STO", "LOA", "MUD", "VEN"};
  MakeInventory(TemplatePath(), path, plan);
  MakeInventory(TemplatePath(), other, plan);
  Raw(other, {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='X'||CMPLX_ID_NUM"});
  Raw(path, {"UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='FLA5' WHERE ED_ID_AK=1"});
  run.Start(path);
  run.boxes.clear();
  return path;
}

}  // namespace merlu::test
