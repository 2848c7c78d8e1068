// exchange/ hands data out and takes data in: exports, imports, workbooks, lists as files. Here: the export, a copy of
// the working database, cut down to what is to be handed in.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "exchange/compact.h"
#include "store/database.h"

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

// Deletes the activity of every other month, and what depends on it.
void DeleteOtherMonths(Database& copy, int month, int year);

// Deletes every other structure, and what depends on it.
void KeepStructures(Database& copy, const std::vector<StructureName>& kept);

// Fills the new, empty file: a copy of the working database, cut down in memory, compacted and checked. Without `cut`
// everything is copied and nothing is compacted. The faults of the store and of `cut`; the working database is only
// read.
Compaction FillExport(const OwnFiles& own, Database& working, const std::string& path, std::uint64_t free_bytes,
                      const std::function<void(Database& copy)>& cut);

// The same under a name that the user chose. The file replaces an older file of that name once it is complete, checked
// and fsynced. Also the faults of WriteNewFile.
Compaction WriteExport(const OwnFiles& own, Database& working, const std::string& target, std::uint64_t free_bytes,
                       const std::function<void(Database& copy)>& cut);

}  // namespace merlu
