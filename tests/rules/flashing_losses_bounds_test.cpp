#include "sheets/flashing_losses.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

using namespace flashing;

const std::vector<Bound> kOutlet = {{"txtLOS_ExhaustOutletHgt", "Outlet Height", 30, 100},
                                    {"txtLOS_ExhaustOutletInnerDiam", "Outlet Diameter", 2, 36},
                                    {"txtLOS_ExhaustOutletExitVel", "Exhaust Exit Velocity", 0, 1100},
                                    {"txtLOS_ExhaustOutletExitT", "Exhaust Exit Temperature", 32, 200},
                                    {"txtLOS_ExhaustOutletAngle", "Exhaust Outlet Orientation", 0, 180}};

TEST(FlashingLosses, is_held_to_the_bounds_of_a_month) {
  TryBounds({.type = "LOS",
             .mode = Mode::kActv,
             .required = {{"txtLOS_Throughput", "Oil/Condensate Throughput", 0, 30000},
                          {"txtLOS_DSOpTemperature", "Op temp of Vessel", 32, 250},
                          {"txtLOS_USOpTemperature", "Op Temp upstream of Vessel", 32, 250}}});
}

TEST(FlashingLosses, is_held_to_the_pressures_of_its_vessel) {
  const std::pair<const char*, double> vessels[] = {
      {"Separator", 1500}, {"Heater Treater", 100}, {"Surge Tank", 40}, {"Storage Tank", 0.25}, {"Other", 1500}};
  for (const auto& [vessel, high] : vessels)
    TryBounds({.type = "LOS",
               .mode = Mode::kActv,
               .description = {{kVessel, vessel}},
               .required = {{kDownstream, kDownstreamTag, 0, high}, {kUpstream, kUpstreamTag, 0, high}}});
}

TEST(FlashingLosses, is_held_to_the_bounds_of_gravity_and_outlet) {
  for (const char* local : {"Vented Locally", "Flared Locally"}) {
    std::vector<Bound> bounds = kOutlet;
    bounds.push_back({"txtLOS_APISpGrav", "API gravity", 1, 75});
    TryBounds({.type = "LOS", .mode = Mode::kDesc, .base = {{kDestination, local}}, .required = bounds});
  }
}

}  // namespace
}  // namespace merlu::test
