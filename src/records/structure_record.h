// Making the rows of a structure.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

struct NewStructure {
  std::string complex, structure, area, block, name;
};
bool StructureExists(Session& s, const std::string& complex, const std::string& structure);
// Adds the description and a month's row for each month so far. Faults are passed on.
void NewStructureRows(Session& s, const NewStructure& structure);

}  // namespace merlu
