// The words of a command line of a script.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace merlu {

// Splits at blanks; a word in double quotes may hold blanks, \" and \\. Nothing when a quote is not closed
// or is followed by more of the word.
std::optional<std::vector<std::string>> SplitWords(std::string_view line);

}  // namespace merlu
