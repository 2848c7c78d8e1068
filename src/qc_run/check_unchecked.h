// The own rules of records that were never checked, or changed since: those included that no run over a structure
// reaches. What is below a record is a record of its own.
#pragma once

#include "session/session.h"

namespace merlu {

struct CheckedRecords {
  int done = 0, of = 0;
  bool stopped = false;  // by the user; what was done until then stays
};

// Of the month and the descriptions, or of all months (0), as one step. The wait screen that shows tells how far it is,
// and can stop it. Faults are passed on; then nothing was checked.
CheckedRecords CheckUnchecked(Session& s, int month);

}  // namespace merlu
