// The walks of a QC run below the record that it was started at.
#pragma once

#include "session/session.h"

namespace merlu {

// A survey has no rules: runs the structure runner for each of its active structures.
void RunSurveyQC(Session& s, QCLocation& location);

// The structure's rules and then its equipment, on the structure's screen. Sets StructureInactive, and runs nothing,
// when the structure is inactive on the screen.
void RunStructureQC(Session& s, QCLocation& location);

// The same for a structure's month that is typed and not yet stored.
struct TypedView;
void RunTypedStructureQC(Session& s, QCLocation location, TypedView& typed);

}  // namespace merlu
