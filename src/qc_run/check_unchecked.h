// The own rules of records that were never checked, or changed since: those included that no run over a structure
// reaches. What is below a record is a record of its own.
#pragma once

#include "session/session.h"

namespace merlu {

// Of the month and the descriptions, or of all months (0), as one step. Returns how many records were checked. Faults
// are passed on; then nothing was.
int CheckUnchecked(Session& s, int month);

}  // namespace merlu
