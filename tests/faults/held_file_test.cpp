// Another program holds the inventory while something is read that is written, or opened, afterwards.
#include <gtest/gtest.h>

#include <map>
#include <optional>

#include "entry/month_book.h"
#include "faults/inventory_checks.h"
#include "faults/other_program.h"
#include "faults/two_inventories.h"
#include "session/node_keys.h"
#include "shell/last_resort.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char* kAll = "BEGIN EXCLUSIVE";
constexpr const char* kWrites = "BEGIN IMMEDIATE";
constexpr const char* kCommits = "BEGIN; SELECT COUNT(*) FROM sqlite_master";

class HeldFile : public testing::Test {
 protected:
  HeldFile() { Make(); }
  void Anew() {
    held_.emplace();
    Make();
  }
  void LetGo() { other->LetGo(); }

  void Make() {
    path = StartOnTwoStructures(run);
    run.ChangeTo(Mode::kActv);
    run.boxes.clear();
    other.emplace(path);
  }
  std::string Flare(int month = 1) { return run.Key("FLA", "FLA5", month, "10001", "1"); }
  std::string Said() const {
    std::string all;
    for (const Box& box : run.boxes) all += "[" + box.text + "]";
    return all;
  }
  // As the front ends click.
  void Try(const std::string& control) {
    if (run.WhyNotClick(control).empty()) Guarded(run.s, control, [&] { run.Click(control); });
  }
  void InDialog(const std::string& command, const std::function<void(Form&)>& act) {
    run.dialogs.push_back(act);
    Try(command);
    run.dialogs.clear();
  }
  bool Has(const std::string& rows) const {
    return ToInteger(RawValue(path, "SELECT EXISTS (SELECT 1 FROM " + rows + ")")) == 1;
  }
  std::string Rows() const {
    Database db;
    db.Open(path);
    return AllRows(db);
  }
  // Every value that is not blank, by its place; findings and dates of runs apart.
  std::map<std::string, std::string> Values() const {
    std::map<std::string, std::string> values;
    Database db;
    db.Open(path);
    for (const auto& table : db.Query("SELECT name FROM sqlite_schema WHERE type='table' AND name NOT LIKE 'QC%' AND "
                                      "name NOT LIKE 'H\\_%' ESCAPE '\\'")
                                 .rows) {
      const std::string name = NullToEmpty(table[0]);
      const auto columns =
          db.Query("SELECT name FROM pragma_table_info(?) WHERE name NOT LIKE '%\\_DT' ESCAPE '\\'", {name});
      for (const auto& column : columns.rows) {
        const std::string of = NullToEmpty(column[0]);
        db.ForEach("SELECT rowid,[" + of + "] FROM [" + name + "] WHERE [" + of + "]<>''", {}, [&](const RowView& row) {
          values[name + "/" + of + "/" + std::to_string(row.Integer(0))] = std::string(row.Text(1));
        });
      }
    }
    return values;
  }

  std::string path;
  std::optional<OtherProgram> other;

 private:
  std::optional<TestRun> held_{std::in_place};

 protected:
  TestRun& run = *held_;
};

// ---- imports ----

TEST_F(HeldFile, is_told_as_in_use_by_an_import_which_changes_nothing_and_can_be_done_afterwards) {
  for (const char* how : {kAll, kWrites, kCommits})
    for (const std::string step : {"cmdLoad", "cmdPlan", "cmdImport"}) {
      SCOPED_TRACE(std::string(how) + " at " + step);
      Anew();
      const std::string before = Rows();
      InDialog("mnuEStructB", [&](Form&) {
        run.Set("txtImportFilename", run.folder.path("other.mdb"));
        if (step != "cmdLoad") {
          run.Click("cmdLoad");
          run.Pick("lvwStructures", 0);
        }
        run.boxes.clear();
        other->Hold(how);
        run.Click(step);
        LetGo();
        const std::string said = Said();
        EXPECT_EQ(said.find("Invalid Import file"), std::string::npos) << said;
        EXPECT_EQ(said.find("wrong format"), std::string::npos) << said;
        EXPECT_EQ(Rows(), before);
        const bool needs = how == kAll || step == "cmdImport";
        EXPECT_TRUE(!needs || said.find("The database is locked by another program.") != std::string::npos) << said;
        if (!run.s.db.IsOpen()) return;
        run.boxes.clear();
        run.Click("cmdLoad");
        run.Pick("lvwStructures", 0);
        run.Click("cmdImport");
        EXPECT_NE(Said().find("Done."), std::string::npos) << Said();
        EXPECT_TRUE(Has("PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='X10001'"));
      });
    }
}

// ---- the reopening of the inventory, cancelled ----

