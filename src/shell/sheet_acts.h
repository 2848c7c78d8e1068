// How a selected node becomes a sheet that shows. Six acts are dispatched on the level of the location and,
// for equipment, on its type.
#pragma once

#include "session/session.h"

namespace merlu {

void ClearSheet(Session& s);
// Marks the record as unreadable, and shows so, when loading it ended with a fault.
void LoadSheet(Session& s);
// Whether the record that shows could be read; one that could not is read again. False, after the message, when it
// still cannot be.
bool CanUseRecord(Session& s);
void LockSheet(Session& s);
void UnlockSheet(Session& s);
// Operator, structure and equipment; a survey has nothing to save. Sets save_failed when it could not be
// done. `after_qc`: the QC run of the same command has judged the values.
void SaveSheet(Session& s, bool after_qc);
void ShowSheet(Session& s);

// What a click on a node does: takes the location from its key, sets buttons and menus, shows its sheet.
void ClickNode(Session& s, int node);

}  // namespace merlu
