// Handing data out: one survey, the whole inventory, chosen structures.
#include <gtest/gtest.h>
#include <sys/file.h>

#include <fstream>

#include "inventory.h"
#include "session/node_keys.h"
#include "store/files.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// Three structures, 16 types, four months.
class Export : public testing::Test {
 protected:
  Export() {
    run.program_folder = run.folder.path();
    run.data_folder = run.folder.path();
    InventoryPlan plan;
    plan.structures = 3;
    plan.equipment = 32;
    plan.months = 4;
    plan.fault_share = 0.2;
    MakeInventory(TemplatePath(), run.folder.path("inventory.mdb"), plan);
    run.Start(run.folder.path("inventory.mdb"));
    run.TakeBoxes();
  }
  std::string Out(const char* name = "out.mdb") { return run.folder.path(name); }
  // Opens the dialog, does the work in it, and lets it close.
  void In(const char* menu, const std::function<void(Form&)>& work) {
    run.dialogs.push_back(work);
    run.Click(menu);
  }
  void ExportSurveys(const std::vector<int>& rows) {
    In("mnuFExport", [&](Form&) {
      run.Pick("lvwSurveys", rows);
      run.Set("txtExportFilename", Out());
      run.Click("cmdOK");
    });
  }
  void ExportStructures(const std::vector<int>& rows) {
    In("mnuEStructS", [&](Form&) {
      run.Pick("lvwStructures", rows);
      run.Set("txtExportFilename", Out());
      run.Click("cmdExport");
    });
  }
  std::int64_t There(const std::string& from) { return ToInteger(RawValue(Out(), "SELECT COUNT(*) FROM " + from)); }
  void ExpectSound() {
    EXPECT_EQ(NullToEmpty(RawValue(Out(), "PRAGMA integrity_check")), "ok");
    EXPECT_TRUE(IsNull(RawValue(Out(), "PRAGMA foreign_key_check")));
    for (const auto& entry : fs::directory_iterator(run.folder.path()))
      EXPECT_FALSE(entry.path().filename().string().starts_with(".merlu-")) << entry.path();
    EXPECT_EQ(ToInteger(RawValue(Out(), "PRAGMA application_id")),
              ToInteger(RawValue(TemplatePath(), "PRAGMA application_id")));
  }

  TestRun run;
};

// ---- a survey ----

TEST_F(Export, of_a_survey_lists_one_row_a_month) {
  In("mnuFExport", [&](Form& form) {
    EXPECT_EQ(form.name(), "frmExportSurvey");
    EXPECT_EQ(form.caption, "Export Survey");
    EXPECT_EQ(run.At("lvwSurveys").columns, (Texts{"Survey", "Last Updated", "Last QC'd", "Last Exported"}));
    Texts months;
    for (const auto& row : run.At("lvwSurveys").rows) months.push_back(row[0]);
    EXPECT_EQ(months, (Texts{"01/2017", "02/2017", "03/2017", "04/2017"}));
    EXPECT_EQ(run.At("cmdCANCEL").caption, "Close");
  });
}

TEST_F(Export, of_a_survey_holds_all_descriptions_and_the_activity_of_its_month_only) {
  ExportSurveys({2});
  EXPECT_EQ(run.TakeBoxes(), Texts{"Completed exporting Survey: 03/2017"});
  ExpectSound();
  EXPECT_EQ(There("PD_PLATFORM_DESC"), 3);
  EXPECT_EQ(There("ED_EQUIP_DESC"), 32);
  EXPECT_EQ(There("ED_FLA"), 2);
  EXPECT_EQ(There("PA_PLATFORM_ACTV"), 3);
  EXPECT_EQ(There("PA_PLATFORM_ACTV WHERE PA_MO=3 AND PA_YR=2017"), 3);
  EXPECT_EQ(There("EA_EQUIP_ACTV WHERE EA_MO=3"), There("EA_EQUIP_ACTV"));
  EXPECT_EQ(There("EA_EQUIP_ACTV"), run.Count("EA_EQUIP_ACTV WHERE EA_MO=3"));
  EXPECT_EQ(There("EA_FLA"), 2);
  EXPECT_EQ(There("EA_FLA WHERE EA_ID_AK IN (SELECT EA_ID_AK FROM EA_EQUIP_ACTV)"), 2);
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 12) << "the working database stays whole";
}

