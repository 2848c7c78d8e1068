#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

TEST(Fugitives, are_held_to_the_bounds_of_weight_percent_and_elevation) {
  TryBounds({.type = "FUG",
             .mode = Mode::kDesc,
             .base = {{"cmbFUG_StreamType", "Gas"}, {"cmbFUG_IsLDARInPlace", "No"}},
             .required = {{"txtFUG_WeightPercentVOC", "VOC Weight %", 0, 100},
                          {"txtFUG_EquipElev", "Equipment Elevation", 10, 350}}});
}

}  // namespace
}  // namespace merlu::test
