// The list of what was changed and when.
#pragma once

#include "session/session.h"

namespace merlu {

Form& HistoryDialog(Session& s);
void OpenHistory(Session& s);

}  // namespace merlu
