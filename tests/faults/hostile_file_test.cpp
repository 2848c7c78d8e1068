// Database files that somebody has tampered with, opened as the working file: each is refused with a message, or the
// program lives with it.
#include <gtest/gtest.h>

#include "base/fault.h"
#include "forms/desk.h"
#include "inventory.h"
#include "script/json_views.h"
#include "session/messages.h"
#include "shell/dialogs.h"
#include "shell/main_program.h"
#include "shell/routing.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

// Does what a user might do, wherever it is possible.
class Visitor {
 public:
  explicit Visitor(TestRun& run) : run_(run) {}

  void UseEverything() {
    for (int mode = 0; mode < 2; ++mode) {
      VisitNodes();
      Press("mnuSetEditMode");
    }
    if (!run_.s.tree.nodes.empty()) Do([&] { ClickNode(run_.s, 0); });
    for (const char* command : {"cmdUSER_AddSurvey", "mnuEStructB", "mnuFExport", "frmInvQCPrint"}) Press(command);
  }

 private:
  static constexpr int kMostNodes = 60;

  // As the front ends do: a fault that an act passes on is told.
  template <typename Work>
  void Do(Work&& work) {
    try {
      work();
    } catch (const Fault& fault) {
      TellFault(run_.s, fault);
    }
  }

  void Press(const std::string& name) {
    Form* form = run_.s.main;
    if (form == nullptr || run_.s.ended) return;
    run_.answers = {Button::kYes};
    Do([&] { act::Click(run_.s.desk, *form, name); });
    if (run_.boxes.size() > 1000) run_.boxes.clear();
  }

  void VisitNodes() {
    EXPECT_FALSE(Line(TreeJson(run_.s.tree)).empty());
    const int count = std::min(kMostNodes, static_cast<int>(run_.s.tree.nodes.size()));
    for (int node = 0; node < count && node < static_cast<int>(run_.s.tree.nodes.size()); ++node) {
      Do([&] { ClickNode(run_.s, node); });
      for (const Form* form : run_.s.desk.showing)
        for (const Control& control : form->controls()) Line(ControlJson(*form, control));
      for (const char* command : {"cmdQC", "cmdEdit", "cmdSaveEdits", "cmdSaveExit", "cmdCANCEL"}) Press(command);
    }
  }

  TestRun& run_;
};

struct Tampering {
  const char* name;
  Texts statements;
};

std::string Remade(const std::string& table) {
  return "CREATE TABLE made AS SELECT * FROM " + table;
}

