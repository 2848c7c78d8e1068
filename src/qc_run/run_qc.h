// The one entry of a QC run: from the location downward. A survey run covers its active structures, a
// structure run its own rules and then its equipment, an equipment run that piece.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace merlu {

// Runs QC at the location behind a wait screen, tells the result and refills the list of the current
// sheet. A silent run keeps back the messages of a clean run only. Returns the number of findings at the
// location and below it; 0 after a fault, which is told.
std::int16_t RunQC(Session& s, QCLocation location, bool silent);
// The same without any box but that of a fault.
std::int16_t RunQCWithoutBox(Session& s, QCLocation location);
// The same for a record that is saved among many: nothing is told, no list is filled. Faults are passed on.
void RunQCAmongMany(Session& s, const QCLocation& at);

}  // namespace merlu
