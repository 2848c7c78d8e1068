// How far each month of each structure is, beside the sheet.
#pragma once

#include <vector>

#include "review/completeness.h"
#include "session/session.h"

namespace merlu {

Form& CompletenessDock(Session& s);
void ToggleCompleteness(Session& s);
// Shows the structures, on the first cell of the month (0: of any) that has one of the states; false when none has.
bool ShowCompleteness(Session& s, int month, const std::vector<RecordState>& states);
// Shows the cell of the record: a structure's among the structures, another among the equipment of its structure.
void ShowCompletenessOf(Session& s, const QCLocation& record);

}  // namespace merlu