const std::vector<Tampering>& Tamperings() {
  static const std::vector<Tampering> all = {
      {"AViewForATable", {Remade("QC"), "DROP TABLE QC", "CREATE VIEW QC AS SELECT * FROM made"}},
      {"ATableWithoutRowKeys",
       {"DROP TABLE QC", "CREATE TABLE QC (UserID TEXT PRIMARY KEY, Month INTEGER) WITHOUT ROWID"}},
      {"TablesWithoutTypesAndKeys",
       {"PRAGMA foreign_keys=OFF", "DROP VIEW Structures", Remade("PD_PLATFORM_DESC"), "DROP TABLE PD_PLATFORM_DESC",
        "ALTER TABLE made RENAME TO PD_PLATFORM_DESC",
        "UPDATE PD_PLATFORM_DESC SET PD_ID_AK='abc', STRUCT_NUM=17.5, Name=x'00ff00'"}},
      {"AMissingColumn", {"ALTER TABLE EA_FLA DROP COLUMN OP_HR", "ALTER TABLE QC DROP COLUMN FieldID"}},
      {"AMissingTable", {"DROP TABLE ED_STO"}},
      {"VeryLongTexts",
       {"UPDATE PD_PLATFORM_DESC SET Name=hex(zeroblob(500000)), Area=hex(zeroblob(500000))",
        "UPDATE CO_COMPANY SET CO_NAME=hex(zeroblob(500000))",
        "UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT=hex(zeroblob(50000))"}},
      {"VeryLongIdentifiers",
       {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM=hex(zeroblob(20000)) WHERE PD_ID_AK=1",
        "UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID=hex(zeroblob(500000)) WHERE ED_ID_AK=3"}},
      {"Blobs",
       {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM=x'00ff', Name=x'8080'", "UPDATE EA_FLA SET OP_HR=x'31'",
        "UPDATE CO_COMPANY SET Phone=x'00'", "UPDATE EA_EQUIP_ACTV SET EA_QC_DT=x'ff', EA_STATUS=x'41'"}},
      {"TextsForNumbers",
       {"UPDATE EA_FLA SET OP_HR='many', VOL_FLARED='1e999'", "UPDATE PD_PLATFORM_DESC SET LATITUDE='north'",
        "UPDATE PA_PLATFORM_ACTV SET PROD_OIL=9e999, PROD_NG=-9e999"}},
      {"InvalidUtf8",
       {"UPDATE PD_PLATFORM_DESC SET Name=CAST(x'ff41fe' AS TEXT), STRUCT_NUM=CAST(x'c3' AS TEXT)||PD_ID_AK",
        "UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID=CAST(x'80' AS TEXT)||ED_ID_AK",
        "UPDATE CO_COMPANY SET RIMA_CO_NUM=CAST(x'f09f' AS TEXT)"}},
      {"NegativeKeys",
       {"UPDATE PD_PLATFORM_DESC SET PD_ID_AK=-PD_ID_AK", "UPDATE ED_EQUIP_DESC SET ED_ID_AK=ED_ID_AK-1000",
        "UPDATE EA_EQUIP_ACTV SET EA_ID_AK=1-EA_ID_AK"}},
      {"HugeKeys",
       {"UPDATE PD_PLATFORM_DESC SET PD_ID_AK=9223372036854775807 WHERE PD_ID_AK=1",
        "UPDATE ED_EQUIP_DESC SET ED_ID_AK=9223372036854775807 WHERE ED_ID_AK=1",
        "UPDATE EA_EQUIP_ACTV SET EA_ID_AK=-9223372036854775807 WHERE EA_ID_AK=1"}},
      {"RowsWithoutParents",
       {"PRAGMA foreign_keys=OFF", "DELETE FROM PD_PLATFORM_DESC WHERE PD_ID_AK=1",
        "DELETE FROM ED_EQUIP_DESC WHERE ED_ID_AK=20", "DELETE FROM EA_EQUIP_ACTV WHERE EA_ID_AK=40"}},
      {"RowsWithoutTheirTypes", {"DELETE FROM ED_FLA", "DELETE FROM EA_BOI", "DELETE FROM PA_PLATFORM_ACTV"}},
      {"UnknownTypes",
       {"UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP='XXX'", "UPDATE EA_EQUIP_ACTV SET EA_EQUIP_TYP='LONGER TYPE'"}},
      {"TypesOfOthers", {"UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP='FLA'", "UPDATE EA_EQUIP_ACTV SET EA_EQUIP_TYP='VEN'"}},
      {"StrangeMonths",
       {"UPDATE PA_PLATFORM_ACTV SET PA_MO=13 WHERE SA_ID_AK=1", "UPDATE EA_EQUIP_ACTV SET EA_MO=-1 WHERE EA_ID_AK<9",
        "UPDATE EA_EQUIP_ACTV SET EA_MO=123456789012 WHERE EA_ID_AK=9", "UPDATE PA_PLATFORM_ACTV SET PA_YR=NULL"}},
      {"NoMonthsAtAll", {"UPDATE SYS_CONFIG SET SYS_MAX_MO=NULL, sys_yr=NULL"}},
      {"Duplicates",
       {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='1', STRUCT_NUM='1'",
        "UPDATE ED_EQUIP_DESC SET ED_MERLU_EQUIP_ID='SAME'", "INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES ('X01234')",
        "INSERT INTO CO_COMPANY (RIMA_CO_NUM) VALUES (NULL)"}},
      {"NullsEverywhere",
       {"UPDATE PD_PLATFORM_DESC SET RIMA_CO_NUM=NULL, CMPLX_ID_NUM=NULL, STRUCT_NUM=NULL, Area=NULL",
        "UPDATE ED_EQUIP_DESC SET ED_EQUIP_TYP=NULL, ED_MERLU_EQUIP_ID=NULL", "UPDATE EA_EQUIP_ACTV SET EA_MO=NULL"}},
      {"AMillionConfigurations",
       {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<1000000) INSERT INTO SYS_CONFIG SELECT "
        "2017,12,i FROM n"}},
      {"AHundredThousandFindings",
       {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<100000) INSERT INTO QC "
        "(UserID,CmplxID,StructID,EquipType,EquipID,Month,Year,Level,FieldID) SELECT "
        "'01234','10001','1','FLA',NULL,1,2017,'EQUIPMENT',i FROM n"}},
      {"ACircleOfReferences",
       {"PRAGMA foreign_keys=OFF", "DROP TABLE QCInventory",
        "CREATE TABLE QCInventory (Level TEXT, Parent TEXT REFERENCES QCInventory(Level) ON DELETE CASCADE)"}},
      {"UniqueIndexesAndChecks",
       {"CREATE UNIQUE INDEX one_month ON PA_PLATFORM_ACTV (PA_MO,PD_ID_AK)",
        "CREATE UNIQUE INDEX one_field ON QC (FieldID)"}},
  };
  return all;
}

