// The logical form of a sheet: an equipment sheet's own, made from its table, or the main form.
#pragma once

#include "sheets/spec.h"

namespace merlu {

// The sheet's form. One of its own is made at the first call, and loaded (with its design state) when it is not loaded.
Form& SheetForm(Session& s, const SheetSpec& sheet);

// Drops the form's state; it no longer shows.
void UnloadSheet(Session& s, const SheetSpec& sheet);

// True while the sheet is on the screen.
bool IsShowing(Session& s, const SheetSpec& sheet);

// Applies the table of what enables what: the rows of that moment and of the session's mode; at a click
// those that the clicked list applies.
void ApplyEnablings(Session& s, Form& form, const SheetSpec& sheet, Enabling::At at, const std::string& list = "");

}  // namespace merlu
