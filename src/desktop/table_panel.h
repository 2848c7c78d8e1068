// A form around one table: its fields in a row above a list or a grid, labels and buttons below. Docks and the
// dialogs of grids are laid out so.
#pragma once

#include "desktop/binding.h"

namespace merlu {

// Whether the form is shown as a panel of tables: it has a grid, or is a dock.
bool IsTablePanel(const Form& form);
// Lays the controls of the form out in the place, the cancel button last but for the main one.
void FillTablePanel(QWidget& place, FormBinding& binding);

}  // namespace merlu
