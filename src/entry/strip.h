// A field's twelve months at a glance: the strip below the sheet.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "session/session.h"

namespace merlu {

struct Strip {
  std::string caption;
  std::array<std::string, 12> months;  // the stored values; for the present month the text of the field
  std::string advice;                  // what is unusual about the present month
  int present = 0;                     // the month that shows, 1 to 12; 0 without a field
  std::string least, most;             // the bounds that the field's rule has for it; blank without one
};

// Of the field of that name on the sheet that shows. Without months for a field of the description.
Strip StripOf(Session& s, const Control& field);

// "Unusual: ..." for a value far off the others: a modified z-score over 3.5, of at least five others.
std::string AdviceOn(double value, std::vector<double> others);

}  // namespace merlu
