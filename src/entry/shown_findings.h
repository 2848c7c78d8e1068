// The findings of the record that shows, beside its fields.
#pragma once

#include "session/session.h"

namespace merlu {

// Sets `finding` of the sheet's fields and the counts of its pages: what the rules raise for the stored values, and
// rows of the log that no rule would raise now.
void ShowFieldFindings(Session& s);

// The same after a run. One during an edit has judged what is typed and not yet stored, and has logged what it found.
void ShowFieldFindingsOfRun(Session& s);

}  // namespace merlu