TEST_F(Export, of_a_survey_clears_the_name_and_reloads_the_list) {
  In("mnuFExport", [&](Form&) {
    run.Pick("lvwSurveys", 0);
    run.Set("txtExportFilename", Out());
    run.Click("cmdOK");
    EXPECT_EQ(run.Text("txtExportFilename"), "");
    EXPECT_TRUE(run.At("lvwSurveys").picked.empty());
    EXPECT_EQ(run.At("lvwSurveys").rows.size(), 4u);
    EXPECT_EQ(run.s.current.Level, level::kSurvey);
    EXPECT_EQ(run.s.current.Month, 1);
  });
}

TEST_F(Export, of_two_surveys_at_once_holds_no_activity_at_all) {
  ExportSurveys({1, 2});
  EXPECT_EQ(run.TakeBoxes(), (Texts{"Completed exporting Survey: 02/2017", "Completed exporting Survey: 03/2017"}));
  EXPECT_EQ(There("PA_PLATFORM_ACTV"), 0);
  EXPECT_EQ(There("EA_EQUIP_ACTV"), 0);
  EXPECT_EQ(There("EA_FLA"), 0);
  EXPECT_EQ(There("ED_EQUIP_DESC"), 32);
}

TEST_F(Export, of_a_survey_needs_a_row_and_a_name) {
  In("mnuFExport", [&](Form&) {
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please select a Survey."});
    run.Pick("lvwSurveys", 0);
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please select filename"});
    run.Set("txtExportFilename", run.folder.path("") + "/.mdb");
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please specify a valid filename"});
  });
}

TEST_F(Export, declined_over_an_old_file_leaves_it_untouched) {
  std::ofstream(Out()) << "old";
  run.answers = {Button::kNo};
  ExportSurveys({0});
  EXPECT_EQ(run.TakeBoxes(), Texts{"FileName already exists.  Do you wish to overwrite?"});
  std::string text;
  std::ifstream(Out()) >> text;
  EXPECT_EQ(text, "old");
}

TEST_F(Export, over_an_old_file_replaces_it_after_a_yes) {
  std::ofstream(Out()) << "old";
  run.answers = {Button::kYes};
  ExportSurveys({0});
  ExpectSound();
  EXPECT_EQ(There("PA_PLATFORM_ACTV"), 3);
}

TEST_F(Export, that_cannot_be_written_says_so_and_leaves_the_work_open) {
  In("mnuFExport", [&](Form&) {
    run.Pick("lvwSurveys", 0);
    run.Set("txtExportFilename", run.folder.path("no/such/folder/out.mdb"));
    run.Click("cmdOK");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Failed to create export database"});
    EXPECT_TRUE(run.s.db.IsOpen());
    EXPECT_EQ(run.Text("txtExportFilename"), run.folder.path("no/such/folder/out.mdb"));
  });
  EXPECT_FALSE(FileExists(run.folder.path("no")));
  EXPECT_EQ(run.Count("PA_PLATFORM_ACTV"), 12);
}

TEST_F(Export, without_room_is_not_compacted) {
  run.free_bytes = 1000;
  ExportSurveys({0});
  EXPECT_EQ(run.TakeBoxes(),
            (Texts{"Completed exporting Survey: 01/2017", "Not enough disk space to compact database!"}));
  EXPECT_EQ(There("PA_PLATFORM_ACTV"), 3);
}

TEST_F(Export, touches_no_file_but_its_own) {
  const Texts others = {"ZTEMPZ.MDB", "out.mdb.part", "out.part", "out.rpt"};
  for (const std::string& name : others) std::ofstream(run.folder.path(name)) << "kept";
  ExportSurveys({0});
  EXPECT_EQ(run.TakeBoxes(), Texts{"Completed exporting Survey: 01/2017"});
  for (const std::string& name : others) EXPECT_EQ(FileSize(run.folder.path(name)), 4u) << name;
}

