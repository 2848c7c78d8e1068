#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

TEST(MudDegassing, is_held_to_1_to_31_days) {
  TryBounds({.type = "MUD", .mode = Mode::kActv, .required = {{"txtMUD_DaysPerMonth", "Days per Month", 1, 31}}});
}

}  // namespace
}  // namespace merlu::test
