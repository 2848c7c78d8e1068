// Reads rich text files (RTF), also those of other writers: bold, italic and underline, sizes, headings, lists,
// tables, bookmarks, the characters of the usual code pages. Pictures and whatever else a page of help does
// without are left out; of a hyperlink its text is kept.
//
// A broken file gives what could be read of it. Depth, size and the number of parts are bounded, so that no
// file can take more than a moment or more memory than a small multiple of its size.
#pragma once

#include <string_view>

#include "base/document.h"

namespace merlu {

struct RtfLimits {
  std::size_t bytes = std::size_t{8} << 20U;  // of the file; the rest is not read
  std::size_t depth = 256;                    // of groups; deeper ones are passed over
  std::size_t parts = 200000;                 // paragraphs, cells and changes of looks; then reading ends
};

// A text that does not begin as RTF does is a fault (kOther).
Document ReadRtf(std::string_view text, const RtfLimits& limits = {});

}  // namespace merlu
