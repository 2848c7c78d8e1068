#include <gtest/gtest.h>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

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
