// A workbook as plain data, and the files that can be written from it.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/dates.h"

namespace merlu {

// Days since the end of 1899 with the time of day as a fraction, as spreadsheet programs count them.
struct SerialDate {
  double days = 0;
  bool operator==(const SerialDate&) const = default;
};

using EmptyCell = std::monostate;
// Texts are valid UTF-8 and not empty; numbers are finite.
using Cell = std::variant<EmptyCell, bool, double, SerialDate, std::string>;

struct SheetRow {
  std::vector<Cell> cells;
  std::size_t headings = 0;  // so many cells from the left are drawn as headings, empty ones too
  bool wraps = false;        // texts that are wider than their column go on in further lines
};

struct Sheet {
  std::string name;  // up to 31 ASCII characters
  std::vector<SheetRow> rows;
  std::vector<int> widths;  // of the columns, in digits of the plain font
  int frozen_rows = 0;      // that stay when the rest is scrolled
  bool filters = false;     // the last of them has a choice of rows in each column (.xlsx)
};

// How both formats draw a sheet.
inline constexpr const char* kHeadingFont = "Tahoma";  // bold
inline constexpr unsigned kHeadingGrey = 191;          // of red, green and blue
inline constexpr const char* kDateFormat = "yyyy-mm-dd hh:mm:ss";

// Nothing for dates before March 1900, on which spreadsheet programs do not agree.
std::optional<SerialDate> ToSerial(const DateTime& date);

// Room that a text takes, in digits of the plain font.
double TextWidth(std::string_view text);

// Whether the cell is a text of more than one line in its column.
bool Wraps(const Sheet& sheet, std::size_t row, std::size_t column);

// One workbook file in the making. It takes the sheets one after the other, so that no more than one of
// them need be in memory as cells.
class WorkbookFile {
 public:
  virtual ~WorkbookFile() = default;
  // kOverflow for a sheet that the format has no room for.
  virtual void Add(const Sheet& sheet) = 0;
  // Once, at the end. The faults of FailFile; what has been written then stays.
  virtual void Write() = 0;
};

// The file is made by Write, over an existing one.
std::unique_ptr<WorkbookFile> NewXls(const std::string& path);   // 97-2003 workbook, BIFF8 in a compound file
std::unique_ptr<WorkbookFile> NewXlsx(const std::string& path);  // Office Open XML

struct SheetLimits {
  std::size_t rows, columns;
};
// Throws kOverflow when a sheet is larger than that, or a text longer than a cell takes in any format.
void CheckFits(const Sheet& sheet, const SheetLimits& limits);

}  // namespace merlu
