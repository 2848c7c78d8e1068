// A finding's comment: what it is kept under beside the inventory, and what it is worth.
#pragma once

#include <string>
#include <string_view>

#include "session/location.h"

namespace merlu {

std::string CommentKey(const QCLocation& location, std::string_view tag, std::string_view text);

// Whether a comment explains anything: it holds more than blanks and ends of lines.
bool Explains(std::string_view comment);

// Whether a comment was written upon the value that is stored now. A number is stored as what its text begins with, and
// shows so from then on.
bool IsSameValue(const std::string& upon, const std::string& stored);

}  // namespace merlu