void ExpectNothingWorseThanWords(TestRun& run) {
  for (int i = 0; i < 2; ++i)
    for (const Control& control : run.s.main->controls()) {
      const bool command = control.kind == Kind::kMenu || control.kind == Kind::kButton;
      // these open an inventory, and end
      const bool opens = control.name.starts_with("mnuFRecent") || control.name == "mnuFExit";
      if (!command || opens || !run.WhyNotClick(control.name).empty()) continue;
      SCOPED_TRACE(control.name);
      run.boxes.clear();
      run.Click(control.name);
      for (const Box& box : run.boxes) {
        EXPECT_EQ(box.text.find("Object variable"), std::string::npos) << box.text;
        EXPECT_EQ(box.text.find("An error in the program"), std::string::npos) << box.text << box.detail;
      }
      EXPECT_FALSE(run.s.editing);
    }
}

TEST_F(HeldFile, whose_reopening_after_an_export_was_cancelled_leaves_commands_that_say_so) {
  for (const char* command : {"mnuFExport", "mnuFExportInventory"}) {
    SCOPED_TRACE(command);
    Anew();
    InDialog(command, [&](Form&) {
      run.Pick("lvwSurveys", 0);
      run.Set("txtExportFilename", run.folder.path("out.mdb"));
      run.Click("cmdOK");
      EXPECT_TRUE(fs::exists(run.folder.path("out.mdb")));
      run.boxes.clear();
      other->Hold();
    });
    LetGo();
    ASSERT_EQ(run.boxes.size(), 1U) << Said();
    EXPECT_EQ(run.boxes[0].buttons, (std::vector<Button>{Button::kRetry, Button::kCancel}));
    EXPECT_FALSE(run.s.db.IsOpen());
    ExpectNothingWorseThanWords(run);
    run.Start(path);
    EXPECT_TRUE(run.s.db.IsOpen());
    run.Select(Flare());
    EXPECT_NE(run.Text("txtFLA_HrsOperated"), "");
  }
}

TEST_F(HeldFile, whose_reopening_after_an_import_was_cancelled_leaves_commands_that_say_so) {
  InDialog("mnuEStructB", [&](Form& form) {
    run.Set("txtImportFilename", run.folder.path("other.mdb"));
    run.Click("cmdLoad");
    run.Pick("lvwStructures", 0);
    other->Hold();
    run.Click("cmdImport");
    EXPECT_FALSE(run.s.db.IsOpen());
    EXPECT_FALSE(form.visible);
    EXPECT_EQ(Said().find("wrong format"), std::string::npos) << Said();
  });
  LetGo();
  ExpectNothingWorseThanWords(run);
  run.Start(path);
  EXPECT_TRUE(run.s.db.IsOpen());
}

// ---- what could not be read is not written as blank ----

struct Reading {
  const char* name;  // while the file is held
  std::function<void()> act;
};

