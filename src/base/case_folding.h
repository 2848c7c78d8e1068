// Letters without regard to case, those beyond ASCII included.
#pragma once

#include <string>
#include <string_view>

namespace merlu {

// A common form of the letter and its counterpart in the other case; any other character unchanged.
char32_t FoldedCase(char32_t letter);
// A text to be compared with others without regard to case; those of ASCII in small letters. Bytes that are no
// characters stay.
std::string FoldedText(std::string_view text);

}  // namespace merlu
