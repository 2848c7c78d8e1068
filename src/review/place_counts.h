// How many findings a place has: of one record, or of a structure with its equipment. Without the whole review.
#pragma once

#include "records/judge_records.h"
#include "session/location.h"

namespace merlu {

struct PlaceCounts {
  int findings = 0, unexplained = 0;
};

// Of the equipment, or of the structure and what stands on it, in the mode: what the rules say against the stored
// values and what the log holds besides. Faults are passed on.
PlaceCounts CountFindingsAt(Database& db, const QCLocation& at, Mode mode, const RecordKeys& keys);

}  // namespace merlu
