// The drafts of interrupted edits: what was typed is written to the companion at most two seconds later, and offered at
// the next start.
#pragma once

#include "session/session.h"

namespace merlu {

// The edit begins: from here on what is typed into its fields is compared with what they held.
void BeginDraft(Session& s);
// After acts of the user, and from time to time: writes the draft when it has changed, once a second at most. kAtOnce
// does not wait for that.
enum class When { kInTime, kAtOnce };
void KeepDraftOfEdit(Session& s, When when = When::kInTime);
// Whether a field of the edit differs from what was loaded or saved last.
bool HasTyped(Session& s);
// Before a save: what another program has stored in the record meanwhile is kept where nothing was typed here, and
// named; where both have changed a field the user is asked. False when the save is not to go on.
bool MindOthers(Session& s);
// The edit has ended: by a save, whose batch forgets it too, or dropped.
void EndDraft(Session& s);

// Asks about what interrupted edits have left.
void OfferDrafts(Session& s);

Form& DraftDialog(Session& s);

}  // namespace merlu
