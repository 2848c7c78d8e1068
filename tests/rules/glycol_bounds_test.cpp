#include "sheets/glycol.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using namespace glycol;

TEST(Glycol, is_held_to_the_bounds_of_a_month) {
  TryBounds({.type = "GLY", .mode = Mode::kActv, .required = {{kThroughput, "Processed Throughput", 0, 15500}}});
}

TEST(Glycol, is_held_to_the_bounds_of_wet_gas_flash_tank_and_stripping_gas) {
  for (const char* gas : {"Dry Gas", "Flash Gas", "Nitrogen"})
    TryBounds({.type = "GLY",
               .mode = Mode::kDesc,
               .base = {{kFlashTank, "Yes"}, {kStripping, gas}},
               .required = {{"txtGLY_WetGasT", "Wet Gas Temperature", 32, 200},
                            {"txtGLY_WetGasP", "Wet Gas Pressure", 1, 5000},
                            {"txtGLY_FlashTankT", "Flash Tank Temperature", 32, 350},
                            {"txtGLY_FlashTankP", "Flash Tank Pressure", 5, 1000},
                            {"txtGLY_StrippingGasFlowRate", "Stripping Gas Flowrate", 0, 10000}}});
}

TEST(Glycol, flared_locally_is_held_to_the_bounds_of_outlet_and_flare) {
  TryBounds({.type = "GLY",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Flared Locally"}},
             .required = {{"txtGLY_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtGLY_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 1, 24},
                          {"txtGLY_ExhaustOutletExitVel", "Ventilation Exit Velocity", 0, 1100},
                          {"txtGLY_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtGLY_FlareFeedRate", "Flare Feed Rate", 0, 20000},
                          {"txtGLY_FlareCombustionT", "Flare Combustion Temperature", 1400, 2000},
                          {"txtGLY_FlareEfficiency", "Flare Combustion Efficiency", 50, 99.9}}});
}

TEST(Glycol, vented_locally_is_held_to_the_bounds_of_the_outlet) {
  TryBounds({.type = "GLY",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Vented Locally"}},
             .required = {{"txtGLY_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtGLY_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 1, 24},
                          {"txtGLY_ExhaustOutletExitVel", "Ventilation Exit Velocity", 0, 1100},
                          {"txtGLY_ExhaustOutletExitT", "Ventilation Exit Temperature", 70, 2000},
                          {"txtGLY_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180}}});
}

TEST(Glycol, is_held_to_the_bounds_of_condenser_and_other_device) {
  TryBounds({.type = "GLY",
             .mode = Mode::kDesc,
             .base = {{kTechnology, kCondenser}, {kDevice, "Yes"}},
             .required = {{"txtGLY_CondenserT", "Condenser Temperature", 32, 212},
                          {"txtGLY_CondenserP", "Condenser Pressure", 0.5, 1000}},
             .if_filled = {{"txtGLY_OtherControlEffSOx", "SOx Control Efficiency", 0, 99.9},
                           {"txtGLY_OtherControlEffNOx", "NOx Control Efficiency", 0, 99.9},
                           {"txtGLY_OtherControlEffCO", "CO Control Efficiency", 0, 99.9},
                           {"txtGLY_OtherControlEffVOC", "VOC Control Efficiency", 0, 99.9},
                           {"txtGLY_OtherControlEffPM10", "PM10 Control Efficiency", 0, 99.9}}});
}

}  // namespace
}  // namespace merlu::test
