// The month workbook by its menu commands.
#include <gtest/gtest.h>

#include <fstream>

#include "entry/month_book.h"
#include "forms/list_model.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class MonthWorkbookMenu : public testing::Test {
 protected:
  MonthWorkbookMenu() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Keep({{"txtFLA_HrsOperated", "700"}});
    run.TakeBoxes();
  }
  std::string File() const { return run.folder.path("march.xlsx"); }
  void WriteFilledIn(const std::string& hours) {
    MonthBook book = MakeMonthBook(run.s, 1);
    book.sheets.back().rows[0].cells[0].text = hours;
    WriteMonthBook(book, File());
  }
  void Read(const std::function<void(Form&)>& act) {
    run.files = {File()};
    run.dialogs = {act};
    run.Click("mnuFWorkbookRead");
  }

  TestRun run;
};

TEST_F(MonthWorkbookMenu, belongs_to_the_months) {
  EXPECT_TRUE(run.At("mnuFWorkbookMake").enabled);
  EXPECT_TRUE(run.At("mnuFWorkbookRead").enabled);
  run.ChangeTo(Mode::kDesc);
  EXPECT_FALSE(run.At("mnuFWorkbookMake").enabled);
  EXPECT_FALSE(run.At("mnuFWorkbookRead").enabled);
}

TEST_F(MonthWorkbookMenu, makes_the_workbook_of_the_month_that_the_tree_shows) {
  run.AddMonth();
  run.GoTo("FLA", "F1", Mode::kActv, 1);
  run.files = {File()};
  run.Click("mnuFWorkbookMake");
  EXPECT_EQ(ReadMonthBook(File()).front().month, 1);
  run.SelectRoot();
  run.files = {run.folder.path("last.xlsx")};
  run.Click("mnuFWorkbookMake");
  EXPECT_EQ(ReadMonthBook(run.folder.path("last.xlsx")).front().month, 2) << "the last one where none shows";
}

TEST_F(MonthWorkbookMenu, shows_the_plan_and_stores_it_as_one_step) {
  WriteFilledIn("710");
  Read([this](Form& form) {
    EXPECT_EQ(form.name(), "frmReadPlan");
    EXPECT_EQ(run.Text("lblRDP_Count"), "1 value to store, 0 refused, 2 as stored");
    const ListModel& plan = *run.At("lvwRDP_Plan").model;
    std::vector<std::string> changed;
    for (int row = 0; row < plan.RowCount(); ++row)
      if (plan.Text(row, 4) == "changed")
        for (int column = 0; column < 5; ++column) changed.push_back(plan.Text(row, column));
    EXPECT_EQ(changed, (std::vector<std::string>{"2017/01 · GI, 43, A · Combustion Flare: F1",
                                                 "Hours Operated (hrs), including upsets", "700", "710", "changed"}));
    run.Click("cmdOK");
  });
  EXPECT_EQ(run.Sql("SELECT OP_HR FROM EA_FLA"), Value(710.0));
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "710") << "the sheet shows what was stored";
  EXPECT_EQ(run.At("mnuEUndo").caption, "Undo Month Workbook");
  run.Click("mnuEUndo");
  EXPECT_EQ(run.Sql("SELECT OP_HR FROM EA_FLA"), Value(700.0));
}

TEST_F(MonthWorkbookMenu, stores_nothing_that_is_cancelled_or_changes_nothing) {
  WriteFilledIn("710");
  Read([this](Form&) { run.Click("cmdCANCEL"); });
  EXPECT_EQ(run.Sql("SELECT OP_HR FROM EA_FLA"), Value(700.0));
  WriteFilledIn("700");
  Read([this](Form&) {
    EXPECT_FALSE(run.At("cmdOK").enabled);
    run.Click("cmdCANCEL");
  });
}

TEST_F(MonthWorkbookMenu, stores_nothing_over_what_another_program_wrote_meanwhile) {
  WriteFilledIn("710");
  Read([this](Form&) {
    Raw(run.s.path, {"UPDATE EA_FLA SET VOL_FLARED=5"});
    run.Click("cmdOK");
    const std::vector<std::string> boxes = run.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NE(boxes[0].find("GI, 43, A · Combustion Flare: F1: "), std::string::npos) << boxes[0];
    run.Click("cmdCANCEL");
  });
  EXPECT_EQ(run.Sql("SELECT OP_HR FROM EA_FLA"), Value(700.0));
}

TEST_F(MonthWorkbookMenu, tells_what_is_no_workbook_and_asks_nothing) {
  std::ofstream(File()) << "not a workbook";
  run.files = {File()};
  run.Click("mnuFWorkbookRead");
  const std::vector<std::string> boxes = run.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("The file is not a workbook."), std::string::npos) << boxes[0];
}

}  // namespace
}  // namespace merlu::test
