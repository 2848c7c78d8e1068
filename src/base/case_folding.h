// Letters without regard to case, those beyond ASCII included.
#pragma once

namespace merlu {

// The letter that stands for it and for its counterpart in the other case; any other character is its own.
char32_t FoldedCase(char32_t letter);

}  // namespace merlu
