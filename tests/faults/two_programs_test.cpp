// Two programs on one inventory: each act of this one while another process changes, adds, deletes, or holds the file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "entry/month_book.h"
#include "faults/inventory_checks.h"
#include "faults/other_program.h"
#include "faults/two_inventories.h"
#include "history/backups.h"
#include "session/node_keys.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char* kVolume = "EA_FLA SET VOL_FLARED=99 WHERE EA_ID_AK=1";

using Between = std::function<void()>;  // what the other program does in the middle of the act

struct ActHere {
  const char* name;
  void (*act)(TestRun& run, const Between& between);
  // Whether it is in the file.
  const char* is_done;
};

std::string Flare(TestRun& run) {
  return run.Key("FLA", "FLA5", 1, "10001", "1");
}

void EditFlare(TestRun& run) {
  run.ChangeTo(Mode::kActv);
  run.Select(Flare(run));
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "701");
}

void InDialog(TestRun& run, const char* menu, const std::function<void(Form&)>& act) {
  run.dialogs.push_back(act);
  run.Click(menu);
  run.dialogs.clear();
}

const std::vector<ActHere>& Acts() {
  constexpr const char* kHours = "EA_FLA WHERE EA_ID_AK=1 AND OP_HR=701";
  static const std::vector<ActHere> acts = {
      {"save",
       [](TestRun& run, const Between& between) {
         EditFlare(run);
         between();
         run.Click("cmdSaveEdits");
       },
       kHours},
      {"end edit & save",
       [](TestRun& run, const Between& between) {
         EditFlare(run);
         between();
         run.Click("cmdSaveExit");
       },
       kHours},
      {"run",
       [](TestRun& run, const Between& between) {
         run.Select(SurveyKey("12345", 1, 2017));
         between();
         run.Click("cmdQC");
       },
       "PA_PLATFORM_ACTV WHERE PA_QC_DT IS NOT NULL"},
      {"month",
       [](TestRun& run, const Between& between) {
         run.SelectRoot();
         between();
         run.Click("cmdUSER_AddSurvey");
       },
       "SYS_CONFIG WHERE SYS_MAX_MO=3"},
      {"structure",
       [](TestRun& run, const Between& between) {
         run.ChangeTo(Mode::kDesc);
         run.SelectRoot();
         InDialog(run, "cmdUSER_AddStructure", [&](Form&) {
           run.Put(
               {{"txtComplxID", "777"}, {"txtStructID", "1"}, {"txtArea", "GI"}, {"txtBlock", "4"}, {"txtName", "A"}});
           between();
           run.Click("cmdOK");
         });
       },
       "PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='777'"},
      {"deletion",
       [](TestRun& run, const Between& between) {
         run.ChangeTo(Mode::kDesc);
         run.Select(run.Key("", "", 0, "10001", "2"));
         run.answers = {Button::kOK};
         between();
         run.Click("mnuEDelete");
       },
       "SYS_CONFIG WHERE NOT EXISTS (SELECT 1 FROM PD_PLATFORM_DESC WHERE PD_ID_AK=2)"},
      {"import",
       [](TestRun& run, const Between& between) {
         InDialog(run, "mnuEStructB", [&](Form&) {
           run.Set("txtImportFilename", run.folder.path("other.mdb"));
           run.Click("cmdLoad");
           run.Pick("lvwStructures", {0});
           between();
           run.Click("cmdImport");
         });
       },
       "PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='X10001'"},
      {"export",
       [](TestRun& run, const Between& between) {
         InDialog(run, "mnuFExportInventory", [&](Form&) {
           run.Set("txtExportFilename", run.folder.path("out.mdb"));
           between();
           run.Click("cmdOK");
         });
       },
       nullptr},
      {"grid",
       [](TestRun& run, const Between& between) {
         run.ChangeTo(Mode::kActv);
         run.Select(Flare(run));
         InDialog(run, "mnuNGrid", [&](Form& form) {
           act::TypeCell(run.s.desk, form, "grdGRD", 0, 2, "701");
           between();
           run.Click("cmdGRD_Save");
           const std::string message = form.At("lblGRD_Message").text;
           if (form.visible) run.answers = {Button::kNo}, form.Raise(form.cancel_button, Event::kClick);
           run.boxes.push_back({message, ""});
         });
       },
       kHours},
      {"workbook",
       [](TestRun& run, const Between& between) {
         MonthBook book = MakeMonthBook(run.s, 1);
         for (BookSheet& sheet : book.sheets)
           if (sheet.columns[0].name == "txtFLA_HrsOperated") sheet.rows[0].cells[0].text = "701";
         WriteMonthBook(book, run.folder.path("month.xlsx"));
         run.files = {run.folder.path("month.xlsx")};
         InDialog(run, "mnuFWorkbookRead", [&](Form& form) {
           between();
           run.Click("cmdOK");
           if (form.visible) run.Click("cmdCANCEL");
         });
       },
       kHours},
      {"undo",
       [](TestRun& run, const Between& between) {
         EditFlare(run);
         run.Click("cmdSaveExit");
         run.TakeBoxes();
         between();
         run.Click("mnuEUndo");
       },
       "SYS_CONFIG WHERE NOT EXISTS (SELECT 1 FROM EA_FLA WHERE EA_ID_AK=1 AND OP_HR=701)"},
      {"redo",
       [](TestRun& run, const Between& between) {
         EditFlare(run);
         run.Click("cmdSaveExit");
         run.Click("mnuEUndo");
         run.TakeBoxes();
         between();
         run.Click("mnuERedo");
       },
       kHours},
      {"comment",
       [](TestRun& run, const Between& between) {
         run.ChangeTo(Mode::kActv);
         run.Select(Flare(run));
         run.Click("cmdEdit");
         run.Set("txtFLA_HrsOperated", "800");
         run.Click("cmdSaveExit");
         run.TakeBoxes();
         run.Click("mnuRFindings");
         run.Pick("lvwFND_List", 0);
         InDialog(run, "cmdFND_Comment", [&](Form&) {
           run.Set("txtComments", "because");
           between();
           run.Click("cmdOK");
         });
       },
       "QC WHERE Comments='because'"},
      {"restore",
       [](TestRun& run, const Between& between) {
         EditFlare(run);
         run.Click("cmdSaveExit");
         run.clock.minute = 30;
         run.answers = {Button::kYes};
         InDialog(run, "mnuFBackups", [&](Form&) {
           run.Pick("lvwBAK_List", 0);
           between();
           run.Click("cmdBAK_Restore");
           run.Click("cmdClose");
         });
       },
       "SYS_CONFIG WHERE NOT EXISTS (SELECT 1 FROM EA_FLA WHERE EA_ID_AK=1 AND OP_HR=701)"},
      {"annual pass",
       [](TestRun& run, const Between& between) {
         run.files = {run.folder.path("summary.pdf")};
         between();
         run.Click("frmInvQCPrint");
       },
       "QCInventory"},
  };
  return acts;
}

