// What a finding's comment is kept under beside the inventory.
#pragma once

#include <string>
#include <string_view>

#include "session/location.h"

namespace merlu {

std::string CommentKey(const QCLocation& location, std::string_view tag, std::string_view text);

// Whether a comment was written upon the value that is stored now. A number is stored as what its text begins with, and
// shows so from then on.
bool IsSameValue(const std::string& upon, const std::string& stored);

}  // namespace merlu
