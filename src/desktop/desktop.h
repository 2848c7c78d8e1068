// The desktop program: the windows that draw the logical screens.
#pragma once

#include <string>

namespace merlu {

// The one style of the program, on the application that exists.
void SetUpLook();

struct DesktopOptions {
  std::string settings_file;  // empty: the user's own
  std::string inventory;      // empty: the one of the settings
};

// Runs the program in windows. Returns the exit status.
int RunDesktop(int argc, char** argv, const DesktopOptions& options);

}  // namespace merlu
