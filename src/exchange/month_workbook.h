// The workbook of one month that is filled in elsewhere and read back: a sheet per type and one of the structures, a
// row per record. Plain data, so that any front end can write and read it.
#pragma once

#include <string>
#include <vector>

#include "exchange/read_workbook.h"

namespace merlu {

struct BookColumn {
  std::string name;     // the field's control
  std::string caption;  // with its unit
  std::string hint;     // what the field takes, shown as it is entered
  std::vector<std::string> items;
  bool numeric = false, free_text = false;
};
struct BookCell {
  std::string text;
  std::string was;  // the month before
  bool locked = false;
};
struct BookRow {
  std::string key, structure, equipment;
  std::vector<BookCell> cells;  // as the columns
};
struct BookSheet {
  std::string code;   // of the type; kStructureSheet for the structures
  std::string title;  // of the sheet
  std::vector<BookColumn> columns;
  std::vector<BookRow> rows;
};
struct MonthBook {
  std::string operator_number;
  int year = 0, month = 0;
  std::vector<BookSheet> sheets;
};
inline constexpr const char* kStructureSheet = "STRUCTURE";

// Writes the workbook as .xlsx. All cells but the open monthly fields are locked; a text that a cell cannot hold
// unchanged is left out, and its cell locked. The faults of FailFile.
void WriteMonthBook(const MonthBook& book, const std::string& path);

// The cells that one sheet of a file holds for one record.
struct ReadField {
  std::string name;  // of the control
  std::string text;
  ForeignCell::Kind kind = ForeignCell::Kind::kText;
  bool merged = false;  // it is in merged cells
  std::string caption{};
};
struct ReadRecord {
  std::string key, structure, equipment;
  std::vector<ReadField> fields;  // those that hold something
};
struct ReadSheet {
  std::string code, operator_number;
  int year = 0, month = 0;  // 0 where they cannot be read
  std::vector<ReadRecord> records;
};

// The sheets of a file that are a month workbook's; others are passed over. kNotADatabase for a file without any, and
// the faults of ReadForeignWorkbook.
std::vector<ReadSheet> ReadMonthBook(const std::string& path);

}  // namespace merlu
