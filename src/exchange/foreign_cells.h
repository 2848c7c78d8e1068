// The cells of a workbook while it is read, within bounds, and the faults with which every workbook reader refuses a
// file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/read_workbook.h"

namespace merlu {

// kNotADatabase: "The file is not a workbook: why."
[[noreturn]] void NoWorkbook(const std::string& why = "");
// kOverflow: "The workbook is too large: more than ..."
[[noreturn]] void TooLargeWorkbook(const std::string& what);

class ForeignCells {
 public:
  // The cells that follow are of that sheet.
  void AddSheet(std::string_view name);
  // A cell that is put a second time counts as it was put last. Empty texts are none.
  void Put(int row, int column, ForeignCell::Kind kind, std::string_view text);
  void Merge(const ForeignRange& range);
  // The sheets with their cells in order, once.
  std::vector<ForeignSheet> Take();

 private:
  std::vector<ForeignSheet> sheets_;
  std::size_t cells_ = 0, bytes_ = 0, merged_ = 0;
};

// Readers of the two formats. `bytes` is the whole file.
std::vector<ForeignSheet> ReadXlsx(std::string bytes);
std::vector<ForeignSheet> ReadOds(std::string bytes);

// A number as it would be typed; a text that is none stays as it is.
std::string NumberText(std::string_view text);
// Whether a number is shown as a date by a format of that code: "yyyy-mm-dd".
bool IsDateFormat(std::string_view code);

}  // namespace merlu