TEST_F(HeldFile, loses_no_value_to_a_writing_whose_reading_failed) {
  const std::vector<Reading> acts = {
      {"sheet",
       [&] {
         run.Select(Flare());
         LetGo();
         Try("cmdEdit");
         if (run.s.editing) run.Set("txtFLA_HrsOperated", "701");
         Try("cmdSaveExit");
       }},
      {"structure",
       [&] {
         run.Select(run.Key("", "", 1, "10001", "1"));
         LetGo();
         Try("cmdEdit");
         Try("cmdSaveExit");
       }},
      {"operator",
       [&] {
         run.SelectRoot();
         LetGo();
         Try("cmdEdit");
         Try("cmdSaveExit");
       }},
      {"next record",
       [&] {
         run.Select(Flare());
         LetGo();
         Try("cmdEdit");
         Try("mnuNNext");
         Try("cmdSaveExit");
       }},
      {"copy of the month before",
       [&] {
         run.Select(Flare(2));
         LetGo();
         Try("cmdEdit");
         Try("mnuNCopy");
         Try("cmdSaveExit");
       }},
      {"copy while it is held",
       [&] {
         LetGo();
         run.Select(Flare(2));
         run.Click("cmdEdit");
         other->Hold();
         run.Click("mnuNCopy");
         LetGo();
         Try("cmdSaveExit");
       }},
      {"grid",
       [&] {
         InDialog("mnuNGrid", [&](Form& form) {
           LetGo();
           act::TypeCell(run.s.desk, form, "grdGRD", 0, 2, "701");
           Try("cmdGRD_Save");
         });
         LetGo();
       }},
      {"grid of another month",
       [&] {
         LetGo();
         run.Select(Flare());
         InDialog("mnuNGrid", [&](Form& form) {
           other->Hold();
           run.Set("cmbGRD_Month", form.At("cmbGRD_Month").items.at(1));
           LetGo();
           act::TypeCell(run.s.desk, form, "grdGRD", 0, 2, "702");
           Try("cmdGRD_Save");
         });
       }},
      {"grid of one record",
       [&] {
         LetGo();
         run.Select(Flare());
         InDialog("mnuNGrid", [&](Form& form) {
           other->Hold();
           run.Set("cmbGRD_View", form.At("cmbGRD_View").items.at(1));
           LetGo();
           const Control& grid = form.At("grdGRD");
           EXPECT_EQ(grid.grid->Cell(0, 1).text, "FLA5") << "the columns are still those of the month";
           act::TypeCell(run.s.desk, form, "grdGRD", 0, 2, "703");
           Try("cmdGRD_Save");
           run.answers = {Button::kNo};
         });
       }},
      {"workbook, made",
       [&] {
         run.files = {run.folder.path("month.xlsx"), run.folder.path("month.xlsx")};
         Try("mnuFWorkbookMake");
         LetGo();
         if (!fs::exists(run.folder.path("month.xlsx"))) return;
         InDialog("mnuFWorkbookRead", [&](Form&) { Try("cmdOK"); });
       }},
      {"workbook, read",
       [&] {
         LetGo();
         MonthBook book = MakeMonthBook(run.s, 1);
         for (BookSheet& sheet : book.sheets)
           if (sheet.columns[0].name == "txtFLA_HrsOperated") sheet.rows[0].cells[0].text = "704";
         WriteMonthBook(book, run.folder.path("read.xlsx"));
         run.files = {run.folder.path("read.xlsx")};
         other->Hold();
         InDialog("mnuFWorkbookRead", [&](Form&) {
           LetGo();
           Try("cmdOK");
         });
       }},
      {"structure added",
       [&] {
         run.SelectRoot();
         InDialog("mnuENewStructure", [&](Form&) {
           LetGo();
           run.Put(
               {{"txtComplxID", "777"}, {"txtStructID", "1"}, {"txtArea", "GI"}, {"txtBlock", "4"}, {"txtName", "A"}});
           Try("cmdOK");
         });
         LetGo();
       }},
      {"month added",
       [&] {
         run.SelectRoot();
         LetGo();
         Try("cmdUSER_AddSurvey");
       }},
      {"mode",
       [&] {
         Try("mnuSetEditMode");
         LetGo();
         run.SelectRoot();
         Try("cmdEdit");
         Try("cmdSaveExit");
         run.ChangeTo(Mode::kActv);
       }},
      {"run",
       [&] {
         run.Select(SurveyKey("12345", 1, 2017));
         LetGo();
         Try("cmdQC");
       }},
      {"restore",
       [&] {
         InDialog("mnuFBackups", [&](Form& form) {
           LetGo();
           Try("cmdBAK_Restore");
           Try(form.cancel_button);
         });
         LetGo();
       }},
  };
  for (const Reading& reading : acts) {
    SCOPED_TRACE(reading.name);
    Anew();
    run.SelectRoot();
    const auto before = Values();
    ASSERT_GT(before.size(), 200U);
    other->Hold();
    reading.act();
    LetGo();
    run.s.db.Close();
    const auto after = Values();
    for (const auto& [place, value] : before) EXPECT_TRUE(after.contains(place)) << place << " was " << value;
    Database db;
    db.Open(path);
    EXPECT_EQ(WhatIsUnsound(db), "");
  }
}

TEST_F(HeldFile, keeps_a_comment_that_its_dialog_could_not_read) {
  run.Select(Flare());
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "800");
  run.Click("cmdSaveEdits");
  run.Click("cmdQC");
  run.Click("cmdCANCEL");
  ASSERT_TRUE(Has("QC"));
  Raw(path, {"UPDATE QC SET Comments='because'"});
  run.Select(Flare());
  run.Click("cmdEdit");
  for (const char* how : {"sheet", "dock"}) {
    SCOPED_TRACE(how);
    const bool in_dock = std::string(how) == "dock";
    if (in_dock) {
      run.Click("cmdCANCEL");
      run.Click("mnuRFindings");
      run.Pick("lvwFND_List", 0);
    } else {
      run.Pick("lvwFLA_QCResults", 0);
    }
    other->Hold();
    InDialog(in_dock ? "cmdFND_Comment" : "cmdFLA_EditQCComment", [&](Form& form) {
      LetGo();
      run.Click("cmdOK");
      if (form.visible) form.Raise(form.cancel_button, Event::kClick);
    });
    LetGo();
    EXPECT_FALSE(Has("QC WHERE Comments<>'because'"));
    EXPECT_NE(Said().find("locked by another program"), std::string::npos) << Said();
  }
}

}  // namespace
}  // namespace merlu::test
