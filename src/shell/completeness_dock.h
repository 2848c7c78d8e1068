// How far each month of each structure is, beside the sheet.
#pragma once

#include "session/session.h"

namespace merlu {

Form& CompletenessDock(Session& s);
void ToggleCompleteness(Session& s);

}  // namespace merlu
