// What writers of rich text leave to the eye, made plain: headings that are only larger, bullets that are only
// typed, empty lines that only make room.
#pragma once

#include "base/document.h"

namespace merlu {

void TidyDocument(Document& document);

}  // namespace merlu
