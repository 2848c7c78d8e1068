// What the program calls itself on paper.
#pragma once

#include <string>

namespace merlu {

// "MERLU-2017 1.0.5"
std::string ProgramName();

}  // namespace merlu
