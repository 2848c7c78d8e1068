// Bounds, written down a second time, against the rule tables of the sheets.
#pragma once

#include <string>
#include <vector>

#include "rules/sheet_record.h"
#include "support/test_run.h"

namespace merlu::test {

struct Bound {
  std::string control;
  std::string tag;
  double low, high;
};

// One sheet in one mode with values that make every bound apply.
struct BoundCase {
  std::string type;
  Mode mode;
  Values description;                  // of the description, which a month shows too
  Values base;                         // set before the bounds are tried
  std::vector<Bound> required;         // blank fails
  std::vector<Bound> if_filled;        // blank passes
  double step = 0.01;                  // how far outside a value is tried
  std::vector<std::string> checked{};  // options that are on
  bool forgets = false;                // each run begins with no finding, so that a blank that is not required has none
};

// Tries every bound: the bound itself passes, a step outside fails with the range text, and a blank fails
// where the field is required. Judges a plain record by the sheet's rules: no file, no program start.
void TryBounds(const BoundCase& bound_case);

// "Value not in expected range (0 to 744)"
std::string RangeFinding(double low, double high);

}  // namespace merlu::test
