// The month grid (frmGrid): a type's month of all equipment, or the year of one piece, typed and pasted in one table.
#pragma once

#include "session/session.h"

namespace merlu {

// mnuNGrid. Returns when the dialog is closed.
void OpenMonthGrid(Session& s);
// Creates its form and that of the paste plan, so that their controls exist before they are first shown.
void MakeGridDialogs(Session& s);

}  // namespace merlu
