// Description Edit Mode and Activity Edit Mode.
#pragma once

#include "session/session.h"

namespace merlu {

// The titles, captions and commands of a mode; the tree stays as it is.
void SetMode(Session& s, Mode mode);
// Chooses the mode from the data: DESC while there is no structure, ACTV from then on.
void SetStartMode(Session& s);
// Changes to the other mode and rebuilds the tree; refused on fugitives and without a structure.
void ChangeEditMode(Session& s);
// Its button twin, which does nothing before the first mode is set.
void PressEditMode(Session& s);

}  // namespace merlu
