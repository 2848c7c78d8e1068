// What a finding's comment is kept under beside the inventory.
#pragma once

#include <string>
#include <string_view>

#include "session/location.h"

namespace merlu {

std::string CommentKey(const QCLocation& location, std::string_view tag, std::string_view text);

}  // namespace merlu
