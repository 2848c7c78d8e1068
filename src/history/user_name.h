// Who works here.
#pragma once

#include <string>

namespace merlu {

// The name of the user's account; empty when there is none.
std::string UserName();

}  // namespace merlu
