// What is pasted from a spreadsheet, a mail or a report.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// The number in a pasted text as one types it: without blanks, marks between thousands, a typographic minus and a unit
// behind it. A text that holds no number stays as it is.
std::string PastedNumber(std::string_view text);

// The cells of a pasted row. Of numbers also those of a column.
std::vector<std::string> PastedCells(std::string_view text, bool numbers);

}  // namespace merlu
