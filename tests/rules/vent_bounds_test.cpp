#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

const char* const kTechnology = "cmbVEN_ControlTechnology";

TEST(Vent, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "VEN",
             .mode = Mode::kActv,
             .required = {{"txtVEN_HrsOperated", "Hours Operated, excl upsets", 0, 744},
                          {"txtVEN_VolVented", "Volume Vented, incl upsets", 0, 20000},
                          {"txtVEN_ConcH2S", "Vent Gas H2S Concentration", 0, 120000},
                          {"txtVEN_ConcVOC", "Vent Gas VOC Concentration", 0, 1000000},
                          {"txtVEN_VOCMolWeight", "Avg Molecular Weight of VOCs", 0, 200}}});
}

TEST(Vent, is_held_to_every_bound_of_the_description) {
  TryBounds({.type = "VEN",
             .mode = Mode::kDesc,
             .base = {{kTechnology, "Condenser"}},
             .required = {{"txtVEN_StackOutletElev", "Stack Outlet Elevation", -30, 300},
                          {"txtVEN_StackAngle", "Stack Orientation", 0, 180},
                          {"txtVEN_StackInnerDiam", "Stack Inner Diameter", 4, 42},
                          {"txtVEN_StackExitVel", "Exit Velocity", 0, 1100},
                          {"txtVEN_StackT", "Exit Temperature", 0, 200}},
             .if_filled = {{"txtVEN_CondenserT", "Condenser Temperature", 32, 212},
                           {"txtVEN_CondenserP", "Condenser Pressure", 0.5, 1000}}});
}

}  // namespace
}  // namespace merlu::test
