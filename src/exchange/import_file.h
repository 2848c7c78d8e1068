// Files that come from elsewhere. They are opened for reading only, and nothing of them is used before the
// whole file has been judged.
#pragma once

#include <string>
#include <vector>

#include "store/database.h"

namespace merlu {

// The tables that an import takes over, parents before children.
const std::vector<std::string>& ImportTables();

// Judges a file that Database::OpenImage has opened: sound pages; every table of the working database
// with the same columns in the same order, none of them a view or virtual; no trigger; no view but the
// layout's own; and in the tables that an import takes over values of the columns' types, keys from 1 to
// 2,147,483,647 that occur once, months from 1 to 12, known equipment types, texts in UTF-8. What does not
// hold is a Fault that names it (kNotADatabase, kDamaged, and the store's own).
void CheckImportFile(Database& file, Database& working);

}  // namespace merlu
