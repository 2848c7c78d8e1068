// This program is built with one more of each thing that the recipes of docs/architecture.md add: a type with a field
// and a rule, a screen, a command of the menus and one of the command line.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "command/command_texts.h"
#include "command/commands.h"
#include "exchange/description_sheets.h"
#include "exchange/import_file.h"
#include "forms/list_model.h"
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

class Recipes : public testing::Test {
 protected:
  void SetUp() override {
    AddTables(CopyTemplate(run.folder));
    run.StartWith("COM", "C1");
    run.AddMonth();
  }
  TestRun run;
};

TEST_F(Recipes, a_type_is_in_every_list_of_types) {
  EXPECT_EQ(AllSheets().size(), 17u);
  EXPECT_EQ(AllSheets().back()->type, "COM");
  const Texts tables = ImportTables();
  for (const char* table : {"ED_COM", "EA_COM"})
    EXPECT_NE(std::find(tables.begin(), tables.end(), table), tables.end()) << table;
  EXPECT_EQ(ExportedTables().back().name, "ED_COM");
  EXPECT_EQ(Catalogue()["sheets"].back()["frame"], "fraCOM");
  EXPECT_NE(RuleReference().find("## Compressor (COM)"), std::string::npos);
}

TEST_F(Recipes, a_type_is_added_typed_and_checked_like_the_others) {
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

TEST_F(Recipes, a_rule_judges_the_stored_rows) {
  Texts judged;
  for (const Mode mode : {Mode::kDesc, Mode::kActv})
    JudgeAll(run.s.db, {.mode = mode}, [&](const JudgedRecord& record) {
      if (record.IsOfStructure()) return;
      for (const JudgedFinding& finding : StandingFindings(*record.verdicts)) judged.emplace_back(finding.tag);
    });
  EXPECT_EQ(judged, (Texts{"Model No.", "Hours Operated", "Hours Operated"}));
}

TEST_F(Recipes, a_type_goes_with_its_structure) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.answers = {Button::kOK};
  run.Click("mnuEDelete");
  EXPECT_EQ(run.Sql("SELECT (SELECT COUNT(*) FROM ED_COM)+(SELECT COUNT(*) FROM EA_COM)"), Value(std::int64_t{0}));
}

TEST_F(Recipes, a_screen_opens_from_the_menus_in_the_mode_of_its_command) {
  run.GoTo("COM", "C1", Mode::kDesc);
  EXPECT_NE(run.WhyNotClick("mnuRHours"), "");
  run.GoTo("COM", "C1", Mode::kActv);
  run.Keep({{"txtCOM_HrsOperated", "12.5"}});
  Texts shown;
  run.dialogs.push_back([&](Form& form) {
    const ListModel& list = *form.At("lvwHRS_List").model;
    for (int row = 0; row < list.RowCount(); ++row) shown.push_back(list.Text(row, 0) + ": " + list.Text(row, 1));
    run.Click("cmdClose");
  });
  run.Click("mnuRHours");
  EXPECT_EQ(shown, (Texts{"C1: 12.5", "C1: "}));  // of both months
}

TEST_F(Recipes, a_command_is_in_the_help_and_does_its_work) {
  run.GoTo("COM", "C1", Mode::kActv);
  run.Keep({{"txtCOM_HrsOperated", "12.5"}});
  EXPECT_NE(CommandList().find("  hours "), std::string::npos) << CommandList();
  std::ostringstream out, err;
  Console console{out, err};
  EXPECT_EQ(RunCommand(*FindCommand("hours"), {run.s.path}, console), Status::kWell) << err.str();
  EXPECT_EQ(out.str(), "12.5 hours\n");
}

}  // namespace
}  // namespace merlu::test
