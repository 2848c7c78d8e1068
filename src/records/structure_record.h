// Making the rows of a structure. Keys are arguments and results; the session's own are not touched.
#pragma once

#include <string>

#include "records/record_keys.h"
#include "session/session.h"

namespace merlu {

struct NewStructure {
  std::string complex, structure, area, block, name;
};
// Whether the complex has a structure of that number, without regard to case.
bool StructureExists(Database& db, const std::string& complex, const std::string& structure);
// Adds the description, under the operator's company number, and a month's row for each month so far, and has the
// cursor of the descriptions on it. Returns the structure's key and that of the last month. Faults are passed on;
// nothing of the structure is left then.
RecordKeys NewStructureRows(Session& s, const std::string& user, const NewStructure& structure);

}  // namespace merlu
