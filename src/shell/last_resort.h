// The last-resort handler around every act of the user.
#pragma once

#include <functional>
#include <string>

#include "session/session.h"

namespace merlu {

// Runs the act. A fault that nothing has shown yet is shown by the plain handler, an error of the program in a box that
// names the act. The screen and an edit in progress stay as they are. False after either.
bool Guarded(Session& s, const std::string& what, const std::function<void()>& act);

}  // namespace merlu
