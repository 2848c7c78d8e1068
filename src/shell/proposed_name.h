// The name that a save dialog proposes.
#pragma once

#include <string>

#include "session/session.h"

namespace merlu {

// "12345 2017-03 Survey": operator, year and month, and the kind of file; month 0 for one of the whole year. Without an
// extension, which depends on the type that the user chooses.
std::string ProposedName(const Session& s, int month, const std::string& what);

}  // namespace merlu
