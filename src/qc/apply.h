// Verdicts to rows of QC.
#pragma once

#include "qc/qc_log.h"
#include "rules/judge.h"
#include "session/session.h"

namespace merlu {

// Updates the findings of the location to match the verdicts, in their order: one read, and only the writes that
// differ. A field has at most one open finding at a location. An equal finding is left untouched, with its comment; one
// with another text takes the new text and loses its comment; one that was withdrawn and raised again in the same run
// is a new one, with level, month and year of the session's current location. A fault of one write is shown (number,
// description), and the next one follows.
// `known` are the pieces that have findings, for a record of equipment among many; null when they are not known.
void ApplyVerdicts(Session& s, const QCLocation& location, const Verdicts& verdicts,
                   PiecesWithFindings* known = nullptr);
// The same for equipment that has no findings in any month; returns how many it has then.
int RaiseFirst(Session& s, const QCLocation& location, const Verdicts& verdicts);

}  // namespace merlu
