#include "shell/docks.h"

#include <gtest/gtest.h>

#include "forms/dialog.h"
#include "sheets/build.h"
#include "shell/main_program.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

// A dock with a list, and its menu command.
class Dock : public testing::Test {
 protected:
  void Start() {
    run.StartWithStructure();
    Form& main = *run.s.main;
    if (main.Find("mnuTest") == nullptr) Put(main, Kind::kMenu, "mnuTest", "Test", {"mnuReview"}).checkable = true;
    main.KeepDesign();
    main.On("mnuTest", Event::kClick, [this] { ToggleDock(run.s, dock); });
    dock.dock = "mnuTest";
    if (dock.Find("txtTest") == nullptr) AddText(dock, "txtTest", "Test");
  }

  TestRun run;
  Form& dock = run.s.desk.Own(std::make_unique<Form>("frmTest", "Test"));
};

TEST_F(Dock, shows_and_hides_with_its_checked_command) {
  Start();
  run.Click("mnuTest");
  EXPECT_TRUE(dock.visible);
  EXPECT_TRUE(run.At("mnuTest").checked);
  run.Set("txtTest", "x");
  run.Click("mnuTest");
  EXPECT_FALSE(dock.visible);
  EXPECT_FALSE(run.At("mnuTest").checked);
}

TEST_F(Dock, leaves_the_sheet_on_top) {
  Start();
  run.AddEquipment("FLA", "F1");
  run.Select(run.Key("FLA", "F1"));
  run.Click("mnuTest");
  EXPECT_EQ(run.s.desk.showing.back()->name(), "frmFLA");
  EXPECT_EQ(run.s.desk.showing.front(), &dock);
}

TEST_F(Dock, stays_through_the_opening_of_another_file) {
  Start();
  run.Click("mnuTest");
  Main(run.s);
  EXPECT_TRUE(dock.visible);
  EXPECT_TRUE(run.At("mnuTest").checked);
}

TEST_F(Dock, shows_again_at_the_next_start) {
  Start();
  run.Click("mnuTest");
  ASSERT_TRUE(CloseMainWindow(run.s));
  EXPECT_FALSE(dock.visible);
  Main(run.s);
  EXPECT_TRUE(dock.visible);
  EXPECT_TRUE(run.At("mnuTest").checked);
  run.Click("mnuTest");
  ASSERT_TRUE(CloseMainWindow(run.s));
  Main(run.s);
  EXPECT_FALSE(dock.visible);
}

TEST_F(Dock, can_make_forms_while_it_is_refreshed) {
  Start();
  AddLabel(dock, "lblTest", "");
  int refreshed = 0;
  dock.On("lblTest", kRefreshDock, [&] {
    run.s.desk.forms.shrink_to_fit();
    run.s.desk.Own(std::make_unique<Form>("frmMade" + std::to_string(++refreshed), ""));
  });
  Form& next = run.s.desk.Own(std::make_unique<Form>("frmNext", "Next"));
  AddLabel(next, "lblNext", "");
  int next_refreshed = 0;
  next.dock = "mnuTest";
  next.On("lblNext", kRefreshDock, [&] { ++next_refreshed; });
  run.Click("mnuTest");
  run.s.desk.Show(next);
  refreshed = next_refreshed = 0;
  RefreshDocks(run.s);
  EXPECT_EQ(refreshed, 1);
  EXPECT_EQ(next_refreshed, 1);
}

TEST_F(Dock, refuses_what_a_dialog_covers) {
  Start();
  run.Click("mnuTest");
  run.dialogs.push_back([&](Form& dialog) {
    EXPECT_EQ(WhyNot(run.s.desk, dock, dock.At("txtTest"), true), "is not on the screen");
    run.s.desk.Hide(dialog);
  });
  run.Click("mnuHAbout");
  EXPECT_EQ(WhyNot(run.s.desk, dock, dock.At("txtTest"), true), "");
}

}  // namespace
}  // namespace merlu::test
