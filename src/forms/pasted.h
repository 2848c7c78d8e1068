// What is pasted from a spreadsheet, a mail or a report.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// The number in a pasted text as it would be typed: without blanks, thousands separators, a typographic minus and a
// unit after it. A text without a number is returned unchanged.
std::string PastedNumber(std::string_view text);

// The cells of a pasted row. Of numbers also those of a column.
std::vector<std::string> PastedCells(std::string_view text, bool numbers);

}  // namespace merlu
