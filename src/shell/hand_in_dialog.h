// Whether the inventory, or a month, is ready to hand in.
#pragma once

#include "session/session.h"

namespace merlu {

void OpenHandIn(Session& s);

}  // namespace merlu
