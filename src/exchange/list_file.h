// A list that shows, as a file: a workbook of one sheet that filters, or comma-separated values.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/new_file.h"

namespace merlu {

struct ListToWrite {
  std::string name;  // of the sheet
  std::vector<std::string> columns;
  int rows = 0;
  std::function<std::string(int row, int column)> text;
};

// By the extension of the path: .csv, anything else as .xlsx. Texts stay texts: nothing in them becomes a formula. One
// that is longer than a cell of a workbook takes is cut and says so; .csv holds it whole. The faults of WriteNewFile.
void WriteList(const OwnFiles& own, const std::string& path, const ListToWrite& list);
// Writes it to `to`, in the format that the extension of `name` asks for.
void WriteListAs(const std::string& name, const std::string& to, const ListToWrite& list);
// Several lists as the sheets of one workbook.
void WriteLists(const OwnFiles& own, const std::string& path, const std::vector<ListToWrite>& lists);

}  // namespace merlu
