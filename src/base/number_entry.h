// What is typed where a number is wanted: sums, and what a save makes of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace merlu {

// What a save will make of the text in other words than the text's own: "Will be saved as 12", "Not a number: will
// be saved blank"; empty where the number is stored as it stands, or only written otherwise.
std::string NumberHint(std::string_view text);

// True for a text that begins a sum: "=12*31".
bool IsSum(std::string_view text);
// The text of its value. Numbers, + - * /, brackets and signs; none for anything else, a division by 0 included.
std::optional<std::string> SumText(std::string_view text);

}  // namespace merlu
