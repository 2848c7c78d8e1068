// Letters without regard to case, those beyond ASCII included.
#pragma once

namespace merlu {

// A common form of the letter and its counterpart in the other case; any other character unchanged.
char32_t FoldedCase(char32_t letter);

}  // namespace merlu
