// What stands around every act of the user.
#pragma once

#include <functional>
#include <string>

#include "session/session.h"

namespace merlu {

// Does what the user asked for. A fault that nobody has shown is shown by the plain handler, an error of the program
// in a box with what was being done. What shows stays, an edit stays open. False after either.
bool Guarded(Session& s, const std::string& what, const std::function<void()>& act);

}  // namespace merlu
