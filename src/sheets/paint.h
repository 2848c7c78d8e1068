// Verdicts on the sheet that shows.
#pragma once

#include "rules/judge.h"
#include "session/session.h"

namespace merlu {

// Marks the fields, sets their tool tips and the texts that rules changed, in the order of the verdicts, and shows the
// messages of the rules: a destination that fell back (in a box, or appended to `messages`), a fault that ended a group
// of rules.
void PaintVerdicts(Session& s, Form& form, const RecordFields& fields, const Verdicts& verdicts,
                   std::vector<std::string>* messages = nullptr);
// Without a sheet: only the messages.
void TellFaults(Session& s, const Verdicts& verdicts);

}  // namespace merlu
