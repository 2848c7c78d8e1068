#include "shell/edit_modes.h"

#include <gtest/gtest.h>

#include "support/pauses.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

void ExpectDescription(TestRun& run, bool new_equipment) {
  Form& main = *run.s.main;
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_EQ(main.caption, "RIMA Pelagic Field Reporting Suite (MERLU-2017) - Description Edit Mode");
  EXPECT_EQ(main.At("mnuSetEditMode").caption, "Change to Activity Edit Mode");
  EXPECT_EQ(main.At("cmdEditMode").caption, "Edit Activity Data");
  EXPECT_FALSE(main.At("mnuENewSurvey").visible);
  EXPECT_TRUE(main.At("mnuENewStructure").visible);
  EXPECT_EQ(main.At("mnuENewEquipment").visible, new_equipment);
  EXPECT_TRUE(main.At("mnuEDelete").visible);
  EXPECT_TRUE(main.At("mnuEditBar").visible);
  EXPECT_TRUE(main.At("cmdUSER_AddStructure").visible);
}

void ExpectActivity(TestRun& run) {
  Form& main = *run.s.main;
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(main.caption, "RIMA Pelagic Field Reporting Suite (MERLU-2017) - Activity Edit Mode");
  EXPECT_EQ(main.At("mnuSetEditMode").caption, "Change to Description Edit Mode");
  EXPECT_EQ(main.At("cmdEditMode").caption, "Edit Description Data");
  EXPECT_TRUE(main.At("mnuENewSurvey").visible);
  for (const char* name : {"mnuENewStructure", "mnuENewEquipment", "mnuEDelete", "mnuEditBar", "cmdUSER_AddStructure"})
    EXPECT_FALSE(main.At(name).visible) << name;
}

bool Exports(TestRun& run) {
  Form& main = *run.s.main;
  EXPECT_EQ(main.At("mnuFExport").visible, main.At("mnuFExportInventory").visible);
  EXPECT_EQ(main.At("mnuFExport").visible, main.At("frmInvQCPrint").visible);
  return main.At("mnuFExport").visible;
}

TEST(EditModes, begin_with_descriptions_while_there_is_no_structure) {
  TestRun run;
  run.Start();
  ExpectDescription(run, false);
  EXPECT_FALSE(Exports(run));
}

TEST(EditModes, begin_with_activity_when_there_is_a_structure) {
  TestRun run;
  run.StartWithStructure();
  run.Start();
  ExpectActivity(run);
  EXPECT_TRUE(Exports(run));
}

TEST(EditModes, change_the_window_both_ways) {
  TestRun run;
  run.StartWithStructure();
  run.SelectRoot();
  run.Click("mnuSetEditMode");
  ExpectActivity(run);
  run.Click("mnuSetEditMode");
  ExpectDescription(run, true);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST(EditModes, leave_the_exports_as_the_start_left_them) {
  TestRun run;
  run.StartWithStructure();
  run.SelectRoot();
  EXPECT_FALSE(Exports(run));
  run.ChangeTo(Mode::kActv);
  EXPECT_FALSE(Exports(run));
  run.Start();
  EXPECT_TRUE(Exports(run));
  run.ChangeTo(Mode::kDesc);
  EXPECT_TRUE(Exports(run));
}

TEST(EditModes, change_from_the_button_as_from_the_menu) {
  TestRun run;
  run.StartWithStructure();
  run.SelectRoot();
  run.Click("cmdEditMode");
  ExpectActivity(run);
  run.Click("cmdEditMode");
  ExpectDescription(run, true);
}

TEST(EditModes, do_not_change_from_a_button_that_was_never_set) {
  TestRun run;
  run.StartWithStructure();
  run.At("cmdEditMode").caption = "Program Mode";
  run.Click("cmdEditMode");
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_EQ(run.At("cmdEditMode").caption, "Edit Activity Data") << "set by the state after every act";
}

TEST(EditModes, need_a_structure_for_activity) {
  TestRun run;
  run.Start();
  run.Click("mnuSetEditMode");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Must add Platform Description first."});
  ExpectDescription(run, false);
  EXPECT_EQ(run.s.last_desc.Level, "USER");
  EXPECT_FALSE(run.s.mode_changed_to_actv);
  run.Click("cmdEditMode");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Must add Platform Description first."});
}

TEST(EditModes, do_not_change_on_fugitives_until_another_node_is_selected) {
  TestRun run;
  run.StartWith("FUG", "G1");
  run.Click("mnuSetEditMode");
  run.Click("cmdEditMode");
  EXPECT_EQ(run.TakeBoxes(), (Texts{"No Activity Edit Mode for Fugitives.", "No Activity Edit Mode for Fugitives."}));
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_EQ(run.s.last_desc.Level, "");
  run.Select(run.Key());
  run.Click("mnuSetEditMode");
  EXPECT_EQ(run.s.mode, Mode::kActv);
}

TEST(EditModes, remember_where_the_user_stood_in_each) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.SelectRoot();
  run.AddMonth();
  run.Select(run.Key("FLA", "F1", 2));
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.s.last_actv.Month, 2);
  EXPECT_EQ(run.s.last_actv.EquipID, "F1");
  EXPECT_EQ(run.s.current.Month, 0);
  run.Select(run.Key());
  run.ChangeTo(Mode::kActv);
  EXPECT_EQ(run.s.last_desc.Level, "STRUCTURE");
  EXPECT_EQ(run.s.current.Month, 2);
  EXPECT_EQ(run.s.current.Level, "STRUCTURE");
}

TEST(EditModes, clear_the_sheet_of_what_belongs_to_the_other) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.SelectRoot();
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_TRUE(run.Visible("txtFLA_HrsOperated"));
  EXPECT_EQ(run.At("tabFLA").page_available, (std::vector<bool>{true, false, true}));
  run.Keep({{"txtFLA_HrsOperated", "5"}});
  run.ChangeTo(Mode::kDesc);
  EXPECT_FALSE(run.Visible("txtFLA_HrsOperated"));
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "");
  EXPECT_EQ(run.At("tabFLA").page_available, (std::vector<bool>{true, true, true}));
}

TEST(ModeChange, on_a_file_that_another_program_holds_is_told_and_not_done) {
  TestRun run;
  run.StartWithStructure();
  run.SelectRoot();
  Database other;
  other.Open(run.s.path);
  other.Execute("BEGIN EXCLUSIVE");
  const WithoutPauses without_pauses;
  run.Click("mnuSetEditMode");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"The database is locked by another program. 3261"});
  EXPECT_EQ(run.s.mode, Mode::kDesc);
  EXPECT_FALSE(run.s.tree.nodes.empty());
}

TEST(EditModes, stay_as_they_are_with_one_box_while_another_program_holds_the_file) {
  TestRun run;
  run.StartWith("FLA", "F1");
  for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
    run.ChangeTo(mode);
    run.Select(run.Key("FLA", "F1", mode == Mode::kActv ? 1 : 0));
    run.TakeBoxes();
    const auto keys = run.TreeKeys();
    {
      Database other;
      other.Open(run.s.path);
      other.Execute("BEGIN EXCLUSIVE");
      const WithoutPauses without_pauses;
      run.Click("mnuSetEditMode");
    }
    EXPECT_EQ(run.TakeBoxes(), Texts{"The database is locked by another program. 3261"});
    EXPECT_EQ(run.s.mode, mode);
    EXPECT_EQ(run.TreeKeys(), keys);
    EXPECT_EQ(run.s.current.EquipID, "F1");
  }
}

}  // namespace
}  // namespace merlu::test
