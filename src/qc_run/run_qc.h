// The one entry of a QC run: from the location downward. A survey run covers its active structures, a
// structure run its own rules and then its equipment, an equipment run that piece.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"
#include "sheets/spec.h"

namespace merlu {

// Runs QC at the location behind a wait screen, tells the result and refills the list of the current
// sheet. A silent run keeps back the messages of a clean run only. Returns the number of findings at the
// location and below it; 0 after a fault, which is told.
std::int16_t RunQC(Session& s, QCLocation location, bool silent);
// The same without any box but that of a fault; `told` takes what the record's sheet would show in one.
std::int16_t RunQCWithoutBox(Session& s, QCLocation location, std::vector<std::string>& told);
// The same for a month's record that is typed elsewhere than on its sheet and saved among many (no sheet: a
// structure's): nothing is shown. Faults are passed on.
struct TypedView;
int RunQCAmongMany(Session& s, const SheetSpec* sheet, const QCLocation& at, TypedView& typed);

}  // namespace merlu
