// The sheet of a survey, on the main form: its findings and those of its structures. It has no fields and no row.
#pragma once

#include "forms/form.h"
#include "session/session.h"

namespace merlu {

void PutSurveySheet(Form& main);
void ClearSurvey(Session& s);
void LockSurvey(Session& s);
void UnlockSurvey(Session& s);
// Fills the list of findings.
void LoadSurveyQCList(Session& s);

}  // namespace merlu
