// The run over one record: judged, its findings brought to the log, the sheet painted where it shows, and the record
// dated. A run in which a group of rules met a fault leaves the date empty, since the record still needs one.
#pragma once

#include "records/judge_records.h"
#include "session/session.h"

namespace merlu {

// The equipment at the location in the session's mode: on the sheet that shows, with what the user has typed there,
// or else from its rows. Sets EquipmentInactive and judges nothing when it reports nothing. Faults are passed on.
void RunSheetQC(Session& s, const SheetSpec& sheet, QCLocation& location);
// The same for a record that was judged from its rows.
void RunJudged(Session& s, const QCLocation& location, const JudgedRecord& record);

// The rules of the structure at the location, on its screen, or from its rows. False, with StructureInactive, when it
// reports nothing.
bool RunStructureRules(Session& s, const QCLocation& location, bool on_screen);

// Dates the structure, the month in activity mode, otherwise the description; or, not checked, empties the date.
void StampStructure(Session& s, bool checked);

}  // namespace merlu
