// The name that a save dialog proposes.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// "12345 2017-03 Survey": operator, year and month, and what the file is; month 0 for one of the whole year. No
// extension, which goes with the type that the user chooses.
std::string ProposedName(const Session& s, int month, const std::string& what);

}  // namespace merlu
