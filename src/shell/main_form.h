// The main screen: menus, tree, the sheets of operator, survey and structure, and the buttons of all sheets.
#pragma once

#include "session/session.h"

namespace merlu {

// Makes frmMain in its design state and sets the session's main form.
void MakeMainForm(Session& s);

}  // namespace merlu
