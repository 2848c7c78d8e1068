// The help of the dialogs and docks. Their controls are listed here, since no form is built to make the help; a test
// compares the list with the forms.
#pragma once

#include <vector>

#include "help/help_pages.h"

namespace merlu {

std::vector<HelpPage> ScreenPages();

}  // namespace merlu
