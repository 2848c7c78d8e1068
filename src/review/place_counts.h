// How many findings a place has: of one record, or of a structure with its equipment. Without the whole review.
#pragma once

#include "records/judge_records.h"
#include "session/location.h"

namespace merlu {

struct PlaceCounts {
  int findings = 0, unexplained = 0;
};

// Counts for the equipment, or for the structure and its equipment, in the mode: what the rules raise for the stored
// values, and further rows of the log. Faults are passed on.
PlaceCounts CountFindingsAt(Database& db, const QCLocation& at, Mode mode, const RecordKeys& keys);

}  // namespace merlu
