// Taking structures over from another inventory of the same year.
#pragma once

#include <vector>

#include "exchange/export_file.h"
#include "session/session.h"

namespace merlu {

// Takes the chosen structures of the file, with their equipment and all their months, into the working
// database: rows are staged, get the next free keys, the operator's number and the year, and move over.
// Months that the working database lacks are added, with a message; months that the file lacks become empty
// rows. `file` is open for reading. False after a refusal, which was told: another year, or a structure that
// exists already; nothing is staged then. After a fault no structure has moved; months that were
// added stay, and the staging tables keep their rows until the next import.
bool ImportStructures(Session& s, Database& file, const std::vector<StructureName>& chosen);

}  // namespace merlu
