// Bounds, written down a second time, against the rule tables of the sheets.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/test_run.h"

namespace merlu::test {

using Values = std::vector<std::pair<std::string, std::string>>;

struct Bound {
  std::string control;
  std::string tag;
  double low, high;
};

// One sheet in one mode with values that make every bound apply.
struct BoundCase {
  std::string type;
  Mode mode;
  Values description;            // of the description, which a month shows too
  Values base;                   // set before the bounds are tried
  std::vector<Bound> required;   // blank fails
  std::vector<Bound> if_filled;  // blank passes
  double step = 0.01;            // how far outside a value is tried
};

// Tries every bound: the bound itself passes, a step outside fails with the range text, and a blank fails
// where the field is required. Judges a plain record by the sheet's rules: no file, no program start.
void TryBounds(const BoundCase& bound_case);

// "Value not in expected range (0 to 744)"
std::string RangeFinding(double low, double high);

inline const char* const kBlankFinding = "Required field left blank";

}  // namespace merlu::test
