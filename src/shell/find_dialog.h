// Go To: what is typed finds structures, equipment, fields, months, commands, help pages and rules by their names.
#pragma once

#include "session/session.h"

namespace merlu {

void OpenGoTo(Session& s);

}  // namespace merlu
