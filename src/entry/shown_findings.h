// The findings of the record that shows, beside its fields.
#pragma once

#include "session/session.h"

namespace merlu {

// Sets `finding` of the sheet's fields and the counts of its pages: what the rules say against the stored values, and
// what the log holds and no rule would raise now.
void ShowFindings(Session& s);

}  // namespace merlu
