// Go To: what is typed finds structures, equipment, fields, months, commands, help pages and rules by their names.
#pragma once

#include "session/session.h"

namespace merlu {

void OpenGoTo(Session& s);
// Creates its form, so that its controls exist before it is first shown.
void MakeGoToDialog(Session& s);

}  // namespace merlu
