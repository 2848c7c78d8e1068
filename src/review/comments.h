// Explaining findings, those that the log lacks included.
#pragma once

#include <string>
#include <vector>

#include "review/review.h"
#include "session/session.h"

namespace merlu {

struct FindingToExplain {
  QCLocation location;
  Mode mode = Mode::kDesc;
  std::string tag, text, value;
  std::int64_t row = 0;  // of the log, 0 where it lacks the finding
  std::string comment;   // that it has
};

// Writes one comment to all of them, as one step: a finding that the log lacks is first written as a run would write
// it. If the log already has a row under the tag, that row gets the comment. False when the user gave up for want of a
// backup. Faults are passed on; then none has the comment.
bool ExplainFindings(Session& s, const std::vector<FindingToExplain>& findings, const std::string& comment);

}  // namespace merlu
