// Undo, redo, the list of changes and backups, on the screens.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "forms/list_model.h"
#include "history/backups.h"
#include "history/notes.h"
#include "shell/docks.h"
#include "shell/main_program.h"
#include "shell/program_end.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class OnScreen : public testing::Test {
 protected:
  // Every row of every table with its number and the exact form of its values.
  std::string Everything() {
    std::string all;
    for (const RecordedTable& table : *run.s.db.recorder().tables()) {
      if (table.IsAttached()) continue;
      std::string columns;
      for (const std::string& column : table.columns) columns += "||','||quote([" + column + "])";
      run.s.db.ForEach("SELECT rowid" + columns + " FROM [" + table.name + "] ORDER BY rowid", {},
                       [&](const RowView& row) { all += table.name + ": " + std::string(row.Text(0)) + "\n"; });
    }
    return all;
  }
  std::string Undo() { return run.At("mnuEUndo").caption; }
  std::string Redo() { return run.At("mnuERedo").caption; }
  static std::string Cell(const Control& list, int row, int column) { return list.model->Text(row, column); }
  std::string Folder() { return BackupFolder(run.s.path); }

  TestRun run;
};

TEST_F(OnScreen, nothing_can_be_undone_at_first) {
  run.Start();
  EXPECT_EQ(Undo(), "Undo");
  EXPECT_EQ(Redo(), "Redo");
  EXPECT_EQ(run.WhyNotClick("mnuEUndo"), "is disabled");
  EXPECT_FALSE(fs::exists(run.s.path + ".history"));
}

TEST_F(OnScreen, why_nothing_is_kept_is_told_beside_what_an_act_says_of_itself) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  CloseDatabase(run.s);
  run.Start(run.s.path);
  run.GoTo("FLA", "F1", Mode::kActv);
  fs::remove(run.s.path + ".history");
  fs::create_directory(run.s.path + ".history");
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "5");
  run.Click("mnuNNext");
  EXPECT_EQ(run.s.message,
            "Flare F1 saved, 1 finding. It is the last record. No history is being kept: "
            "inventory.mdb.history cannot be written.");
  run.dialogs.push_back([&](Form& form) {
    EXPECT_EQ(act::TypeCell(run.s.desk, form, "grdGRD", 0, 2, "6"), "");
    run.Click("cmdGRD_Save");
  });
  run.Click("mnuNGrid");
  EXPECT_EQ(run.s.message, "1 record saved, 1 finding") << "once";
}

TEST_F(OnScreen, what_was_undone_or_redone_after_a_hand_in_is_listed_as_since_it) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  for (const char* hours : {"4", "5"}) run.Keep({{"txtFLA_HrsOperated", hours}});
  const auto hand_in = [&] { KeepHandIn(run.s.companion, 2017, 1, "2017-03-05 14:02:00"); };
  const auto count = [&] {
    int rows = -1;
    run.dialogs.push_back([&](Form& form) {
      run.Set("cmbHIS_Show", "Since the hand-in of 2017/01");
      rows = form.At("lvwHIS_Steps").model->RowCount();
    });
    run.Click("mnuRHistory");
    return rows;
  };
  hand_in();
  EXPECT_EQ(count(), 0);
  run.Click("mnuEUndo");
  EXPECT_EQ(count(), 1) << "older than the hand-in, and taken back";
  run.Click("mnuERedo");
  EXPECT_EQ(count(), 0) << "as it was handed in";
  run.Click("mnuEUndo");
  hand_in();
  EXPECT_EQ(count(), 0);
  run.Click("mnuERedo");
  EXPECT_EQ(count(), 1) << "undone at the hand-in, and done again";
  run.Keep({{"txtFLA_HrsOperated", "6"}});
  EXPECT_EQ(count(), 2);
}

TEST_F(OnScreen, a_deleted_structure_comes_back_with_all_its_rows_and_the_place) {
  run.StartWith("FLA", "F1");
  const std::string node = run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key;
  const std::string before = Everything();
  run.answers = {Button::kOK};
  run.Select(run.Key());
  run.Click("mnuEDelete");
  EXPECT_EQ(run.Count("ED_FLA"), 0);
  const std::string after = Everything();
  EXPECT_EQ(Undo(), "Undo Deletion");
  run.Click("mnuEUndo");
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, run.Key());
  EXPECT_GE(run.s.tree.Find(node), 0);
  EXPECT_EQ(Redo(), "Redo Deletion");
  run.Click("mnuERedo");
  EXPECT_EQ(Everything(), after);
  EXPECT_EQ(run.s.tree.Find(node), -1);
}

