#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

const char* const kFuel = "cmbDIE_FuelType";

void TryDescription(const Values& base, double heating_low, double heating_high) {
  TryBounds({.type = "DIE",
             .mode = Mode::kDesc,
             .base = base,
             .required = {{"txtDIE_OperatingHP", "Operating Horsepower", 5, 3000},
                          {"txtDIE_FuelUsageRate", "Average Fuel Usage", 0, 8500},
                          {"txtDIE_MaxHP", "Max Rated Horsepower", 10, 3000},
                          {"txtDIE_FuelHeatingValue", "Fuel Heating Value", heating_low, heating_high},
                          {"txtDIE_FuelSulfurContent", "Fuel Sulfur Content", 0, 5},
                          {"txtDIE_MaxRatedFuelUsage", "Max Rated Fuel Usage", 0, 20000}}});
}

void TryMonth(const Values& description, double total) {
  TryBounds({.type = "DIE",
             .mode = Mode::kActv,
             .description = description,
             .required = {{"txtDIE_HrsOperated", "Hours Operated", 0, 744},
                          {"txtDIE_TotalFuelUsed", "Total Fuel Used", 0, total}}});
}

TEST(DieselEngine, on_gasoline_is_held_to_the_bounds_of_gasoline) {
  TryDescription({{kFuel, "Gasoline"}}, 19000, 22000);
  TryMonth({{kFuel, "Gasoline"}}, 10000);
}

TEST(DieselEngine, on_any_other_fuel_or_none_is_held_to_the_bounds_of_diesel) {
  for (const char* fuel : {"Diesel", "Waste Oil/Solvent"}) {
    TryDescription({{kFuel, fuel}}, 18000, 21000);
    TryMonth({{kFuel, fuel}}, 350000);
  }
  TryDescription({}, 18000, 21000);
  TryMonth({}, 350000);
}

}  // namespace
}  // namespace merlu::test
