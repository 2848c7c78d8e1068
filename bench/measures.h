// What is measured. Each list takes the files from the workshop, which outlives it.
#pragma once

#include <vector>

#include "figures.h"
#include "workshop.h"

namespace merlu::bench {

// Starting the program, without a window.
std::vector<Measure> StartMeasures(const Workshop& shop);
// Keyed finds, hidden sheets, the tree of activity.
std::vector<Measure> ReadMeasures(const Workshop& shop);
// Adding a month.
std::vector<Measure> MonthMeasures(const Workshop& shop);
// A survey's QC run.
std::vector<Measure> QCMeasures(const Workshop& shop);
// The annual pass and its PDF. Needs an application with fonts.
std::vector<Measure> AnnualMeasures(const Workshop& shop);
// Export of a survey, import of structures.
std::vector<Measure> ExchangeMeasures(const Workshop& shop);
// The month grid: read, judged, pasted into, saved.
std::vector<Measure> GridMeasures(const Workshop& shop);
// What the history adds to a save, a run, an import and a commit, beside the program without it; undo.
std::vector<Measure> HistoryMeasures(const Workshop& shop);

}  // namespace merlu::bench
