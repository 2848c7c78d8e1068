// A further equipment type is its sheet, one row in the table of types, and its tables in the schema. This program is
// built with one more of each, and nothing else.
#include <gtest/gtest.h>

#include <algorithm>

#include "exchange/description_sheets.h"
#include "exchange/import_file.h"
#include "records/judge_records.h"
#include "script/catalogue.h"
#include "script/rule_reference.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

void AddTables(const std::string& inventory) {
  const auto belongs = [](const std::string& key, const std::string& to) {
    return "FOREIGN KEY (" + key + ") REFERENCES " + to + " (" + key + ") ON DELETE CASCADE ON UPDATE CASCADE)";
  };
  Raw(inventory,
      {"CREATE TABLE ED_COM (ED_ID_AK INTEGER PRIMARY KEY, MODEL TEXT COLLATE NOCASE, " +
           belongs("ED_ID_AK", "ED_EQUIP_DESC"),
       "CREATE TABLE EA_COM (EA_ID_AK INTEGER PRIMARY KEY, OP_HR DOUBLE, " + belongs("EA_ID_AK", "EA_EQUIP_ACTV"),
       "CREATE TABLE H_ED_COM AS SELECT * FROM ED_COM WHERE 0",
       "CREATE TABLE H_EA_COM AS SELECT * FROM EA_COM WHERE 0"});
}

class SeventeenthType : public testing::Test {
 protected:
  void SetUp() override {
    AddTables(CopyTemplate(run.folder));
    run.StartWith("COM", "C1");
    run.AddMonth();
  }
  TestRun run;
};

TEST_F(SeventeenthType, is_in_every_list_of_types) {
  EXPECT_EQ(AllSheets().size(), 17u);
  EXPECT_EQ(AllSheets().back()->type, "COM");
  const Texts tables = ImportTables();
  for (const char* table : {"ED_COM", "EA_COM"})
    EXPECT_NE(std::find(tables.begin(), tables.end(), table), tables.end()) << table;
  EXPECT_EQ(ExportedTables().back().name, "ED_COM");
  EXPECT_EQ(Catalogue()["sheets"].back()["frame"], "fraCOM");
  EXPECT_NE(RuleReference().find("## Compressor (COM)"), std::string::npos);
}

TEST_F(SeventeenthType, is_added_typed_and_checked_like_the_others) {
  run.GoTo("COM", "C1", Mode::kDesc);
  const int node = run.s.tree.Find(run.Key("COM", "C1"));
  EXPECT_EQ(run.s.tree.nodes[static_cast<std::size_t>(node)].text, "Compressor: C1");
  run.Keep({{"txtCOM_Model", "C-100"}});
  EXPECT_EQ(run.Sql("SELECT MODEL FROM ED_COM"), Value(std::string("C-100")));
  run.GoTo("COM", "C1", Mode::kActv);
  run.Keep({{"txtCOM_HrsOperated", "745"}});
  EXPECT_EQ(run.Sql("SELECT OP_HR FROM EA_COM"), Value(745.0));
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  run.TakeBoxes();
  EXPECT_EQ(run.Sql("SELECT FieldID||': '||[Desc] FROM QC WHERE EquipType='COM'"),
            Value(std::string("Hours Operated: Value not in expected range (0 to 744)")));
}

TEST_F(SeventeenthType, is_judged_from_its_rows) {
  Texts judged;
  for (const Mode mode : {Mode::kDesc, Mode::kActv})
    JudgeAll(run.s.db, {.mode = mode}, [&](const JudgedRecord& record) {
      if (record.sheet == nullptr) return;
      for (const JudgedFinding& finding : StandingFindings(*record.verdicts)) judged.emplace_back(finding.tag);
    });
  EXPECT_EQ(judged, (Texts{"Model No.", "Hours Operated", "Hours Operated"}));
}

TEST_F(SeventeenthType, goes_with_its_structure) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.answers = {Button::kOK};
  run.Click("mnuEDelete");
  EXPECT_EQ(run.Sql("SELECT (SELECT COUNT(*) FROM ED_COM)+(SELECT COUNT(*) FROM EA_COM)"), Value(std::int64_t{0}));
}

}  // namespace
}  // namespace merlu::test
