// The help of the dialogs and docks beside the sheets. What stands on them is written down here, since no form is made
// for its help; a test holds it against the forms.
#pragma once

#include <vector>

#include "help/help_pages.h"

namespace merlu {

std::vector<HelpPage> ScreenPages();

}  // namespace merlu