TEST_F(OnScreen, a_save_with_its_run_is_one_step) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  const std::string before = Everything();
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "745");
  run.Click("cmdSaveExit");
  EXPECT_GT(run.Count("QC"), 0);
  EXPECT_EQ(Undo(), "Undo Save");
  run.Click("mnuEUndo");
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "");
  run.Click("mnuERedo");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "745");
}

TEST_F(OnScreen, a_look_up_list_that_grows_belongs_to_the_save) {
  run.StartWith("PNE", "P1");
  run.GoTo("PNE", "P1", Mode::kDesc);
  run.Keep({{"cmbPNE_Mfr", "Generic"}, {"cmbPNE_Model", "Piston pump"}});
  const std::string before = Everything();
  run.Keep({{"cmbPNE_Mfr", "Own make"}, {"cmbPNE_Model", "Own model"}});  // grows by "Own make, Piston pump" too
  run.TakeBoxes();
  const std::string after = Everything();
  EXPECT_EQ(ToInteger(run.Sql("SELECT COUNT(*) FROM listPNE WHERE Mfr='Own make'")), 2);
  run.Click("mnuEUndo");
  EXPECT_EQ(Everything(), before);
  run.Click("mnuERedo");
  EXPECT_EQ(Everything(), after);
}

TEST_F(OnScreen, an_added_month_goes_again) {
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  const std::string before = Everything();
  run.AddMonth();
  EXPECT_EQ(run.s.last_month, 2);
  run.Click("mnuEUndo");
  EXPECT_EQ(run.s.last_month, 1);
  EXPECT_EQ(Everything(), before);
}

TEST_F(OnScreen, what_another_program_wrote_is_not_undone) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "100"}});
  Raw(run.s.path, {"UPDATE EA_FLA SET OP_HR=200"});
  run.TakeBoxes();
  run.Click("mnuEUndo");
  EXPECT_EQ(run.TakeBoxes(),
            (std::vector<std::string>{
                "This cannot be undone: 2017/01 · GI, 43, A · Combustion Flare: F1 was changed by another program."}));
  EXPECT_EQ(ToInteger(run.Sql("SELECT OP_HR FROM EA_FLA")), 200);
}

TEST_F(OnScreen, a_record_that_another_program_deleted_is_named_by_its_place) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "100");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  Raw(run.s.path, {"PRAGMA foreign_keys=ON", "DELETE FROM EA_EQUIP_ACTV"});
  run.TakeBoxes();
  run.Click("mnuEUndo");
  EXPECT_EQ(run.TakeBoxes(),
            (std::vector<std::string>{
                "This cannot be undone: 2017/01 · GI, 43, A · Combustion Flare: F1 was changed by another program."}));
}

TEST_F(OnScreen, the_list_tells_each_step_and_its_values) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "100"}});
  run.dialogs.push_back([&](Form& form) {
    Control& steps = form.At("lvwHIS_Steps");
    ASSERT_EQ(steps.model->RowCount(), 3);
    EXPECT_EQ(Cell(steps, 0, 0), "2017-03-05 14:02:00");
    EXPECT_EQ(Cell(steps, 0, 2), "Save");
    EXPECT_EQ(Cell(steps, 0, 3), "2017/01 · GI, 43, A · Combustion Flare: F1");
    EXPECT_EQ(Cell(steps, 1, 2), "New Equipment");
    EXPECT_EQ(Cell(steps, 2, 2), "New Structure");
    run.Pick("lvwHIS_Steps", 0);
    Control& values = form.At("lvwHIS_Values");
    EXPECT_EQ(std::to_string(values.model->RowCount()), Cell(steps, 0, 4));
    bool found = false;
    for (int row = 0; row < values.model->RowCount(); ++row)
      if (Cell(values, row, 1).starts_with("Hours Operated")) {
        found = true;
        EXPECT_EQ(Cell(values, row, 2), "");
        EXPECT_EQ(Cell(values, row, 3), "100");
      }
    EXPECT_TRUE(found);
    run.Set("txtHIS_Filter", "new EQUIP");
    EXPECT_EQ(steps.model->RowCount(), 1);
    run.Set("txtHIS_Filter", "");
    run.Set("cmbHIS_Show", "This record");
    EXPECT_EQ(steps.model->RowCount(), 2);
    run.Set("cmbHIS_Show", "All");
    run.Pick("lvwHIS_Steps", 1);
    run.Click("cmdHIS_Undo");
    EXPECT_EQ(Cell(steps, 0, 5), "undone");
    EXPECT_EQ(Cell(steps, 1, 5), "undone");
    EXPECT_EQ(Cell(steps, 2, 5), "");
    run.files = {run.folder.path("history.csv")};
    run.Click("cmdHIS_Export");
    EXPECT_TRUE(fs::exists(run.folder.path("history.csv")));
  });
  run.Click("mnuRHistory");
  EXPECT_TRUE(run.dialogs.empty());
  EXPECT_EQ(run.Count("ED_FLA"), 0);
}

