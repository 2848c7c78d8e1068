// A structure: a description, and its activity in each month. Edited on the sheet fraStructure, whose
// fields change with the mode. In activity mode its status decides the status of all its equipment for the
// month.
#pragma once

#include <string>

#include "records/structure_names.h"
#include "session/session.h"
#include "sheets/spec.h"

namespace merlu {

void PutStructureSheet(Session& s, Form& main);

void ClearStructure(Session& s);
// False when the record could not be read.
bool LoadStructure(Session& s);
void LockStructure(Session& s);
void UnlockStructure(Session& s);
void SaveStructure(Session& s);
void LoadStructureQCList(Session& s);

// The rules of the sheet, by group: fields, sales gas composition, retired findings.
const std::vector<RuleGroup>& StructureRules();
// The same with the fields of the sheet looked up.
const RuleSet& StructureRuleSet();
inline constexpr const char* kStructureStatus = names::chkSTRUCTURE_Status;

struct NewStructure {
  std::string complex, structure, area, block, name;
};
bool StructureExists(Session& s, const std::string& complex, const std::string& structure);
// Adds the description and a month's row for each month so far. Faults are passed on.
void NewStructureRows(Session& s, const NewStructure& structure);

// Gives every equipment of every structure the status of its structure, in all months; or, where only one structure's
// month can differ, its equipment in that month.
void PropagateStatus(Session& s, std::int64_t only_SA_ID_AK = 0);

}  // namespace merlu