// What the other program does, and where that is found in a file that has it.
struct ActThere {
  const char* name;
  std::string sql;
  std::string found;
};

const std::vector<ActThere>& ActsThere() {
  static const std::vector<ActThere> acts = {
      {"another value of the record", std::string("UPDATE ") + kVolume, "EA_FLA WHERE EA_ID_AK=1 AND VOL_FLARED=99"},
      {"the same value", "UPDATE EA_FLA SET OP_HR=555 WHERE EA_ID_AK=1", "EA_FLA WHERE EA_ID_AK=1 AND OP_HR=555"},
      {"another record", "UPDATE PD_PLATFORM_DESC SET LEASE_NUM='G99' WHERE PD_ID_AK=2",
       "PD_PLATFORM_DESC WHERE LEASE_NUM='G99'"},
      {"a structure",
       "INSERT INTO PD_PLATFORM_DESC (PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name,status) VALUES "
       "(50,'12345','888','1','GI','9','Z','A'); INSERT INTO PA_PLATFORM_ACTV (SA_ID_AK,PD_ID_AK,PA_MO,PA_YR,status) "
       "VALUES (900,50,1,2017,'A'),(901,50,2,2017,'A')",
       "PD_PLATFORM_DESC WHERE CMPLX_ID_NUM='888'"},
      {"the record deleted",
       "DELETE FROM ED_EQUIP_DESC WHERE ED_ID_AK=(SELECT ED_ID_AK FROM EA_EQUIP_ACTV WHERE EA_ID_AK=1)",
       "SYS_CONFIG WHERE NOT EXISTS (SELECT 1 FROM EA_FLA WHERE EA_ID_AK=1)"},
      {"a finding",
       "INSERT INTO QC (UserID,Month,Year,Level,FieldID,[Desc],Comments,EditMode) VALUES "
       "('12345',2,2017,'SURVEY','x','found elsewhere','','ACTV')",
       "QC WHERE [Desc]='found elsewhere'"},
  };
  return acts;
}

