// The commands of the Entry menu that act on the record that shows.
#pragma once

#include "session/session.h"

namespace merlu {

// mnuNCopy: the blank fields of the month that is edited take the month before.
void CopyPreviousMonth(Session& s);
// mnuNConfirm: what was copied counts as typed.
void ConfirmCopiedValues(Session& s);

// mnuNNext, mnuNPrevious: ends the edit with a save, and begins that of the next record of the same kind in the
// tree's order; inactive ones are passed over.
void SaveAndNext(Session& s);
void SaveAndPrevious(Session& s);

// Beside the fields: the month before, and what was copied and is not confirmed.
void ShowEntryMarks(Session& s);

}  // namespace merlu
