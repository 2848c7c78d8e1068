// The one entry of a QC run: from the location downward. A survey run covers its active structures, a
// structure run its own rules and then its equipment, an equipment run that piece.
#pragma once

#include <optional>

#include "base/fault.h"
#include "session/session.h"
#include "sheets/spec.h"

namespace merlu {

struct QCResult {
  enum class End { kChecked, kNothingToCheck, kInactiveStructure, kInactiveEquipment, kFault };
  End end = End::kChecked;
  int count = 0;                 // findings at the location and below it
  std::optional<Fault> fault{};  // that ended the run
};

// Runs QC at the location and refills the list of the current sheet.
QCResult RunQC(Session& s, QCLocation location);
// The same for a month's record, of a structure or of equipment, that is typed elsewhere than on its sheet and saved
// among many: nothing is shown. Faults are passed on.
struct TypedView;
int RunQCAmongMany(Session& s, const SheetSpec& sheet, const QCLocation& at, TypedView& typed);

}  // namespace merlu
