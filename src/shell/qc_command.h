// A QC run as a command: behind the wait screen, its result in a box.
#pragma once

#include <string>
#include <vector>

#include "qc_run/run_qc.h"
#include "session/session.h"

namespace merlu {

// A silent run suppresses only the message of a clean run. A fault is shown in a box.
QCResult RunQCAndTell(Session& s, const QCLocation& location, bool silent);
// The same without boxes except for faults. Returns what the rules have changed in the record.
std::vector<std::string> RunQCWithoutBox(Session& s, const QCLocation& location);

}  // namespace merlu
