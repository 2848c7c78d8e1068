#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

const char* const kTotal = "txtNGE_TotalFuelUsed";

TEST(GasEngine, is_held_to_every_bound_of_the_description) {
  TryBounds({.type = "NGE",
             .mode = Mode::kDesc,
             .required = {{"txtNGE_OperatingHP", "Operating Horsepower", 0, 10000},
                          {"txtNGE_FuelUsageRate", "Average Fuel Usage", 0, 8000},
                          {"txtNGE_MaxHP", "Max Rated Horsepower", 10, 10000},
                          {"txtNGE_FuelHeatingValue", "Fuel Heating Value", 500, 1500},
                          {"txtNGE_FuelH2SContent", "Fuel H2S Content", 0, 10000},
                          {"txtNGE_MaxRatedFuelUsage", "Max Rated Fuel Usage", 3000, 10000}}});
}

TEST(GasEngine, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "NGE",
             .mode = Mode::kActv,
             .required = {{"txtNGE_HrsOperated", "Hours Operated", 0, 744}, {kTotal, "Total Fuel Used", 0, 120000}}});
}

}  // namespace
}  // namespace merlu::test
