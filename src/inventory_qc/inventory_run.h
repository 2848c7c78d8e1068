// The annual pass: missing data and inconsistencies in all records of all months, kept in QCInventory. It
// reads the stored rows and needs no screen; findings of the monthly log, sheets and location stay as they
// are.
#pragma once

#include "forms/report.h"
#include "session/session.h"

namespace merlu {

// How far a run came.
struct InventoryRun {
  std::vector<std::string> broken;  // passes that a fault ended, by name
  bool had_records = true;          // false: no active month and no equipment to look at
};

// Empties QCInventory, runs every pass in order, deletes the findings of inactive structure months, and adds the
// summary row. A fault in a pass is shown and ends that pass; other faults are passed on.
InventoryRun RunInventoryPasses(Session& s);

// The contents of QCInventory after that run, ready for printing: the summary, the operator, and the findings by level,
// location and item.
InventoryReport ReadInventoryReport(Session& s, const InventoryRun& run = {});

}  // namespace merlu
