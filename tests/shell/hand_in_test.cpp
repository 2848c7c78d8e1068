#include <gtest/gtest.h>

#include <filesystem>

#include "forms/grid_model.h"
#include "forms/list_model.h"
#include "shell/completeness_dock.h"
#include "shell/docks.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// A structure with mud degassing, which no run over a structure checks, and one month.
class HandIn : public testing::Test {
 protected:
  void SetUp() override {
    run.StartWith("MUD", "M1");
    run.GoTo("MUD", "M1", Mode::kActv, 1);
  }
  const GridModel& Matrix() {
    Form& dock = CompletenessDock(run.s);
    if (!dock.visible) run.Click("mnuRCompleteness");
    RefreshDocks(run.s);
    return *dock.At("grdCMP_Matrix").grid;
  }
  std::string Month(const std::string& key) { return Matrix().Cell(Matrix().FindRow(key), 2).text; }
  // State and count of each row of the dialog for the choice, and the verdict.
  Texts Checks(const std::string& month, const std::function<void()>& act = {}) {
    Texts rows;
    run.dialogs.push_back([&](Form& dialog) {
      if (month != "Whole year") run.Set("cmbHND_Month", month);
      if (act) act();
      const ListModel& checks = *dialog.At("lvwHND_Checks").model;
      for (int row = 0; row < checks.RowCount(); ++row) rows.push_back(checks.Text(row, 0) + " " + checks.Text(row, 2));
      rows.push_back(dialog.At("lblHND_Verdict").text);
      if (dialog.visible) run.Click("cmdClose");
    });
    run.Click("mnuRHandIn");
    return rows;
  }
  TestRun run;
};

TEST_F(HandIn, matrix_tells_the_state_of_a_month_and_the_worst_of_a_structure) {
  EXPECT_EQ(Matrix().Columns().size(), 15u);
  EXPECT_EQ(Matrix().RowKey(0), "1001/1");
  EXPECT_EQ(Matrix().Cell(0, 0).text, "GI, 43, A");
  EXPECT_EQ(Month("1001/1"), "empty");
  EXPECT_EQ(Matrix().Cell(0, 3).text, "-");
  EXPECT_EQ(Matrix().Cell(0, 14).text, "0 of 12");
  run.Set("cmbCMP_Show", "GI, 43, A");
  EXPECT_EQ(Month("MUD/M1"), "empty");
  run.Keep({{"txtMUD_DaysPerMonth", "5"}});
  EXPECT_EQ(Month("MUD/M1"), "unchecked");
  run.Click("cmdQC");
  run.TakeBoxes();
  EXPECT_EQ(Month("MUD/M1"), "clean");
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  EXPECT_EQ(Month("MUD/M1"), "open 1");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I'");
  EXPECT_EQ(Month("MUD/M1"), "inactive");
  EXPECT_EQ(Matrix().Cell(0, 14).text, "1 of 12");
  EXPECT_FALSE(Matrix().Cell(0, 2).hint.empty());
}

TEST_F(HandIn, matrix_leads_to_the_record_behind_a_cell) {
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  run.SelectRoot();
  Matrix();
  Form& dock = CompletenessDock(run.s);
  EXPECT_EQ(act::DoubleClick(run.s.desk, dock, "grdCMP_Matrix", 0, 2), "");
  EXPECT_EQ(run.s.current.EquipID, "M1");
  EXPECT_EQ(run.s.current.Month, 1);
}

TEST_F(HandIn, counts_what_is_still_to_be_settled) {
  const Texts year = Checks("Whole year");
  ASSERT_EQ(year.size(), 10u);
  EXPECT_EQ(year[0], "stop 11");
  EXPECT_EQ(year[1], "ok 0");
  EXPECT_EQ(year[2], "stop 3") << "the structure's month and description, and the mud's month";
  EXPECT_EQ(year[7], "ok 0");
  EXPECT_EQ(year[9], "Not ready: 3 things to settle.");
  EXPECT_EQ(Checks("2017/01")[0], "ok 0");
}

TEST_F(HandIn, checks_what_was_not_as_one_step) {
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  const Texts checks = Checks("2017/01", [&] { run.Click("cmdHND_CheckAll"); });
  EXPECT_EQ(checks[2], "stop 1") << "the structure's month has no values";
  EXPECT_EQ(run.Count("QC WHERE EquipType='MUD' AND Month=1 AND EditMode='ACTV'"), 1);
  EXPECT_EQ(run.Count("QC WHERE [Level]='STRUCTURE' AND Month=0 AND EditMode='DESC' AND EquipID='NA'") > 0, true);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL"), 1);
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC WHERE PD_QC_DT IS NOT NULL"), 1);
  EXPECT_TRUE(run.s.InActv());
  EXPECT_EQ(run.s.current.EquipID, "M1");
}

TEST_F(HandIn, shows_what_a_row_counts) {
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  run.dialogs.push_back([&](Form&) {
    run.Pick("lvwHND_Checks", {3});
    run.DoubleClick("lvwHND_Checks");
  });
  run.Click("mnuRHandIn");
  EXPECT_EQ(run.Text("cmbFND_State"), "Open");
}

}  // namespace
}  // namespace merlu::test
