// A survey: one month of the inventory year. It has no row; it exists as SYS_MAX_MO and as the activity rows of the
// month. Months are added one at a time, in order, for all structures and equipment at once.
#pragma once

#include "session/session.h"

namespace merlu {

void PutSurveySheet(Form& main);
void ClearSurvey(Session& s);
// Always true: a survey has no row to look for.
bool LoadSurvey(Session& s);
void LockSurvey(Session& s);
void UnlockSurvey(Session& s);
void LoadSurveyQCList(Session& s);

// Adds the rows of the next month for every structure and equipment, and raises SYS_MAX_MO. Structure
// months leave one key unused at every run. False when the file has all twelve by now, also by another program.
// Faults are passed on; nothing of the month is left then.
bool AddMonthRows(Session& s);

}  // namespace merlu
