#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

const char* const kFuel = "cmbBOI_FuelType";
const std::vector<std::string> kGasFuels = {"Natural Gas", "Process Gas", "Waste Gas"};
const std::vector<std::string> kOilFuels = {"Diesel", "Waste Oil"};

TEST(Boiler, on_any_gas_fuel_is_held_to_the_bounds_of_the_gas_set) {
  for (const std::string& fuel : kGasFuels)
    TryBounds({.type = "BOI",
               .mode = Mode::kDesc,
               .base = {{kFuel, fuel}},
               .required = {{"txtBOI_MaxRatedFuelUsage", "Max Rated Fuel Usage", 100, 400000},
                            {"txtBOI_FuelHeatingValue", "Fuel Heating Value", 500, 1500},
                            {"txtBOI_FuelH2SContent", "Fuel H2S Content", 0, 2000},
                            {"txtBOI_FuelUsageRate", "Average Fuel Usage", 0, 400000},
                            {"txtBOI_HeatInputRate", "Average Heat Input", 0, 600},
                            {"txtBOI_MaxRatedHeatInputRate", "Max Rated Heat Input", 0.1, 600}}});
}

TEST(Boiler, on_any_oil_fuel_is_held_to_the_bounds_of_the_oil_set) {
  for (const std::string& fuel : kOilFuels)
    TryBounds({.type = "BOI",
               .mode = Mode::kDesc,
               .base = {{kFuel, fuel}},
               .required = {{"txtBOI_MaxRatedFuelUsageOil", "Max Rated Fuel Usage", 5000, 20000},
                            {"txtBOI_FuelHeatingValueOil", "Fuel Heating Value", 0, 25000},
                            {"txtBOI_FuelH2SContentOil", "Fuel H2S Content", 0, 5},
                            {"txtBOI_HeatInputRate", "Average Heat Input", 0, 600},
                            {"txtBOI_MaxRatedHeatInputRate", "Max Rated Heat Input", 0.1, 600}}});
}

TEST(Boiler, on_any_gas_fuel_is_held_to_the_bounds_of_a_month_of_gas) {
  for (const std::string& fuel : kGasFuels)
    TryBounds({.type = "BOI",
               .mode = Mode::kActv,
               .description = {{kFuel, fuel}},
               .required = {{"txtBOI_HrsOperated", "Hours Operated", 0, 744},
                            {"txtBOI_TotalFuelUsed", "Total Fuel Used", 0, 300000000}}});
}

TEST(Boiler, on_any_oil_fuel_is_held_to_the_bounds_of_a_month_of_oil) {
  for (const std::string& fuel : kOilFuels)
    TryBounds({.type = "BOI",
               .mode = Mode::kActv,
               .description = {{kFuel, fuel}},
               .required = {{"txtBOI_HrsOperated", "Hours Operated", 0, 744},
                            {"txtBOI_FuelUsageRateOil", "Average Fuel Usage", 0, 20000},
                            {"txtBOI_TotalFuelUsedOil", "Total Fuel Used", 0, 15000000}}});
}

TEST(Boiler, without_a_fuel_counts_as_one_on_gas) {
  TryBounds({.type = "BOI",
             .mode = Mode::kActv,
             .required = {{"txtBOI_HrsOperated", "Hours Operated", 0, 744},
                          {"txtBOI_TotalFuelUsed", "Total Fuel Used", 0, 300000000}}});
}

}  // namespace
}  // namespace merlu::test