TEST_F(Export, that_fails_leaves_the_older_file_as_it_was) {
  std::ofstream(Out()) << "old";
  // rows that the copy cannot be cut by
  run.s.db.Execute("DROP TABLE EA_FLA");
  run.answers = {Button::kYes, Button::kYes};
  ExportSurveys({0});
  EXPECT_EQ(FileSize(Out()), 3u);
  EXPECT_EQ(run.TakeBoxes().at(1), "errors during export of Month/Year");
}

TEST_F(Export, from_description_mode_ends_in_activity_mode_at_the_root) {
  run.ChangeTo(Mode::kDesc);
  In("mnuFExport", [](Form&) {});
  EXPECT_EQ(run.s.mode, Mode::kActv);
  EXPECT_EQ(run.At("mnuSetEditMode").caption, "Change to Description Edit Mode");
  EXPECT_EQ(run.s.tree.selected, 0);
  EXPECT_EQ(run.s.current.Level, level::kUser);
  EXPECT_EQ(run.s.tree.nodes.size(), 1 + 4 + 4 * 3 + 4 * 30u);
}

TEST_F(Export, of_a_survey_from_an_equipment_sheet_leaves_none_over_the_operators) {
  run.Select(StructureMonthKey("01234", 1, 2017, "10001", "1") + EquipmentSuffix("AMI", "AMI1"));
  ExportSurveys({1});
  EXPECT_EQ(run.s.main->front, "fraUserInfo");
  EXPECT_EQ(run.s.desk.showing, std::vector<Form*>{run.s.main});
}

TEST_F(Export, asks_for_the_file_with_its_own_dialog) {
  run.files = {Out()};
  In("mnuFExport", [&](Form&) {
    run.Click("cmdBrowse");
    EXPECT_EQ(run.Text("txtExportFilename"), Out());
    run.files = {""};
    run.Click("cmdBrowse");
    EXPECT_EQ(run.Text("txtExportFilename"), Out()) << "a dialog that was cancelled changes nothing";
  });
  ASSERT_EQ(run.file_questions.size(), 2u);
  EXPECT_EQ(run.file_questions[0].title, "Choose Export Database Filename");
  EXPECT_EQ(run.file_questions[0].extension, ".mdb");
  EXPECT_EQ(run.file_questions[0].pattern, "*.mdb");
}

