// What became of the values since they were handed in.
#pragma once

#include <cstdint>

#include "review/review.h"

namespace merlu {

// How many values of the month and of the descriptions differ from what they were when the month was handed in last;
// of the whole year (0) those of all months that were. Findings and dates of runs are no values. 0 without a hand-in.
std::int64_t ValuesChangedSinceHandIn(const Companion& companion, const Review& review, int month);

}  // namespace merlu
