// The desktop program: the windows that draw the logical screens.
#pragma once

#include <string>

namespace merlu {

// The one style of the program, on the application that exists.
void SetUpLook();

// Runs the program in windows; an empty settings file means the user's own settings. Returns the exit
// status.
int RunDesktop(int argc, char** argv, const std::string& settings_file);

}  // namespace merlu
