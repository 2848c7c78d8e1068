#include <gtest/gtest.h>

#include "bounds.h"

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

TEST(Flare, without_a_continuous_pilot_keeps_the_month_s_answer_grey_and_stored) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Keep({{"cmbFLA_HasContFlarePilot", "Yes"}});
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"cmbFLA_PilotIncludedInVolume", "Yes"}});
  run.GoTo("FLA", "F1", Mode::kDesc);
  run.Keep({{"cmbFLA_HasContFlarePilot", "No"}});
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdEdit");
  const Control& answer = run.At("cmbFLA_PilotIncludedInVolume");
  EXPECT_FALSE(answer.enabled);
  EXPECT_TRUE(answer.locked);
  EXPECT_EQ(answer.back, Back::kFace);
  EXPECT_EQ(answer.text, "Yes");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT PILOT_INCLUDED_IN_VOLUME FROM EA_FLA")), "Yes");
}

TEST(Flare, clicked_to_no_pilot_loses_its_feed_rate_and_opened_so_keeps_it) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Keep({{"cmbFLA_HasContFlarePilot", "Yes"}, {"txtFLA_PilotFuelFeedRate", "6"}});
  run.Click("cmdEdit");
  run.Set("cmbFLA_HasContFlarePilot", "No");
  EXPECT_EQ(run.Text("txtFLA_PilotFuelFeedRate"), "");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsNull(run.Sql("SELECT PILOT_FUEL_FEED_RATE FROM ED_FLA")));
  run.Click("cmdCANCEL");
  run.s.db.Execute("UPDATE ED_FLA SET PILOT_FUEL_FEED_RATE=250");
  run.Select(run.Key());
  run.Select(run.Key("FLA", "F1"));
  run.Keep({{"txtFLA_ConcH2S", "1"}});
  EXPECT_EQ(ToNumber(run.Sql("SELECT PILOT_FUEL_FEED_RATE FROM ED_FLA")), 250);
}

TEST(Flare, lists_the_hours_under_the_name_that_contradicts_their_caption) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.At("txtFLA_HrsOperated").caption, "Hours Operated (hrs), including upsets:");
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows.front().front(), "Hours Operated, excl. upsets");
}

}  // namespace
}  // namespace merlu::test
