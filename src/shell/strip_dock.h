// The strip below the sheet (frmStrip): the twelve months of the field that has, or last had, the focus.
#pragma once

#include "session/session.h"

namespace merlu {

// mnuRStrip: shows it, or hides it.
void ToggleStrip(Session& s);
// Brings it to the field that it belongs to, as that stands now.
void ShowStrip(Session& s);
// Has the fields of the sheet that shows take the strip with the focus.
void FollowFocus(Session& s);

}  // namespace merlu