TEST_F(Export, lets_work_go_on_in_the_sheet_that_was_open) {
  const std::string flare = run.s.tree.nodes.back().key;
  ExportSurveys({0});
  run.TakeBoxes();
  run.Select(flare);
  run.Click("cmdEdit");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

// ---- the inventory ----

TEST_F(Export, of_the_inventory_holds_every_row) {
  In("mnuFExportInventory", [&](Form& form) {
    EXPECT_EQ(form.name(), "frmExportInventory");
    run.Set("txtExportFilename", Out());
    run.Click("cmdOK");
  });
  EXPECT_EQ(run.TakeBoxes(), Texts{"Completed exporting MERLU inventory."});
  ExpectSound();
  run.s.db.ForEach("SELECT name FROM sqlite_schema WHERE type='table' AND name NOT LIKE 'sqlite%'", {},
                   [&](const RowView& row) {
                     const std::string table(row.Text(0));
                     EXPECT_EQ(There("[" + table + "]"), run.Count("[" + table + "]")) << table;
                   });
}

TEST_F(Export, of_the_inventory_tells_when_it_cannot_be_made) {
  In("mnuFExportInventory", [&](Form&) {
    run.Set("txtExportFilename", "/proc/no.mdb");
    run.Click("cmdOK");
  });
  EXPECT_EQ(run.TakeBoxes(), Texts{"Failed to create export database"});
  EXPECT_TRUE(run.s.db.IsOpen());
}

// ---- structures ----

TEST_F(Export, of_structures_lists_them_all) {
  In("mnuEStructS", [&](Form& form) {
    EXPECT_EQ(form.caption, "Export MERLU-2017 Structure Data");
    const Control& list = run.At("lvwStructures");
    EXPECT_EQ(list.columns, (Texts{"RIMA Complex ID", "RIMA Structure ID", "Area", "Block", "Struct Name"}));
    const Rows stored = run.s.db.Query("SELECT CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name FROM PD_PLATFORM_DESC");
    ASSERT_EQ(list.rows.size(), stored.rows.size());
    for (std::size_t i = 0; i < list.rows.size(); ++i)
      for (std::size_t c = 0; c < 5; ++c) EXPECT_EQ(list.rows[i][c], NullToEmpty(stored.rows[i][c]));
    run.Click("cmdExport");
    EXPECT_EQ(run.TakeBoxes(), Texts{"Please select a Structure."});
  });
}

TEST_F(Export, of_structures_holds_the_chosen_ones_with_all_their_months) {
  ExportStructures({0, 2});
  EXPECT_EQ(run.TakeBoxes(), Texts{"Done."});
  ExpectSound();
  EXPECT_EQ(There("PD_PLATFORM_DESC"), 2);
  EXPECT_EQ(There("PD_PLATFORM_DESC WHERE PD_ID_AK=2"), 0);
  EXPECT_EQ(There("PA_PLATFORM_ACTV"), 8);
  EXPECT_EQ(There("ED_EQUIP_DESC"), run.Count("ED_EQUIP_DESC WHERE PD_ID_AK<>2"));
  EXPECT_EQ(There("EA_EQUIP_ACTV"),
            run.Count("EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d USING (ED_ID_AK) WHERE PD_ID_AK<>2"));
  EXPECT_GT(There("EA_EQUIP_ACTV"), 0);
}

TEST_F(Export, of_one_structure_holds_no_other) {
  ExportStructures({1});
  EXPECT_EQ(There("PD_PLATFORM_DESC"), 1);
  EXPECT_EQ(There("PD_PLATFORM_DESC WHERE PD_ID_AK=2"), 1);
}

TEST_F(Export, of_a_structure_named_beyond_ascii_holds_it_and_no_other) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='Ä1' WHERE PD_ID_AK=2");
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='Ö1' WHERE PD_ID_AK=1");
  ExportStructures({1});
  EXPECT_EQ(run.TakeBoxes(), Texts{"Done."});
  ExpectSound();
  EXPECT_EQ(There("PD_PLATFORM_DESC"), 1);
  EXPECT_EQ(There("PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='Ä1'"), 1);
  EXPECT_EQ(There("ED_EQUIP_DESC"), run.Count("ED_EQUIP_DESC WHERE PD_ID_AK=2"));
}

TEST_F(Export, of_structures_keeps_one_whose_identifier_is_not_filled_in) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM=NULL WHERE PD_ID_AK=2");
  ExportStructures({0});
  // its structure number differs from the chosen one's for certain only when it is filled in and another
  const bool differs =
      !IsNull(run.Sql("SELECT 1 FROM PD_PLATFORM_DESC a, PD_PLATFORM_DESC b WHERE a.PD_ID_AK=1 AND "
                      "b.PD_ID_AK=2 AND a.STRUCT_NUM<>b.STRUCT_NUM"));
  EXPECT_EQ(There("PD_PLATFORM_DESC WHERE PD_ID_AK=2"), differs ? 0 : 1);
}

TEST_F(Export, of_structures_keeps_the_mode_and_the_place) {
  for (const Mode mode : {Mode::kActv, Mode::kDesc}) {
    run.ChangeTo(mode);
    const std::string key = run.s.tree.nodes.back().key;
    run.Select(key);
    In("mnuEStructS", [&](Form&) {
      run.Pick("lvwStructures", 0);
      run.Set("txtExportFilename", Out());
      run.answers = {Button::kYes};
      run.Click("cmdExport");
    });
    EXPECT_EQ(run.s.mode, mode);
    EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key, key);
    run.Click("cmdEdit");
    run.Click("cmdCANCEL");
  }
}

}  // namespace
}  // namespace merlu::test