TEST_F(OnScreen, the_record_s_own_steps_are_those_that_wrote_its_findings_too) {
  run.StartWith("FLA", "F1");
  run.Select(run.Key());
  run.AddEquipment("VEN", "V1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "745"}});
  run.Click("cmdQC");
  ASSERT_GT(run.Count("QC"), 0);
  const auto shown = [&] {
    std::vector<std::string> steps;
    run.dialogs.push_back([&](Form& form) {
      run.Set("cmbHIS_Show", "This record");
      const Control& list = form.At("lvwHIS_Steps");
      for (int row = 0; row < list.model->RowCount(); ++row) steps.push_back(Cell(list, row, 2));
    });
    run.Click("mnuRHistory");
    return steps;
  };
  EXPECT_EQ(shown(), (std::vector<std::string>{"QC Run", "Save", "New Equipment"}));
  run.dialogs.push_back([&](Form&) { run.Set("txtComments", "because"), run.Click("cmdOK"); });
  run.Click("cmdEdit");
  run.Pick("lvwFLA_QCResults", 0);
  run.DoubleClick("lvwFLA_QCResults");
  run.Click("cmdCANCEL");
  EXPECT_EQ(shown().front(), "Comment");
  run.GoTo("VEN", "V1", Mode::kActv);
  EXPECT_EQ(shown(), (std::vector<std::string>{"New Equipment"}));
}

TEST_F(OnScreen, a_finding_and_its_comment_are_told_from_the_values_of_their_field) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "745"}});
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  run.Click("cmdQC");
  const std::string tag = run.Findings("[Desc] LIKE 'Value%'").at(0).first;
  run.s.db.Execute("UPDATE QC SET Comments='because' WHERE FieldID=?", {tag});
  const auto values = [&] {
    std::vector<std::string> all;
    run.dialogs.push_back([&](Form& form) {
      for (const int step : {0, 1, 2}) {
        run.Pick("lvwHIS_Steps", step);
        const Control& list = form.At("lvwHIS_Values");
        for (int row = 0; row < list.model->RowCount(); ++row)
          if (Cell(list, row, 1).starts_with(tag))
            all.push_back(Cell(list, row, 1) + ": " + Cell(list, row, 2) + " > " + Cell(list, row, 3));
      }
    });
    run.Click("mnuRHistory");
    return all;
  }();
  EXPECT_EQ(values, (std::vector<std::string>{tag + " (comment):  > because",
                                              tag + " (finding):  > " + run.Finding(tag), tag + ":  > 745"}));
}

TEST_F(OnScreen, a_comment_on_a_finding_that_the_log_lacked_is_told) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "800"}});
  run.s.db.Execute("DELETE FROM QC");
  run.Click("mnuRFindings");
  run.Set("txtFND_Filter", "2017/01 hours");
  RefreshDocks(run.s);
  run.Pick("lvwFND_List", 0);
  run.dialogs.push_back([&](Form&) { run.Set("txtComments", "because"), run.Click("cmdOK"); });
  run.Click("cmdFND_Comment");
  run.dialogs.push_back([&](Form& form) {
    run.Pick("lvwHIS_Steps", 0);
    const Control& values = form.At("lvwHIS_Values");
    ASSERT_EQ(values.model->RowCount(), 1);
    EXPECT_EQ(Cell(values, 0, 1), "Hours Operated, excl. upsets (comment)");
    EXPECT_EQ(Cell(values, 0, 2), "");
    EXPECT_EQ(Cell(values, 0, 3), "because");
  });
  run.Click("mnuRHistory");
  EXPECT_TRUE(run.dialogs.empty());
}

TEST_F(OnScreen, a_step_that_is_picked_shows_its_values_after_the_list_was_filled_anew) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "100"}});
  run.dialogs.push_back([&](Form& form) {
    const Control& steps = form.At("lvwHIS_Steps");
    const Control& values = form.At("lvwHIS_Values");
    const auto all_shown = [&](int row) { return std::to_string(values.model->RowCount()) == Cell(steps, row, 4); };
    run.Pick("lvwHIS_Steps", 0);
    EXPECT_TRUE(all_shown(0));
    run.Set("txtHIS_Filter", "new");
    run.Pick("lvwHIS_Steps", 0);
    EXPECT_TRUE(all_shown(0));
    run.Click("cmdHIS_Undo");
    run.Pick("lvwHIS_Steps", 0);
    EXPECT_TRUE(all_shown(0));
    run.Pick("lvwHIS_Steps", std::vector<int>{});
    EXPECT_EQ(values.model->RowCount(), 0);
  });
  run.Click("mnuRHistory");
  EXPECT_TRUE(run.dialogs.empty());
}

