// Writes rich text files as the common word processors read them: headings with their outline level, so that they
// make a table of contents; bookmarks; lists; tables with thin borders.
#pragma once

#include <string>

#include "base/document.h"

namespace merlu {

std::string ToRtf(const Document& document, const std::string& title);

}  // namespace merlu
