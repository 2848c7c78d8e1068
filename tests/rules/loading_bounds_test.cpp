#include "sheets/loading.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using namespace loading;

TEST(Loading, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "LOA",
             .mode = Mode::kActv,
             .required = {{kVolume, "Volume Loaded", 0, 5000000},
                          {"txtLOA_TankBulkLiqT", "Bulk Liquid Temperature", 0, 120}}});
}

TEST(Loading, is_held_to_the_bounds_of_elevation_and_vapor) {
  TryBounds({.type = "LOA",
             .mode = Mode::kDesc,
             .required = {{"txtLOA_EquipElev", "Average Elevation", 10, 350},
                          {"txtLOA_ReidVP", "Product Reid Vapor Pressure", 0.1, 20},
                          {"txtLOA_TankVaporWeightPercentVOC", "Avg. % by Weight VOCs", 0, 100},
                          {"txtLOA_TankVOCMolWeight", "Avg. Molecular Weight of VOCs", 16, 254}}});
}

TEST(Loading, flared_locally_is_held_to_the_bounds_of_outlet_flare_and_device) {
  TryBounds({.type = "LOA",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Flared Locally"}, {kDevice, "Yes"}},
             .required = {{"txtLOA_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtLOA_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 24},
                          {"txtLOA_ExhaustOutletExitVel", "Ventilation Exit Velocity", 5, 1100},
                          {"txtLOA_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtLOA_FlareFeedRate", "Flare Feed Rate", 0, 20000},
                          {"txtLOA_FlareCombustionT", "Flare Combustion Temperature", 1400, 2000},
                          {"txtLOA_FlareEfficiency", "Flare Combustion Efficiency", 50, 99.9}},
             .if_filled = {{"txtLOA_OtherControlEffVOC", "VOC Control Efficiency", 0, 99.9}}});
}

TEST(Loading, vented_locally_is_held_to_the_bounds_of_outlet_and_condenser) {
  TryBounds({.type = "LOA",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Vented Locally"}, {kTechnology, kCondenser}},
             .required = {{"txtLOA_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtLOA_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 24},
                          {"txtLOA_ExhaustOutletExitVel", "Ventilation Exit Velocity", 5, 1100},
                          {"txtLOA_ExhaustOutletExitT", "Ventilation Exit Temperature", 70, 2000},
                          {"txtLOA_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtLOA_CondenserT", "Condenser Temperature", 32, 212},
                          {"txtLOA_CondenserP", "Condenser Pressure", 0.5, 1000}}});
}

}  // namespace
}  // namespace merlu::test