TEST_F(OnScreen, the_values_of_a_large_step_are_made_as_they_are_asked_for) {
  run.StartWithStructure();
  run.s.companion.BeginStep({"2017-03-05 14:02:00", "anna", "Import", "", "", ""});
  run.s.db.Execute(
      "INSERT INTO QC ([Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc]) WITH RECURSIVE n(i) "
      "AS "
      "(SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<20000) SELECT 1,2017,'STRUCTURE','1001','1','NA','NA','Field '||i,"
      "'Error '||i FROM n");
  run.s.companion.EndStep();
  run.dialogs.push_back([&](Form& form) {
    run.Pick("lvwHIS_Steps", 0);
    Control& values = form.At("lvwHIS_Values");
    ASSERT_EQ(values.model->RowCount(), 20000);
    EXPECT_EQ(Cell(values, 12344, 0), "2017/01 · GI, 43, A");
    EXPECT_EQ(Cell(values, 12344, 1), "Field 12345 (finding)");
    EXPECT_EQ(Cell(values, 12344, 3), "Error 12345");
    values.model->Sort(1, true);
    EXPECT_EQ(Cell(values, 0, 1), "Field 9999 (finding)");
    EXPECT_EQ(Cell(values, 0, 3), "Error 9999");
    EXPECT_EQ(Cell(values, 20000, 3), "");  // beyond the end
    run.Pick("lvwHIS_Steps", 1);
    EXPECT_EQ(Cell(values, 0, 0), "GI, 43, A");
  });
  run.Click("mnuRHistory");
}

TEST_F(OnScreen, a_name_of_any_length_stands_short_in_every_row_of_the_history) {
  run.StartWith("FLA", "F1");
  Raw(run.s.path, {"UPDATE PD_PLATFORM_DESC SET Name=hex(zeroblob(500000)),Area=hex(zeroblob(500000))"});
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "100"}});
  run.dialogs.push_back([&](Form& form) {
    const Control& values = form.At("lvwHIS_Values");  // of the newest step, which is picked
    ASSERT_GT(values.model->RowCount(), 0);
    for (int row = 0; row < values.model->RowCount(); ++row) {
      EXPECT_LT(Cell(values, row, 0).size(), 400U);
      EXPECT_NE(Cell(values, row, 0).find("Combustion Flare: F1"), std::string::npos);
    }
  });
  run.Click("mnuRHistory");
}

TEST_F(OnScreen, a_backup_is_made_before_the_first_write_of_a_day) {
  run.StartWithStructure();
  ASSERT_EQ(Backups(run.s.path).size(), 1u);
  EXPECT_EQ(fs::path(Backups(run.s.path)[0].path).filename(), "2017-03-05 140200 first change of the day.mdb");
  run.AddEquipment("FLA", "F1");
  EXPECT_EQ(Backups(run.s.path).size(), 1u);
  run.clock.day = 6;
  run.Select(run.Key());
  run.AddEquipment("FLA", "F2");
  EXPECT_EQ(Backups(run.s.path).size(), 2u);
}

TEST_F(OnScreen, a_restored_backup_is_what_it_was_and_ends_undo) {
  run.StartWithStructure();
  const std::string before = Everything();
  run.dialogs.push_back([&](Form&) { run.Click("cmdBAK_Make"); });
  run.Click("mnuFBackups");
  run.AddEquipment("FLA", "F1");
  run.clock.minute = 3;
  run.answers = {Button::kYes};
  run.dialogs.push_back([&](Form& form) {
    const Control& list = form.At("lvwBAK_List");
    ASSERT_EQ(list.model->RowCount(), 2);
    EXPECT_EQ(Cell(list, 0, 1), "by hand");
    EXPECT_TRUE(Cell(list, 0, 2).ends_with(" KB")) << Cell(list, 0, 2);
    EXPECT_EQ(Cell(list, 0, 4), "1");
    EXPECT_EQ(Cell(list, 0, 5), "0");
    run.Pick("lvwBAK_List", 0);
    run.Click("cmdBAK_Restore");
    EXPECT_EQ(list.model->RowCount(), 3);  // with the one of what was there
  });
  run.Click("mnuFBackups");
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(Undo(), "Undo");
  EXPECT_EQ(run.s.tree.Find(run.Key("FLA", "F1")), -1);
}

