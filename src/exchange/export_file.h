// Cutting a copy of the working database down to what is to be handed in. The copy is open as the session's
// exchange database; the working database is not touched.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"

namespace merlu {

// A structure by the two parts of its identifier.
struct StructureName {
  std::string complex;    // CMPLX_ID_NUM
  std::string structure;  // STRUCT_NUM
};

// A structure as the lists of the exchange dialogs show it, in the order of the table.
struct ListedStructure {
  StructureName name;
  std::string area, block, title;
};
std::vector<ListedStructure> ListStructures(Database& db);

// Deletes the activity of every other month, and what depends on it. False after a fault; the file then
// holds what the fault left.
bool DeleteOtherMonths(Database& copy, int month, int year);

// Deletes every other structure, and what depends on it.
void KeepStructures(Database& copy, const std::vector<StructureName>& kept);

// Compacts the finished file, which is closed. A temporary file that an earlier failure left is deleted
// first. Failures are told.
void CompactExport(Session& s, const std::string& file);

}  // namespace merlu
