// The month grid (frmGrid): a type's month of all equipment, or the year of one piece, typed and pasted in one table.
#pragma once

#include "session/session.h"

namespace merlu {

// mnuNGrid. Returns when the dialog is closed.
void OpenMonthGrid(Session& s);
// Makes its form and that of the paste plan, so that their controls can be asked for before they were open.
void MakeGridDialogs(Session& s);

}  // namespace merlu
