#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

TEST(DrillingEquipment, is_held_to_the_hours_of_a_month) {
  TryBounds({.type = "DRI", .mode = Mode::kActv, .required = {{"txtJAC_HrsOperated", "Hours Operated", 0, 744}}});
}

}  // namespace
}  // namespace merlu::test