TEST_F(OnScreen, a_file_among_the_backups_that_is_no_inventory_is_not_restored) {
  run.StartWithStructure();
  const std::string before = Everything();
  fs::create_directory(run.s.path + " backups");
  std::ofstream(run.s.path + " backups/2016-01-01 000000 by hand.mdb") << "x";
  run.answers = {Button::kYes};
  run.dialogs.push_back([&](Form& form) {
    run.Pick("lvwBAK_List", form.At("lvwBAK_List").model->RowCount() - 1);
    run.Click("cmdBAK_Restore");
  });
  run.TakeBoxes();
  run.Click("mnuFBackups");
  const auto boxes = run.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_TRUE(boxes.back().starts_with("The backup is no inventory: it has no table ")) << boxes.back();
  EXPECT_EQ(Everything(), before);
}

TEST_F(OnScreen, without_room_for_a_backup_the_user_decides) {
  run.StartWithStructure();
  run.clock.day = 6;
  run.free_bytes = 1000;
  run.answers = {Button::kNo};
  run.TakeBoxes();
  run.AddEquipment("FLA", "F1");
  const std::vector<std::string> boxes = run.TakeBoxes();
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[1], "Go on without a backup?");
  EXPECT_EQ(run.Count("ED_FLA"), 0);
}

TEST_F(OnScreen, whoever_goes_on_without_a_backup_is_asked_once) {
  run.StartWithStructure();
  run.clock.day = 6;
  run.free_bytes = 1000;
  run.answers = {Button::kOK, Button::kYes};
  run.TakeBoxes();
  run.Click("mnuEDelete");
  EXPECT_EQ(run.TakeBoxes().size(), 3u);  // the deletion, no backup, go on
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 0);
  run.Click("mnuEUndo");
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 1);
}

TEST_F(OnScreen, no_comment_is_stored_by_one_who_does_not_go_on_without_a_backup) {
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Keep({{"txtFLA_HrsOperated", "745"}});
  run.Click("cmdQC");
  run.clock.day = 6;
  run.free_bytes = 1000;
  run.Click("mnuRFindings");
  run.answers = {Button::kNo, Button::kNo};
  run.dialogs.push_back([&](Form&) { run.Set("txtComments", "because"), run.Click("cmdOK"); });
  run.Pick("lvwFND_List", 0);
  run.Click("cmdFND_Comment");
  EXPECT_EQ(run.Count("QC WHERE Comments='because'"), 0);
  EXPECT_TRUE(run.dialogs.empty());
}

TEST_F(OnScreen, backups_of_one_second_have_one_reason_and_stand_newest_first) {
  run.StartWithStructure();
  run.dialogs.push_back([&](Form& form) {
    for (int i = 0; i < 3; ++i) run.Click("cmdBAK_Make");
    const Control& list = form.At("lvwBAK_List");
    ASSERT_EQ(list.model->RowCount(), 4);
    for (int row = 0; row < 3; ++row) EXPECT_EQ(Cell(list, row, 1), "by hand");
  });
  run.Click("mnuFBackups");
  const std::vector<Backup> backups = Backups(run.s.path);
  EXPECT_EQ(fs::path(backups[0].path).filename(), "2017-03-05 140200 by hand 3.mdb");
  EXPECT_EQ(fs::path(backups[1].path).filename(), "2017-03-05 140200 by hand 2.mdb");
  EXPECT_EQ(fs::path(backups[2].path).filename(), "2017-03-05 140200 by hand.mdb");
}

TEST(BackupRule, keeps_the_last_ten_a_week_of_days_and_a_year_of_months) {
  std::vector<Backup> backups;
  const DateTime now{2017, 6, 30, 12, 0, 0};
  // twenty of today, then one of each day of two years, newest first
  for (int i = 0; i < 20; ++i)
    backups.push_back({"today " + std::to_string(i), {2017, 6, 30, 11, 59 - i, 0}, "", 0, 1});
  for (int month = 0; month < 24; ++month)
    for (int day = 28; day > 0; --day) {
      const int months = 2017 * 12 + 5 - month;
      backups.push_back({"d", {months / 12, months % 12 + 1, day, 10, 0, 0}, "", 0, 1});
    }
  const std::vector<Backup> outdated = Outdated(backups, now);
  // ten of today, the 28th to the 24th of June, and of each of the eleven months before one
  EXPECT_EQ(backups.size() - outdated.size(), 10u + 5u + 11u);
  EXPECT_TRUE(std::none_of(outdated.begin(), outdated.end(), [](const Backup& b) { return b.path == "today 9"; }));
}

}  // namespace
}  // namespace merlu::test
