// The sheet of a structure: a description, and its activity in each month. It is on the main form, and its fields
// change with the mode.
#pragma once

#include <vector>

#include "sheets/spec.h"
#include "sheets/structure_names.h"

namespace merlu {

inline constexpr const char* kStructureStatus = names::chkSTRUCTURE_Status;

// The table of its sheet. The two IDs are shown and never changed.
const SheetSpec& StructureSheet();
// Its rules, by group: fields, sales gas composition, retired findings.
std::vector<RuleGroup> StructureRules();
void PutStructureSheet(Session& s, Form& main);

// A structure's status decides that of all its equipment for the month: gives every equipment of every structure the
// status of its structure, in all months; or, where only one structure's month can differ, its equipment in that month.
void PropagateStatus(Session& s, std::int64_t only_SA_ID_AK = 0);

}  // namespace merlu
