// Workbooks that come from elsewhere (.xlsx, .ods, .csv), read into plain cells. Nothing of them is believed.
#pragma once

#include <string>
#include <vector>

namespace merlu {

struct ForeignCell {
  enum class Kind {
    kText,
    kNumber,
    kDate,          // a number that is shown as a date
    kFormula,       // one whose result is not stored
    kDecimalComma,  // a text that is a number with a comma before its decimals
  };
  int row = 0, column = 0;  // from 0
  Kind kind = Kind::kText;
  std::string text;  // of a number as it would be typed; of a formula its stored result
};

struct ForeignRange {
  int row = 0, column = 0, last_row = 0, last_column = 0;
};

struct ForeignSheet {
  std::string name;
  std::vector<ForeignCell> cells;    // those that hold something, row by row
  std::vector<ForeignRange> merged;  // cells drawn as one; the first holds their text
  // The cell's text; empty for one that is not there.
  const std::string& Text(int row, int column) const;
};

// Reads a file by its extension; anything but .xlsx and .ods counts as .csv, one sheet without a name. kFileNotFound
// and kFileAccess for a file that cannot be opened, kNotADatabase for one that is no such file, kOverflow for one
// beyond 64 MB, 256 MB unpacked, 200,000 rows, 500 columns, 2,000,000 cells or 10,000 merged ranges.
std::vector<ForeignSheet> ReadForeignWorkbook(const std::string& path);

}  // namespace merlu
