#include <gtest/gtest.h>

#include <filesystem>

#include "forms/grid_model.h"
#include "forms/list_model.h"
#include "history/notes.h"
#include "host/hand_in_pdf.h"
#include "review/hand_in.h"
#include "session/place.h"
#include "shell/completeness_dock.h"
#include "shell/docks.h"
#include "support/read_back.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// A run whose user may stop a piece of work.
class RunWithPorts : public TestRun {
 public:
  int stops_after = -1;  // so many looks; -1: never
  bool allowed = false;

  void AllowStop() override { allowed = true; }
  bool IsStopWanted() override { return stops_after >= 0 && looks_++ >= stops_after; }

 private:
  int looks_ = 0;
};

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
  // The count of a row for the choice.
  std::string Count(HandInCheck check, const std::string& month) {
    const std::string row = Checks(month)[static_cast<std::size_t>(check)];
    return row.substr(row.find(' ') + 1);
  }
  // Exports the survey of the month by the dialog's button.
  void HandInMonth(int month) {
    run.dialogs.push_back([&run = run, month](Form&) {
      run.Set("cmbHND_Month", "2017/0" + std::to_string(month));
      run.Click("cmdHND_Export");
    });
    run.dialogs.push_back([this, month](Form& dialog) {
      EXPECT_EQ(dialog.name(), "frmExportSurvey");
      EXPECT_EQ(dialog.At("lvwSurveys").picked, (std::vector<int>{month - 1}));
      run.Set("txtExportFilename", run.folder.path("handed-in-" + std::to_string(++handed_in) + ".mdb"));
      run.Click("cmdOK");
    });
    run.Click("mnuRHandIn");
    run.TakeBoxes();
  }
  RunWithPorts run;
  int handed_in = 0;
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

TEST_F(HandIn, matrix_takes_the_findings_of_all_descriptions_together) {
  run.s.db.Execute(
      "UPDATE PD_PLATFORM_DESC SET LEASE_NUM='G1',LONGITUDE=-90,LATITUDE=25,DIST_TO_SHORE=5,WATER_DEPTH_FT=9,"
      "PD_QC_DT=NULL");
  run.s.db.Execute("DELETE FROM QC");
  EXPECT_EQ(Matrix().Cell(0, 1).text, "unchecked");
  run.s.db.Execute("INSERT INTO QC VALUES ('12345',0,0,'EQUIPMENT','1001','1','MUD','M1','Odd','Odd','so','DESC')");
  EXPECT_EQ(Matrix().Cell(0, 1).text, "explained 1") << "the date counts only where there is no finding";
  run.s.db.Execute("DELETE FROM QC");
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET PD_QC_DT='2017-01-01 00:00:00'");
  EXPECT_EQ(Matrix().Cell(0, 1).text, "clean");
}

TEST_F(HandIn, matrix_has_no_month_of_a_structure_without_its_row) {
  EXPECT_EQ(Month("1001/1"), "empty");
  run.s.db.Execute("DELETE FROM PA_PLATFORM_ACTV");
  EXPECT_EQ(Month("1001/1"), "-") << "although its equipment has the month";
  EXPECT_EQ(Count(HandInCheck::kStructuresWithoutMonth, "2017/01"), "1");
}

