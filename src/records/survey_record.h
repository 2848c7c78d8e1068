// Adding the months of the inventory year. A survey has no row; it exists as SYS_MAX_MO and as the activity rows of the
// month. Months are added one at a time, in order, for all structures and equipment at once.
#pragma once

#include <cstdint>
#include <optional>

#include "session/session.h"

namespace merlu {

// Adds the rows of the next month for every structure and equipment, and raises SYS_MAX_MO. Structure months leave one
// key unused at every run. Returns the last new key of a structure month (SA_ID_AK), 0 without structures; nothing when
// the file has all twelve months by now, also by another program. Faults are passed on; nothing of the month is left
// then.
std::optional<std::int64_t> AddMonthRows(Session& s);

}  // namespace merlu
