// Files that come from elsewhere. They are opened for reading only, and nothing of them is used before the
// whole file has been judged.
#pragma once

#include <string>
#include <vector>

#include "store/database.h"

namespace merlu {

// The tables that an import takes over, parents before children.
const std::vector<std::string>& ImportTables();

// What the tables that an import reads look like in the working database.
struct ImportColumn {
  std::string name;
  std::string type;  // as it is declared
};
struct ImportLayout {
  std::vector<std::vector<ImportColumn>> tables;  // of ImportTables
};
ImportLayout ReadImportLayout(Database& working);

// Judges a file that Database::OpenPrivateCopy has opened: sound pages; the tables that an import reads, each with the
// layout's columns in whatever order, none of them a view or virtual; no trigger; and in these tables values of the
// columns' types, keys from 1 to 2,147,483,647 that occur once, months from 1 to 12, known equipment types, texts in
// UTF-8. What does not hold is a Fault that names it (kNotADatabase, kDamaged, and the store's own).
void CheckImportFile(Database& file, const ImportLayout& layout);

}  // namespace merlu
