// The descriptions of an inventory as a workbook: which tables, in which order, and how a sheet is laid out.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/workbook.h"
#include "store/database.h"

namespace merlu {

struct ExportedTable {
  std::string name;  // of the table and of its sheet
  std::string_view description;
  std::string_view note;  // below the records
};

// In the workbook's order.
const std::vector<ExportedTable>& ExportedTables();

// Called now and then with the table in work, and the records of the whole workbook: done, and in all.
using ExportProgress = std::function<void(std::string_view table, int done, int total)>;

// The sheet of one table, its records in the table's own order. Read once, with the table's own columns; the faults
// of the store.
Sheet ReadSheet(Database& db, const ExportedTable& table, const std::function<void()>& each_record);

// Puts the sheets of all tables into the file and writes it. The faults of the store and of the file.
void ExportDescriptions(Database& db, WorkbookFile& file, const ExportProgress& progress);

}  // namespace merlu
