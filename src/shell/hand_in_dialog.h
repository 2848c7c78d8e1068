// Whether the inventory, or a month, is ready to hand in.
#pragma once

#include "session/session.h"

namespace merlu {

void OpenHandIn(Session& s);
// Creates its form, so that its controls exist before it is first shown.
void MakeHandInDialog(Session& s);

}  // namespace merlu
