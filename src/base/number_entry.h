// Texts typed into number fields: sums, and a hint at what a save makes of the text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace merlu {

// What a save will make of the text when that differs from it: "Will be saved as 12", "Not a number: will be saved
// blank"; empty when the number is stored unchanged or only formatted differently.
std::string NumberHint(std::string_view text);

// True for a text that begins a sum: "=12*31".
bool IsSum(std::string_view text);
// The text of its value. Numbers, + - * /, brackets and signs; none for anything else, a division by 0 included.
std::optional<std::string> SumText(std::string_view text);

}  // namespace merlu
