#include "sheets/pneumatic_pump.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using namespace pump;

TEST(PneumaticPump, is_held_to_the_hours_of_a_month) {
  TryBounds({.type = "PNE",
             .mode = Mode::kActv,
             .base = {{kRate, "5"}},
             .required = {{kHours, "Hours per day operated", 0, 744}}});
}

}  // namespace
}  // namespace merlu::test
