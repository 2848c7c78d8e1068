// Conversions between numbers and the texts that a user types or reads. Independent of the locale.
#pragma once

#include <string>
#include <string_view>

namespace merlu {

// The number that a text begins with: leading blanks are skipped, then as many characters are read as
// make a number (sign, digits, point, exponent). The rest is ignored; without a number the result is 0.
// "1,200" is 1, "12abc" is 12, "" is 0.
double LeadingNumber(std::string_view text);

// True for what a spreadsheet user calls a number: blanks around, a sign, digits with commas between
// them, a point, an exponent. A number too large for a double is none.
bool IsNumericText(std::string_view text);

// The number that a whole numeric text means, commas and blanks left out: "1,200" is 1200. Only for texts
// of which IsNumericText is true; another text reads as LeadingNumber reads it without its commas.
double WholeNumber(std::string_view text);

// Shortest general form of up to 15 significant digits (7 for single precision), no trailing zeros:
// 744, 99.8, 1E+15.
std::string GeneralNumber(double value);
std::string GeneralNumber(float value);

// Rounds to a whole number, halves to the even neighbour: 0.5 is 0, 1.5 is 2.
double RoundHalfToEven(double value);

}  // namespace merlu
