#include "sheets/amine.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using namespace amine_unit;

TEST(Amine, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "AMI",
             .mode = Mode::kActv,
             .required = {{kThroughput, "Processed Throughput", 0, 15500}, {kHours, "Hours Operated", 0, 744}}});
}

TEST(Amine, is_held_to_the_bounds_of_its_composition) {
  TryBounds({.type = "AMI", .mode = Mode::kDesc, .required = {std::begin(kConcentrations), std::end(kConcentrations)}});
}

TEST(Amine, flared_locally_is_held_to_the_bounds_of_outlet_and_flare) {
  TryBounds({.type = "AMI",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Flared Locally"}},
             .required = {{"txtAMI_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtAMI_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 12},
                          {"txtAMI_ExhaustOutletExitVel", "Ventilation Exit Velocity", 5, 1100},
                          {"txtAMI_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtAMI_FlareFeedRate", "Flare Feed Rate", 0, 4000},
                          {"txtAMI_FlareCombustionT", "Flare Combustion Temperature", 1400, 2000},
                          {"txtAMI_FlareEfficiency", "Combustion Efficiency", 50, 99.9}}});
}

TEST(Amine, vented_locally_is_held_to_the_bounds_of_the_outlet) {
  TryBounds({.type = "AMI",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Vented Locally"}},
             .required = {{"txtAMI_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtAMI_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 12},
                          {"txtAMI_ExhaustOutletExitVel", "Ventilation Exit Velocity", 5, 1100},
                          {"txtAMI_ExhaustOutletT", "Ventilation Exit Temperature", 70, 250},
                          {"txtAMI_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180}}});
}

TEST(Amine, is_held_to_the_bounds_of_the_control_equipment_installed) {
  const Bound temperature = {"txtAMI_CondenserT", "Condenser Temperature", 32, 212};
  const Bound pressure = {"txtAMI_CondenserP", "Condenser Pressure", 0.5, 1000};
  const Bound recovery = {"txtAMI_SRURecoveryEff", "Sulfur Recovery Efficiency", 50, 99.9};
  TryBounds({.type = "AMI",
             .mode = Mode::kDesc,
             .base = {{kTechnology, "SR + VR/C"}},
             .required = {temperature, pressure, recovery}});
  TryBounds(
      {.type = "AMI", .mode = Mode::kDesc, .base = {{kTechnology, kRecovery}}, .required = {temperature, pressure}});
  TryBounds(
      {.type = "AMI", .mode = Mode::kDesc, .base = {{kTechnology, "Sulfur Recovery (SR)"}}, .required = {recovery}});
}

}  // namespace
}  // namespace merlu::test
