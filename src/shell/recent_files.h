// The inventories opened last, in the File menu.
#pragma once

#include "session/session.h"

namespace merlu {

inline constexpr int kRecentFiles = 5;

// Name of the menu command, counted from 1.
std::string RecentCommand(int number);

// Puts the open file in front of the others.
void RememberFile(Session& s);
// Brings the captions of the commands to the files that are still there; the others have none and are hidden.
void ShowRecentFiles(Session& s);
// Opens the file of the command, counted from 1.
void OpenRecentFile(Session& s, int number);

}  // namespace merlu
