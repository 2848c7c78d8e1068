// The strip below the sheet (frmStrip): the twelve months of the field that has, or last had, the focus.
#pragma once

#include "session/session.h"
#include "shell/dialog_names.h"

namespace merlu {

namespace strip_dock {
inline constexpr const char* kForm = names::frmStrip;
inline constexpr const char* kField = "lblSTR_Field";
inline constexpr const char* kMonths = names::lvwSTR_Months;  // a double click opens the month
inline constexpr const char* kAdvice = "lblSTR_Advice";
inline constexpr const char* kLeast = "lblSTR_Least";  // the bounds of the field's rule
inline constexpr const char* kMost = "lblSTR_Most";
}  // namespace strip_dock

// Creates it, so that its controls exist before it is first shown.
void MakeStrip(Session& s);
// mnuRStrip: shows it, or hides it.
void ToggleStrip(Session& s);
// Has the fields of the sheet that shows take the strip with the focus.
void FollowFocus(Session& s);

}  // namespace merlu