TEST_F(HandIn, counts_the_months_of_an_inventory_without_structures) {
  run.s.db.Execute("DELETE FROM PD_PLATFORM_DESC");
  EXPECT_EQ(Checks("Whole year")[0], "stop 11");
  run.s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=2");
  EXPECT_EQ(Checks("2017/02")[0], "ok 0");
  EXPECT_EQ(Checks("Whole year")[0], "stop 10");
  run.Click("mnuRFindings");
  EXPECT_EQ(run.At("cmbFND_When").items, (Texts{"All", "Descriptions", "2017/01", "2017/02"}));
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

TEST_F(HandIn, matrix_picks_no_row_of_another_choice) {
  const Control& matrix = CompletenessDock(run.s).At("grdCMP_Matrix");
  Matrix();
  run.Pick("grdCMP_Matrix", {0});
  Matrix();
  EXPECT_EQ(matrix.picked, (std::vector<int>{0}));
  run.Set("cmbCMP_Show", "GI, 43, A");
  Matrix();
  EXPECT_TRUE(matrix.picked.empty());
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
  EXPECT_EQ(run.s.db.Single("SELECT place FROM history.step ORDER BY rowid DESC"), Value(std::string("2017/01")))
      << "all that was run, not where the user stands";
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

TEST_F(HandIn, shows_an_unfinished_record_behind_what_is_open) {
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.AddEquipment("MUD", "M2");
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET PD_QC_DT='2017-01-05 00:00:00'");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_QC_DT='2017-01-05 00:00:00'");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PROD_OIL=1,PA_QC_DT='2017-01-05 00:00:00'");
  run.dialogs.push_back([&](Form&) {
    run.Set("cmbHND_Month", "2017/01");
    run.Pick("lvwHND_Checks", {2});
    run.DoubleClick("lvwHND_Checks");
  });
  run.Click("mnuRHandIn");
  const Form& dock = CompletenessDock(run.s);
  const Control& matrix = dock.At("grdCMP_Matrix");
  ASSERT_EQ(matrix.picked.size(), 1u);
  EXPECT_EQ(dock.At("cmbCMP_Show").text, "GI, 43, A");
  EXPECT_EQ(matrix.grid->RowKey(matrix.picked.front()), "MUD/M2");
  EXPECT_EQ(matrix.grid->Cell(matrix.at_row, matrix.at_column).text, "empty");
}

TEST_F(HandIn, counts_the_values_that_changed_since_the_month_was_handed_in) {
  run.AddMonth();
  run.GoTo("MUD", "M1", Mode::kActv, 1);
  run.Keep({{"txtMUD_DaysPerMonth", "5"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0") << "nothing was handed in";
  HandInMonth(1);
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0");
  run.GoTo("MUD", "M1", Mode::kActv, 2);
  run.Keep({{"txtMUD_DaysPerMonth", "7"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0") << "another month";
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/02"), "0") << "that was not handed in";
  EXPECT_EQ(Count(HandInCheck::kChanged, "Whole year"), "0");
  run.GoTo("MUD", "M1", Mode::kActv, 1);
  run.Click("cmdQC");
  run.TakeBoxes();
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0") << "a run changes no value";
  run.Keep({{"txtMUD_DaysPerMonth", "6"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "1");
  EXPECT_EQ(Count(HandInCheck::kChanged, "Whole year"), "1");
  run.Keep({{"txtMUD_DaysPerMonth", "8"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "1") << "one value, however often";
  run.Keep({{"txtMUD_DaysPerMonth", "5"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0") << "as it was handed in";
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.Keep({{"txtSTRUCTURE_WaterDepth", "220"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "1") << "the descriptions go with a month";
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS=NULL");
  HandInMonth(1);
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0");
  run.GoTo("MUD", "M1", Mode::kActv, 1);
  run.Keep({{"txtMUD_DaysPerMonth", "6"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "1") << "a status that was never set was active before, too";
}

TEST_F(HandIn, counts_what_was_undone_and_done_again_since_the_hand_in) {
  run.GoTo("MUD", "M1", Mode::kActv, 1);
  for (const char* days : {"4", "5", "6"}) run.Keep({{"txtMUD_DaysPerMonth", days}});
  HandInMonth(1);
  run.Click("mnuEUndo");
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "1") << "older than the hand-in, and taken back";
  run.Click("mnuEUndo");
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "1");
  EXPECT_EQ(Count(HandInCheck::kChanged, "Whole year"), "1");
  run.Click("mnuERedo");
  run.Click("mnuERedo");
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0") << "as it was handed in";
  run.Click("mnuEUndo");
  HandInMonth(1);
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0");
  run.Click("mnuERedo");
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "1") << "undone at the hand-in, and done again";
  run.Click("mnuEUndo");
  run.Click("mnuEUndo");
  run.Keep({{"txtMUD_DaysPerMonth", "5"}});
  EXPECT_EQ(Count(HandInCheck::kChanged, "2017/01"), "0") << "otherwise, and the same again";
}

TEST_F(HandIn, counts_nothing_of_what_reports_nothing) {
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  run.Click("cmdQC");
  run.TakeBoxes();
  EXPECT_EQ(Count(HandInCheck::kUnexplained, "2017/01"), Count(HandInCheck::kUnexplained, "Whole year"));
  const int with = std::stoi(Count(HandInCheck::kUnexplained, "2017/01"));
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I'");
  EXPECT_EQ(std::stoi(Count(HandInCheck::kUnexplained, "2017/01")), with - 1);
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  EXPECT_EQ(Count(HandInCheck::kUnfinished, "2017/01"), "1") << "the description alone";
}

TEST_F(HandIn, counts_rows_without_their_parent) {
  EXPECT_EQ(Count(HandInCheck::kDamage, "2017/01"), "0");
  Raw(run.s.path, {"PRAGMA foreign_keys=OFF", "INSERT INTO EA_MUD (EA_ID_AK) VALUES (4711)"});
  EXPECT_EQ(Count(HandInCheck::kDamage, "2017/01"), "1");
}

TEST_F(HandIn, counts_entries_of_its_month_and_copied_values_that_are_still_as_they_came) {
  run.Keep({{"txtMUD_DaysPerMonth", "5"}});
  const QCLocation at = run.s.current;
  WriteBatch batch(run.s.db);
  Draft draft;
  draft.owner = "elsewhere 1";
  draft.at = PackLocation(at, Mode::kActv);
  draft.fields.push_back({"txtMUD_DaysPerMonth", "Days", "5", "6"});
  EXPECT_TRUE(KeepDraft(run.s.companion, draft));
  KeepCopied(run.s.companion, "EA_MUD", run.s.EA_ID_AK, {{"DAYS_PER_MO", "5"}, {"NO_SUCH", "5"}});
  batch.Commit();
  run.AddMonth();
  run.GoTo("MUD", "M1", Mode::kActv, 1);
  EXPECT_EQ(Checks("2017/01")[6], "look 1");
  EXPECT_EQ(Checks("2017/02")[6], "ok 0");
  EXPECT_EQ(Checks("Whole year")[6], "look 1");
  EXPECT_EQ(Checks("2017/01")[5], "stop 1");
  EXPECT_EQ(Checks("2017/02")[5], "ok 0");
  for (const HandInCheck check : {HandInCheck::kCopied, HandInCheck::kDrafts}) {
    Matrix();
    CompletenessDock(run.s).At("grdCMP_Matrix").at_column = -1;
    run.dialogs.push_back([&](Form&) {
      run.Pick("lvwHND_Checks", static_cast<int>(check));
      run.DoubleClick("lvwHND_Checks");
    });
    run.Click("mnuRHandIn");
    const Control& matrix = CompletenessDock(run.s).At("grdCMP_Matrix");
    EXPECT_EQ(matrix.at_column, 2);
    EXPECT_EQ(matrix.grid->RowKey(matrix.at_row), "MUD/M1") << "the record itself, not its structure";
  }
  run.s.db.Execute("UPDATE EA_MUD SET DAYS_PER_MO=6");
  EXPECT_EQ(Checks("2017/01")[5], "ok 0") << "typed over since";
}

TEST_F(HandIn, keeps_what_was_checked_when_the_user_ends_it) {
  run.AddMonth();
  for (const int month : {1, 2}) {
    run.GoTo("MUD", "M1", Mode::kActv, month);
    run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  }
  const std::int64_t steps = ToInteger(run.s.db.Single("SELECT COUNT(*) FROM history.step"));
  run.stops_after = 2;
  Checks("Whole year", [&] { run.Click("cmdHND_CheckAll"); });
  EXPECT_TRUE(run.allowed);
  EXPECT_EQ(run.s.message, "2 records checked of 3, stopped");
  EXPECT_EQ(
      run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL") + run.Count("PD_PLATFORM_DESC WHERE PD_QC_DT IS NOT NULL"),
      2);
  EXPECT_EQ(ToInteger(run.s.db.Single("SELECT COUNT(*) FROM history.step")), steps + 1);
  run.Click("mnuEUndo");
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL"), 0) << "one step";
}

TEST_F(HandIn, checks_nothing_and_exports_nothing_in_the_middle_of_an_edit) {
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  run.Click("cmdEdit");
  for (const char* button : {"cmdHND_CheckAll", "cmdHND_Export"}) {
    run.dialogs.push_back([&](Form& dialog) {
      run.Click(button);
      EXPECT_TRUE(dialog.visible) << button;
    });
    run.Click("mnuRHandIn");
    EXPECT_EQ(run.TakeBoxes(), (Texts{"End the edit first."})) << button;
  }
  EXPECT_EQ(run.Count("QC"), 0);
  run.Click("cmdCANCEL");
}

TEST_F(HandIn, report_is_signed_on_paper_and_filters_in_a_workbook) {
  run.Keep({{"txtMUD_DaysPerMonth", "40"}});
  const std::string pdf = run.folder.path("report.pdf"), book = run.folder.path("report.xlsx");
  for (const std::string& path : {pdf, book}) {
    run.files.push_back(path);
    Checks("2017/01", [&] { run.Click("cmdHND_Report"); });
    EXPECT_EQ(run.TakeBoxes(), (Texts{"Done."}));
  }
  const std::string text = RunCommand("pdftotext -layout '" + pdf + "' -").output;
  for (const char* words :
       {"Ready to Hand In: 2017/01", "RIMA company no. 12345", "Not ready: ", "Findings without an explanation",
        "Signature", "GI, 43, A", "Mud Degassing: M1", "40", "Page 1 of", "MERLU-2017 1.", "2017"})
    EXPECT_NE(text.find(words), std::string::npos) << words << "\n" << text;
  const Finished read = Python("-c \"import openpyxl; b=openpyxl.load_workbook('" + book +
                               "'); f=b['Findings']; print(f.auto_filter.ref[:2], f.freeze_panes, f['A1'].value, "
                               "any('Mud Degassing' in str(r[0].value) and r[2].value=='40' for r in f.rows), "
                               "b['Hand-in']['B11'].value)\"");
  EXPECT_EQ(read.output, "A1 A2 Place True Not ready: " + std::string(Checks("2017/01")[9].substr(11)) + "\n");
}

}  // namespace
}  // namespace merlu::test
