#include <gtest/gtest.h>

#include "rules/bounds.h"
#include "sheets/contract.h"
#include "sheets/units.h"

namespace merlu::test {
namespace {

using Names = std::vector<std::string>;

const char* const kMud = "cmbMud_MudType";

TEST(MudDegassing, shows_water_for_any_mud_that_it_does_not_know) {
  TestRun run;
  run.StartWith("MUD", "M1");
  EXPECT_TRUE(IsNull(run.Sql("SELECT Mud_Typ FROM ED_MUD")));
  EXPECT_EQ(run.Text(kMud), "water-based");
  EXPECT_EQ(run.At(kMud).index, 0);
  for (const auto& [stored, shown] : Values{{"oil-based", "oil-based"},
                                            {"brine", "water-based"},
                                            {"synthetic", "synthetic"},
                                            {"Synthetic", "water-based"},
                                            {"water-based", "water-based"}}) {
    run.s.db.Execute("UPDATE ED_MUD SET Mud_Typ=?", {stored});
    run.Select(run.Key());
    run.Select(run.Key("MUD", "M1"));
    EXPECT_EQ(run.Text(kMud), shown) << stored;
  }
}

TEST(MudDegassing, keeps_the_mud_that_it_showed_without_a_choice) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.Keep({});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT Mud_Typ FROM ED_MUD")), "water-based");
}

TEST(MudDegassing, without_a_choice_has_no_finding) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Names{"QC completed, no errors found"});
  EXPECT_EQ(run.Count("QC"), 0);
}

TEST(MudDegassing, misses_its_mud_on_a_list_without_selection) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.Click("cmdEdit");
  ClearFrame(run.s, TARNE_MUD());
  EXPECT_EQ(run.At(kMud).index, -1);
  EXPECT_EQ(run.Text(kMud), "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Type of Drilling Mud"), kBlankFinding);
  EXPECT_EQ(run.At(kMud).back, Back::kFlag);
}

TEST(MudDegassing, keeps_its_mud_as_the_list_s_text) {
  TestRun run;
  run.StartWith("MUD", "M1");
  for (const char* mud : {"oil-based", "synthetic", "water-based"}) {
    run.Keep({{kMud, mud}});
    EXPECT_EQ(NullToEmpty(run.Sql("SELECT Mud_Typ FROM ED_MUD")), mud);
    EXPECT_EQ(run.Text(kMud), mud);
  }
}

TEST(MudDegassing, keeps_its_days_and_reads_them_back) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.GoTo("MUD", "M1", Mode::kActv);
  run.Keep({{"txtMUD_DaysPerMonth", "2.5"}});
  EXPECT_EQ(ToNumber(run.Sql("SELECT DAYS_PER_MO FROM EA_MUD")), 2.5);
  EXPECT_EQ(run.Text("txtMUD_DaysPerMonth"), "2.5");
}

TEST(MudDegassing, of_a_month_without_drilling_is_not_checked_nor_dated) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.GoTo("MUD", "M1", Mode::kActv);
  run.Click("cmdEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Days per Month"), kBlankFinding);
  EXPECT_FALSE(IsNull(run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")));
  run.Check("chkMUD_Status", true);
  run.Click("cmdSaveEdits");
  run.TakeBoxes();
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Names{"QC skipped for inactive Equipment"});
  EXPECT_EQ(run.Count("QC"), 0);
  EXPECT_TRUE(IsNull(run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")));
}

TEST(MudDegassing, opens_the_fields_of_its_mode_for_an_edit) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kMud), "");
  EXPECT_EQ(run.WhyNotSet("txtMUD_DaysPerMonth"), "is hidden");
  run.Click("cmdCANCEL");
  run.GoTo("MUD", "M1", Mode::kActv);
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kMud), "is locked");
  EXPECT_EQ(run.WhyNotSet("txtMUD_DaysPerMonth"), "");
  EXPECT_EQ(run.WhyNotSet("txtMUD_Comments"), "");
  EXPECT_TRUE(run.Visible("Frame1"));
}

TEST(MudDegassing, has_its_captions_tags_and_muds) {
  TestRun run;
  run.StartWith("MUD", "M1");
  EXPECT_EQ(run.At(kMud).name, "cmbMud_MudType");
  EXPECT_EQ(run.At(kMud).caption, "Type of mud :");
  EXPECT_EQ(run.At(kMud).tag, "Type of Drilling Mud");
  EXPECT_EQ(run.At(kMud).items, (Names{"water-based", "oil-based", "synthetic"}));
  EXPECT_EQ(run.At("txtMUD_DaysPerMonth").caption, "Days per month of drilling with mud:");
  EXPECT_EQ(run.At("txtMUD_DaysPerMonth").tag, "Days per Month");
}

}  // namespace
}  // namespace merlu::test
