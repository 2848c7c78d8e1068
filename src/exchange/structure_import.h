// Taking structures over from another inventory of the same year.
#pragma once

#include <vector>

#include "exchange/import_plan.h"
#include "session/session.h"

namespace merlu {

// Which part of an import is done.
enum class Import { kPlan, kDo };

// Plans the import of the chosen structures. With Import::kDo, and when nothing in the plan is refused, their rows get
// the next free keys, the operator's number and the year, and come into the inventory's tables. Months that the working
// database lacks are added, as are those that a structure lacks, as empty rows. `file` has been judged by
// CheckImportFile and is read from nowhere else. After a fault nothing has changed.
ImportPlan ImportStructures(Session& s, Database& file, const std::vector<StructureName>& chosen, Import how);

}  // namespace merlu
