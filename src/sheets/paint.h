// Verdicts on the sheet that shows.
#pragma once

#include "rules/judge.h"
#include "session/session.h"

namespace merlu {

// Marks the fields, sets their tool tips and the texts that rules changed, in the order of the verdicts, and notes what
// the rules have to say: a destination that fell back, a fault that ended a group of rules.
void PaintVerdicts(Session& s, Form& form, const RecordFields& fields, const Verdicts& verdicts);
// Without a sheet: only the faults.
void NoteFaults(Session& s, const Verdicts& verdicts);

}  // namespace merlu
