#include "sheets/storage_tank.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using namespace tank;

TEST(StorageTank, standing_round_is_held_to_the_bounds_of_diameter_and_height) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Cylindrical"}, {kOrientation, "Vertical"}},
             .required = {{"txtSTO_TankShellDiam", "Tank Shell Diameter", 0, 50},
                          {"txtSTO_TankShellHgt", "Tank Shell Height", 2, 50}}});
}

TEST(StorageTank, standing_square_is_held_to_the_bounds_of_height_and_widths) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Rectangular"}, {kOrientation, "Vertical"}},
             .required = {{"txtSTO_TankShellHgt", "Tank Shell Height", 2, 50},
                          {"txtSTO_TankShellWidth1", "Tank Shell Width", 2, 50},
                          {"txtSTO_TankShellWidth2", "2nd Tank Shell Width", 2, 50}}});
}

TEST(StorageTank, lying_round_is_held_to_the_bounds_of_diameter_and_length) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Cylindrical"}, {kOrientation, "Horizontal"}},
             .required = {{"txtSTO_TankShellDiam", "Tank Shell Diameter", 0, 50},
                          {"txtSTO_TankShellLength", "Tank Shell Length", 2, 50}}});
}

TEST(StorageTank, lying_square_is_held_to_the_bounds_of_height_length_and_width) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kShape, "Rectangular"}, {kOrientation, "Horizontal"}},
             .required = {{"txtSTO_TankShellHgt", "Tank Shell Height", 2, 50},
                          {"txtSTO_TankShellLength", "Tank Shell Length", 2, 50},
                          {"txtSTO_TankShellWidth1", "Tank Shell Width", 2, 50}}});
}

TEST(StorageTank, is_held_to_the_bounds_of_roof_and_breather_vent) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{"cmbSTO_FixedRoof", "Yes"}},
             .required = {{"txtSTO_TankRoofHgt", "Roof Height", 0, 20},
                          {"txtSTO_BreatherVentPressure", "Breather Vent Pressure", 0.01, 5},
                          {"txtSTO_BreatherVentVacuum", "Breather Vent Vacuum", -5, -0.01}}});
}

TEST(StorageTank, flared_locally_is_held_to_the_bounds_of_outlet_flare_and_device) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Flared Locally"}, {"cmbSTO_OtherControlDevice", "Yes"}},
             .required = {{"txtSTO_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtSTO_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 36},
                          {"txtSTO_ExhaustOutletExitVel", "Ventilation Exit Velocity", 0, 1100},
                          {"txtSTO_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtSTO_FlareFeedRate", "Flare Feed Rate", 0, 10000},
                          {"txtSTO_FlareCombustionT", "Combustion Temperature", 1400, 2000},
                          {"txtSTO_FlareEfficiency", "Combustion Efficiency", 50, 99.9}},
             .if_filled = {{"txtSTO_OtherControlEffVOC", "VOC Efficiency", 0, 99.9}}});
}

TEST(StorageTank, vented_locally_is_held_to_the_bounds_of_the_outlet) {
  TryBounds({.type = "STO",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Vented Locally"}},
             .required = {{"txtSTO_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtSTO_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 36},
                          {"txtSTO_ExhaustOutletExitVel", "Ventilation Exit Velocity", 0, 1100},
                          {"txtSTO_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtSTO_ExhaustOutletExitT", "Ventilation Exit Temperature", 50, 1100}}});
}

TEST(StorageTank, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "STO",
             .mode = Mode::kActv,
             .description = {{kShape, "Cylindrical"}, {kOrientation, "Vertical"}, {"txtSTO_TankShellHgt", "50"}},
             .required = {{kLiquid, "Avg Liquid Height", 1, 50},
                          {"txtSTO_TankBulkLiqT", "Bulk Liquid Temp", 50, 150},
                          {"txtSTO_APIGravity", "API Gravity", 1, 75},
                          {"txtSTO_ReidVP", "Reid Vapor Pressure", 0.5, 20},
                          {kThroughput, "Product Throughput", 0, 5000000},
                          {"txtSTO_TankVOCMolWeight", "Avg Molecular Wt VOCs", 0, 200},
                          {"txtSTO_TankVaporWeightPercentVOC", "Avg Percent by Wt VOCs", 0, 98}}});
}

}  // namespace
}  // namespace merlu::test
