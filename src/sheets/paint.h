// Verdicts on the sheet that shows.
#pragma once

#include "rules/judge.h"
#include "session/session.h"

namespace merlu {

// Marks the fields, sets their tips and the texts that rules changed, in the order of the verdicts, and tells on the
// way what the user must know: a destination that fell back (in a box, or in `told`), a fault that ended a group of
// rules.
void PaintVerdicts(Session& s, Form& form, const RecordFields& fields, const Verdicts& verdicts,
                   std::vector<std::string>* told = nullptr);
// Without a sheet: only what must be told.
void TellFaults(Session& s, const Verdicts& verdicts);

}  // namespace merlu
