// The findings of the whole inventory beside the sheet: filtered, explained, walked through.
#pragma once

#include "review/findings_model.h"
#include "session/session.h"

namespace merlu {

// The dock, made at the first call.
Form& FindingsDock(Session& s);
// Its rows, up to date.
FindingsModel& Findings(Session& s);

// What the menu does.
void ToggleFindings(Session& s);
void NextFinding(Session& s);
void PreviousFinding(Session& s);

// Shows the dock with that filter.
void ShowFindings(Session& s, const FindingFilter& filter);

}  // namespace merlu
