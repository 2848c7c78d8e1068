// The command that runs the annual pass and writes its QA summary as a PDF.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// Guards, questions, the file to write, and the run.
void ExportAnnualSummary(Session& s);

// Runs the annual pass and writes the report to the path. Faults are shown in a box.
void RunInventoryQC(Session& s, const std::string& path);

}  // namespace merlu
