// The one entry of a QC run: from the location downward. A survey run covers its active structures, a
// structure run its own rules and then its equipment, an equipment run that piece.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"
#include "sheets/spec.h"

namespace merlu {

// Runs QC at the location behind a wait screen, shows the result in a box and refills the list of the current sheet. A
// silent run suppresses only the message of a clean run. Returns the number of findings at the location and below it; 0
// after a fault, which is shown in a box.
std::int16_t RunQC(Session& s, QCLocation location, bool silent);
// The same without boxes except for faults; messages of the record's sheet are appended to `messages` instead.
std::int16_t RunQCWithoutBox(Session& s, QCLocation location, std::vector<std::string>& messages);
// The same for a month's record that is typed elsewhere than on its sheet and saved among many (no sheet: a
// structure's): nothing is shown. Faults are passed on.
struct TypedView;
int RunQCAmongMany(Session& s, const SheetSpec* sheet, const QCLocation& at, TypedView& typed);

}  // namespace merlu
