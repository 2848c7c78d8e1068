// The workbook of one month that goes to the field and comes back: a sheet a type and one of the structures, a row a
// record. As plain data, so that any front end can make and read it.
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

// Writes the workbook as .xlsx. Everything but the open monthly fields is locked; a text that a cell cannot hold as it
// stands is left out, and its cell locked. The faults of FailFile.
void WriteMonthBook(const MonthBook& book, const std::string& path);

// What one sheet of a file says to one record.
struct ReadField {
  std::string name;  // of the control
  std::string text;
  ForeignCell::Kind kind = ForeignCell::Kind::kText;
  bool merged = false;  // it stands in cells that are drawn as one with others
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
