// shell/ is the program as a user works with it, without its windows: commands, tree, sheets, edits, dialogs and docks.
// Here: the start of the program, and its end.
#pragma once

#include "session/session.h"

namespace merlu {

// The program's entry: from the path in the settings to the main window with its tree. Runs again when
// another database is selected.
void Main(Session& s);

// mnuFExit, and the closing of the main window by other means: refused while editing. True when the
// program has ended.
bool CloseMainWindow(Session& s);
void ExitProgram(Session& s);

// Settings of the one value that is kept.
inline constexpr const char* kSettingSection = "Options";
inline constexpr const char* kSettingPath = "DBloc";

}  // namespace merlu
