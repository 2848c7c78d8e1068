#include "rules/bounds.h"

#include <gtest/gtest.h>

namespace merlu::test {
namespace {

TEST(Flare, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "FLA",
             .mode = Mode::kActv,
             .required = {{"txtFLA_HrsOperated", "Hours Operated, excl. upsets", 0, 744},
                          {"txtFLA_VolFlared", "Volume Flared, incl. upsets", 0, 20000}}});
}

TEST(Flare, is_held_to_every_bound_of_the_description) {
  TryBounds({.type = "FLA",
             .mode = Mode::kDesc,
             .base = {{"cmbFLA_FlareSmoke", "Light"},
                      {"cmbFLA_HasContFlarePilot", "Yes"},
                      {"cmbFLA_OtherControlDevice", "Yes"},
                      {"txtFLA_OtherControlDesc", "scrubber"}},
             .required = {{"txtFLA_FlareEfficiency", "Flare Combustion Efficiency ", 50, 99.9},
                          {"txtFLA_ConcH2S", "Flare Gas H2S Concentration", 0, 120000},
                          {"txtFLA_PilotFuelFeedRate", "Pilot Feed Rate", 0, 100},
                          {"txtFLA_StackOutletElev", "Stack Outlet Elevation", -1000, 350},
                          {"txtFLA_StackInnerDiam", "Stack Inner Diameter", 4, 42},
                          {"txtFLA_StackExitVel", "Avg. Exit Velocity", 0, 1100},
                          {"txtFLA_StackExitT", "Avg. Combustion Temperature", 1100, 2000},
                          {"txtFLA_StackAngle", "Stack Orientation", 0, 180}},
             .if_filled = {{"txtFLA_OtherControlEffSOx", "SOx Control Efficiency", 0, 99.9},
                           {"txtFLA_OtherControlEffNOx", "NOx Control Efficiency", 0, 99.9},
                           {"txtFLA_OtherControlEffCO", "CO Control Efficiency", 0, 99.9},
                           {"txtFLA_OtherControlEffVOC", "VOC Control Efficiency", 0, 99.9},
                           {"txtFLA_OtherControlEffPM10", "PM10 Control Efficiency", 0, 99.9}}});
}

}  // namespace
}  // namespace merlu::test