std::string AllSaid(const TestRun& run) {
  std::string all;
  for (const Box& box : run.boxes) all += "[" + box.text + "]";
  return all + "[" + run.s.message + "]";
}

class TwoPrograms : public testing::Test {
 protected:
  void Make(TestRun& run) { path = StartOnTwoStructures(run); }
  bool Has(const std::string& file, const std::string& rows) const {
    return ToInteger(RawValue(file, "SELECT EXISTS (SELECT 1 FROM " + rows + ")")) == 1;
  }
  bool HasInBackup(const std::string& rows) const {
    const std::vector<Backup> all = Backups(path);
    return std::any_of(all.begin(), all.end(), [&](const Backup& backup) { return Has(backup.path, rows); });
  }

  std::string path;
};

// What the other program has stored is there afterwards, or the user was asked or told, or it is in a backup of what a
// restore has replaced; what was done here is there, or the user was told.
TEST_F(TwoPrograms, lose_nothing_of_each_other_without_a_word) {
  for (const ActHere& here : Acts())
    for (const ActThere& there : ActsThere()) {
      SCOPED_TRACE(std::string(here.name) + " while the other one changes " + there.name);
      TestRun run;
      Make(run);
      bool committed = false;
      run.answers.clear();
      here.act(run, [&] {
        committed = OtherProgram(path).Commit(there.sql);
        run.boxes.clear();
      });
      ASSERT_TRUE(committed);
      const std::string said = AllSaid(run);
      run.s.db.Close();
      Database db;
      db.Open(path);
      EXPECT_EQ(WhatIsUnsound(db), "") << said;
      db.Close();
      const bool told = said.find("nother program") != std::string::npos || said.find("not found") != std::string::npos;
      const bool kept = Has(path, there.found);
      EXPECT_TRUE(kept || told || HasInBackup(there.found)) << "lost without a word: " << said;
      EXPECT_TRUE(here.is_done == nullptr || Has(path, here.is_done) || said.size() > 4) << "not done, and not told";
    }
}

TEST_F(TwoPrograms, keep_what_each_has_typed_into_fields_of_one_record) {
  TestRun run;
  Make(run);
  EditFlare(run);
  ASSERT_TRUE(OtherProgram(path).Commit(std::string("UPDATE ") + kVolume));
  run.Click("cmdSaveExit");
  const std::vector<std::string> boxes = run.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_EQ(boxes[0].find("Another program has changed this record since the edit began. What it stored was kept:"), 0u)
      << boxes[0];
  EXPECT_NE(boxes[0].find(": 99"), std::string::npos) << boxes[0];
  EXPECT_TRUE(Has(path, "EA_FLA WHERE EA_ID_AK=1 AND OP_HR=701 AND VOL_FLARED=99"));
}

TEST_F(TwoPrograms, ask_whose_value_counts_where_both_have_changed_a_field) {
  for (const bool here : {false, true}) {
    TestRun run;
    Make(run);
    EditFlare(run);
    ASSERT_TRUE(OtherProgram(path).Commit("UPDATE EA_FLA SET OP_HR=555 WHERE EA_ID_AK=1"));
    run.answers = {here ? Button::kYes : Button::kNo};
    run.Click("cmdSaveEdits");
    const std::vector<std::string> boxes = run.TakeBoxes();
    ASSERT_FALSE(boxes.empty());
    EXPECT_NE(boxes[0].find(": 555 there, 701 here\n\nSave what was typed here?"), std::string::npos) << boxes[0];
    EXPECT_EQ(ToNumber(RawValue(path, "SELECT OP_HR FROM EA_FLA WHERE EA_ID_AK=1")), here ? 701 : 555);
    EXPECT_TRUE(run.s.editing);
    EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "701");
  }
}

TEST_F(TwoPrograms, wait_for_each_other_and_say_so) {
  for (const ActHere& here : Acts()) {
    SCOPED_TRACE(here.name);
    TestRun run;
    Make(run);
    OtherProgram other(path);
    here.act(run, [&] {
      run.boxes.clear();
      other.Hold();
    });
    other.LetGo();
    const std::string said = AllSaid(run);
    run.s.db.Close();
    Database db;
    db.Open(path);
    EXPECT_EQ(WhatIsUnsound(db), "");
    db.Close();
    EXPECT_NE(said, "[]") << "nothing was told";
    const bool done = here.is_done == nullptr || Has(path, here.is_done);
    EXPECT_TRUE(done || said.find("locked") != std::string::npos || said.find("could not be read") != std::string::npos)
        << said;
  }
}

}  // namespace
}  // namespace merlu::test
