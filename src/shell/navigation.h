// Moving to a record, and to a field of its sheet: the one way for everything that leads somewhere.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// Whether the user may move; false, after a message, in the middle of an edit.
bool MayMove(Session& s);

// Clicks a node of the tree. False, after a message, in the middle of an edit.
bool GoToNode(Session& s, int node);

// Goes to the record of the place in that mode, opens the nodes that lead to it, and gives the field the focus, by the
// name of its control or by its tag; no field: the focus stays. In the middle of an edit the record's own fields can be
// reached, and no other record. False, after a message, when it cannot be done.
bool GoTo(Session& s, const QCLocation& place, Mode mode, const std::string& field = "");

// Turns to the page of a field of the sheet that shows, and gives it the focus. False without such a field.
bool GoToField(Session& s, const std::string& field);

// No dock holds the focus any more: it goes to a field of the sheet.
void LeaveDocks(Session& s);

// Gives the tree the focus, whichever dock or field had it.
void FocusTree(Session& s);

// The form and the frame of the sheet that shows; no form without one.
struct ShowingSheet {
  Form* form = nullptr;
  std::string frame;
};
ShowingSheet SheetThatShows(const Session& s);

}  // namespace merlu
