#include "sheets/turbine.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using namespace turbine;

TEST(Turbine, is_held_to_every_bound_of_the_description) {
  TryBounds({.type = "NGT",
             .mode = Mode::kDesc,
             .required = {{"txtNGT_OperatingHP", "Opeating Horsepower", 0, 30000},
                          {"txtNGT_FuelUsageRate", "Average Fuel Usage", 0, 11000},
                          {"txtNGT_MaxHP", "Max Rated Horsepower", 500, 30000},
                          {"txtNGT_FuelHeatingValue", "Fuel Heating Value", 500, 1500},
                          {"txtNGT_FuelH2SContent", "Fuel H2S Content", 0, 10000},
                          {"txtNGT_MaxRatedFuelUsage", "Max Rated Fuel Usage", 5000, 15000}},
             .if_filled = {{"txtNGT_OperatingHP_Diesel", "Operating Horsepower (Diesel)", 0, 30000},
                           {"txtNGT_FuelUsageRate_Diesel", "Average Fuel Usage (Diesel)", 0, 11000},
                           {"txtNGT_MaxHP_Diesel", "Max Rated Horsepower (Diesel)", 500, 30000},
                           {"txtNGT_FuelHeatingValue_Diesel", "Fuel Heating Value (Diesel)", 500, 1500},
                           {"txtNGT_FuelSulfurContent_Diesel", "Fuel Sulfur Content (Diesel)", 0, 10000},
                           {"txtNGT_MaxRatedFuelUsage_Diesel", "Max Rated Fuel Usage (Diesel)", 5000, 15000}}});
}

TEST(Turbine, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "NGT",
             .mode = Mode::kActv,
             .required = {{"txtNGT_HrsOperated", "Hours Operated", 0, 744}, {kGasTotal, "Total Fuel Used", 0, 500000}},
             .if_filled = {{"txtNGT_HrsOperated_Diesel", "Hours Operated (Diesel)", 0, 744},
                           {kDieselTotal, kDieselTotalTag, 0, 2400000}}});
}

}  // namespace
}  // namespace merlu::test
