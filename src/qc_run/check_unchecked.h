// Checks the records that were never checked, or changed since their last check, also those that no run over a
// structure reaches. Each is judged alone, without the records below it.
#pragma once

#include "session/session.h"

namespace merlu {

struct CheckedRecords {
  int done = 0, of = 0;
  bool stopped = false;  // by the user; what was done until then stays
};

// Checks those of the month and the descriptions, or of all months (month 0), as one step. The wait screen shows the
// progress and can stop it. Faults are passed on; nothing has been checked then.
CheckedRecords CheckUnchecked(Session& s, int month);

}  // namespace merlu