class HostileFile : public testing::TestWithParam<Tampering> {
 protected:
  HostileFile() {
    run.program_folder = run.data_folder = run.folder.path();
    fs::copy_file(TemplatePath(), run.folder.path("mr.dbt"));
    InventoryPlan plan;
    plan.structures = 2;
    plan.equipment = 32;
    plan.months = 2;
    MakeInventory(TemplatePath(), path, plan);
  }
  TestRun run;
  const std::string path = run.folder.path("inventory.mdb");
};

TEST_P(HostileFile, IsRefusedWithAMessageOrLivedWith) {
  Raw(path, GetParam().statements);
  run.Start(path);
  if (!run.s.db.IsOpen()) {
    ASSERT_FALSE(run.boxes.empty());
    EXPECT_NE(run.boxes.back().text.find("Error # "), std::string::npos) << run.boxes.back().text;
  }
  Visitor(run).UseEverything();
  run.s.db.Close();
  EXPECT_EQ(NullToEmpty(RawValue(path, "PRAGMA integrity_check")), "ok");
}

INSTANTIATE_TEST_SUITE_P(All, HostileFile, testing::ValuesIn(Tamperings()),
                         [](const auto& info) { return std::string(info.param.name); });

// A month or year outside the calendar would be counted up to.
TEST_F(HostileFile, WithAMonthOrYearThatCannotBeIsRefused) {
  for (const char* value :
       {"SYS_MAX_MO=13", "SYS_MAX_MO=-1", "SYS_MAX_MO=2147483647", "SYS_MAX_MO=9223372036854775807",
        "SYS_MAX_MO=4294967297", "sys_yr=-2017", "sys_yr=20170", "sys_yr=9223372036854775807", "SYS_MAX_MO='99'"}) {
    Raw(path, {"UPDATE SYS_CONFIG SET SYS_MAX_MO=2, sys_yr=2017", std::string("UPDATE SYS_CONFIG SET ") + value});
    run.Start(path);
    const Texts boxes = run.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1u) << value;
    EXPECT_NE(boxes[0].find("Error # 3428"), std::string::npos) << boxes[0];
    EXPECT_FALSE(run.s.db.IsOpen()) << value;
  }
}

// Nothing that a file brings along is run.
TEST_F(HostileFile, WithTriggersIsUsedAsIfItHadNone) {
  Raw(path, {"CREATE TRIGGER wipe AFTER UPDATE ON CO_COMPANY BEGIN DELETE FROM PD_PLATFORM_DESC; END",
             "CREATE TRIGGER refuse BEFORE UPDATE ON SYS_CONFIG BEGIN SELECT RAISE(ABORT,'no'); END"});
  run.Start(path);
  run.Click("cmdEdit");
  run.Set("txtUSER_City", "Elsewhere");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.Count("PD_PLATFORM_DESC"), 2);
  run.Click("cmdUSER_AddSurvey");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Survey Month added to Activity Database"});
}

}  // namespace
}  // namespace merlu::test
