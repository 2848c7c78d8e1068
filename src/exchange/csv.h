// Comma-separated values as RFC 4180 has them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// The rows of a text. Fields are parted by commas, or by semicolons or tabs when the first line holds more of them; a
// byte-order mark is passed over.
std::vector<std::vector<std::string>> ParseCsv(std::string_view text);

// Whether the text comes from a program that writes a comma before decimals: its fields are parted by semicolons, or
// one can be nothing else and none has a point.
bool HasDecimalCommas(std::string_view text, const std::vector<std::vector<std::string>>& rows);
// A number with a comma before its decimals, as a spreadsheet writes it: "1287,002".
bool IsDecimalComma(std::string_view field);

// A field as it is written: in quotes where it needs them, and with an apostrophe in front where a spreadsheet program
// would take it for a formula. A number stays as it is.
std::string CsvField(std::string_view text);
// A row with its line end.
std::string CsvLine(const std::vector<std::string>& fields);

}  // namespace merlu
