#include <gtest/gtest.h>

#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<Texts>;

constexpr const char* kStructureList = "lvwSTRUCTURE_QCResults";
constexpr const char* kSurveyList = "lvwSURVEY_QCResults";
constexpr const char* kSurvey = "K12345 12017";

struct Row {
  std::string level, complex, structure, type, id, field;
  int month = 1;
  std::string mode = "ACTV";
  std::string user = "12345";
  int year = 2017;
};

void Find(TestRun& run, const Row& row) {
  run.s.db.Execute(
      "INSERT INTO QC (UserID,Month,Year,Level,CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
      "VALUES (?,?,?,?,?,?,?,?,?,'Wrong','why',?)",
      {row.user, std::int64_t{row.month}, std::int64_t{row.year}, row.level, row.complex, row.structure, row.type,
       row.id, row.field, row.mode});
}

Row OfFlare(const std::string& field) {
  return {"EQUIPMENT", "1001", "1", "FLA", "F1", field};
}
Row OfStructure(const std::string& field) {
  return {"STRUCTURE", "1001", "1", "NA", "NA", field};
}

void GoToMonth(TestRun& run, int month = 1) {
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", month));
}

TEST(ResultsLists, of_every_sheet_have_the_same_columns) {
  TestRun run;
  run.StartWithStructure();
  for (const SheetSpec* sheet : AllSheets()) {
    run.Select(run.Key());
    run.AddEquipment(sheet->type, "X1");
    const Control& list = run.At("lvw" + sheet->letters + "_QCResults");
    EXPECT_EQ(list.columns, (Texts{"Field Name", "Error Description", "Operator Comment"})) << sheet->type;
    EXPECT_EQ(run.Text("lbl" + sheet->letters + "_QCResults"), "QC Results") << sheet->type;
    EXPECT_EQ(run.At("cmd" + sheet->letters + "_EditQCComment").caption, "Edit QC Comment") << sheet->type;
  }
  EXPECT_EQ(run.At(kSurveyList).columns, (Texts{"Field Name", "Error Description", "Operator Comment"}));
  EXPECT_EQ(run.At(kStructureList).columns, (Texts{"Error Source", "Error Description", "Operator Comment"}));
}

TEST(ResultsLists, of_every_sheet_show_the_findings_of_their_own_type) {
  TestRun run;
  run.StartWithStructure();
  for (const SheetSpec* sheet : AllSheets())
    Find(run, {"EQUIPMENT", "1001", "1", sheet->type, "X1", "Field of " + sheet->type, 0, "DESC", "12345", 0});
  for (const SheetSpec* sheet : AllSheets()) {
    run.Select(run.Key());
    run.AddEquipment(sheet->type, "X1");
    EXPECT_EQ(run.At(sheet->list()).rows, (Rows{{"Field of " + sheet->type, "Wrong", "why"}})) << sheet->type;
  }
}

TEST(ResultsLists, of_an_equipment_show_both_modes_of_its_month_and_nothing_else) {
  TestRun run;
  run.StartWith("FLA", "F1");
  Find(run, OfFlare("second"));
  Row row = OfFlare("first by name");
  row.mode = "DESC";
  Find(run, row);
  row = OfFlare("other month");
  row.month = 2;
  Find(run, row);
  row = OfFlare("other year");
  row.year = 2016;
  Find(run, row);
  row = OfFlare("other flare");
  row.id = "F2";
  Find(run, row);
  row = OfFlare("other type");
  row.type = "VEN";
  Find(run, row);
  row = OfFlare("other structure");
  row.structure = "2";
  Find(run, row);
  row = OfFlare("other operator");
  row.user = "54321";
  Find(run, row);
  run.GoTo("FLA", "F1", Mode::kActv);
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows, (Rows{{"second", "Wrong", "why"}, {"first by name", "Wrong", "why"}}));
}

TEST(ResultsLists, show_an_absent_comment_as_an_empty_one) {
  TestRun run;
  run.StartWith("FLA", "F1");
  Find(run, OfFlare("Hours"));
  run.s.db.Execute("UPDATE QC SET Comments=NULL");
  run.GoTo("FLA", "F1", Mode::kActv);
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows, (Rows{{"Hours", "Wrong", ""}}));
}

TEST(ResultsLists, are_refilled_by_a_run_a_selection_and_a_change_of_mode) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Click("cmdQC");
  const Rows description = run.At("lvwFLA_QCResults").rows;
  EXPECT_EQ(description.size(), 9u);
  run.GoTo("FLA", "F1", Mode::kActv);
  EXPECT_TRUE(run.At("lvwFLA_QCResults").rows.empty());
  run.Click("cmdQC");
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows, (Rows{{"Hours Operated, excl. upsets", "Required field left blank", ""},
                                                   {"Volume Flared, incl. upsets", "Required field left blank", ""}}));
  run.Select(run.Key("", "", 1));
  run.s.db.Execute("DELETE FROM QC WHERE FieldID LIKE 'Hours%'");
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows.size(), 1u);
  run.ChangeTo(Mode::kDesc);
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows, description);
}

TEST(ResultsLists, forget_which_row_was_selected_when_they_are_refilled) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdQC");
  run.Pick("lvwFLA_QCResults", 1);
  run.Click("cmdQC");
  EXPECT_TRUE(run.At("lvwFLA_QCResults").picked.empty());
}

TEST(ResultsLists, tell_when_a_month_of_an_equipment_was_last_checked) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC:          ");
  run.clock = {2017, 11, 7, 9, 5, 30};
  run.Click("cmdQC");
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC: Nov 07, 2017 09:05");
  run.Select(run.Key("", "", 1));
  run.Select(run.Key("FLA", "F1", 1));
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC: Nov 07, 2017 09:05");
}

TEST(ResultsLists, tell_no_date_of_a_description_unless_one_is_stored) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Click("cmdQC");
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC:          ");
  EXPECT_TRUE(IsNull(run.Sql("SELECT ED_QC_DT FROM ED_EQUIP_DESC")));
  run.s.db.Execute("UPDATE ED_EQUIP_DESC SET ED_QC_DT='2017-01-02 03:04:00'");
  run.Select(run.Key());
  run.Select(run.Key("FLA", "F1"));
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC: Jan 02, 2017 03:04");
}

TEST(ResultsLists, of_a_structure_put_a_summary_of_each_equipment_below_its_own_findings) {
  TestRun run;
  run.StartWithStructure();
  Find(run, OfFlare("a"));
  Find(run, OfFlare("b"));
  Row row = OfFlare("c");
  row.type = "NGE";
  row.id = "E7";
  Find(run, row);
  row = OfFlare("d");
  row.month = 2;
  Find(run, row);
  row = OfFlare("e");
  row.complex = "1002";
  Find(run, row);
  Find(run, OfStructure("Oil Production"));
  row = OfStructure("other month");
  row.month = 2;
  Find(run, row);
  row = OfStructure("other structure");
  row.structure = "2";
  Find(run, row);
  Find(run, {"SURVEY", "NA", "NA", "NA", "NA", "survey"});
  GoToMonth(run);
  EXPECT_EQ(run.At(kStructureList).rows, (Rows{{"Oil Production", "Wrong", "why"},
                                               {"Combustion Flare: F1", "2 errors found", "n/a"},
                                               {"NG Engine: E7", "1 errors found", "n/a"}}));
}

TEST(ResultsLists, of_a_structure_show_its_findings_of_both_modes) {
  TestRun run;
  run.StartWithStructure();
  Row row = OfStructure("Area");
  row.mode = "DESC";
  Find(run, row);
  Find(run, OfStructure("Oil Production"));
  GoToMonth(run);
  EXPECT_EQ(run.At(kStructureList).rows, (Rows{{"Area", "Wrong", "why"}, {"Oil Production", "Wrong", "why"}}));
}

TEST(ResultsLists, call_each_type_in_a_structure_s_summary_by_its_long_name) {
  TestRun run;
  run.StartWithStructure();
  const std::vector<std::pair<std::string, std::string>> names = {{"AMI", "Amine Unit"},
                                                                  {"BOI", "Boiler, Heater, or Burner"},
                                                                  {"DIE", "Diesel or Gasoline Engine"},
                                                                  {"DRI", "Drilling Equipment"},
                                                                  {"FLA", "Combustion Flare"},
                                                                  {"FUG", "Fugitives"},
                                                                  {"GLY", "Glycol Unit"},
                                                                  {"LOA", "Loading Operation"},
                                                                  {"LOS", "Losses from Flashing"},
                                                                  {"MUD", "Mud Degassing"},
                                                                  {"NGE", "NG Engine"},
                                                                  {"NGT", "NG Turbine"},
                                                                  {"PNE", "Pneumatic Pump"},
                                                                  {"PRE", "Pneumatic Controllers"},
                                                                  {"STO", "Storage Tank"},
                                                                  {"VEN", "Cold Vent"}};
  Rows expected;
  for (const auto& [type, name] : names) {
    Row row = OfFlare("Field");
    row.type = type;
    row.id = "X9";
    Find(run, row);
    expected.push_back({name + ": X9", "1 errors found", "n/a"});
  }
  GoToMonth(run);
  EXPECT_EQ(run.At(kStructureList).rows, expected);
}

TEST(ResultsLists, tell_when_a_structure_was_last_checked_in_each_mode) {
  TestRun run;
  run.StartWithStructure();
  EXPECT_EQ(run.Text("lblSTRUCTURE_QCDate"), "Date of Last QC:          ");
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET PD_QC_DT='2017-01-02 03:04:00'");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PA_QC_DT='2017-05-06 17:08:00'");
  run.SelectRoot();
  run.Select(run.Key());
  EXPECT_EQ(run.Text("lblSTRUCTURE_QCDate"), "Date of Last QC: Jan 02, 2017 03:04");
  GoToMonth(run);
  EXPECT_EQ(run.Text("lblSTRUCTURE_QCDate"), "Date of Last QC: May 06, 2017 17:08");
}

TEST(ResultsLists, of_a_survey_sum_up_each_structure_over_all_months) {
  TestRun run;
  run.StartWithStructure();
  run.AddStructure("1002", "1", "B");
  Find(run, {"SURVEY", "NA", "NA", "NA", "NA", "Sum"});
  Row row{"SURVEY", "NA", "NA", "NA", "NA", "Sum of February"};
  row.month = 2;
  Find(run, row);
  Find(run, OfFlare("a"));
  Find(run, OfStructure("b"));
  row = OfFlare("c");
  row.month = 2;
  Find(run, row);
  row = OfStructure("d");
  row.complex = "1002";
  row.month = 0;
  row.year = 0;
  row.mode = "DESC";
  Find(run, row);
  run.ChangeTo(Mode::kActv);
  run.Select(kSurvey);
  EXPECT_EQ(run.At(kSurveyList).rows, (Rows{{"Sum", "Wrong", "why"},
                                            {"Structure: GI, 43, A", "3 errors found", "n/a"},
                                            {"Structure: GI, 43, B", "1 errors found", "n/a"}}));
}

TEST(ResultsLists, of_a_survey_leave_out_the_structures_of_another_operator) {
  TestRun run;
  run.StartWithStructure();
  Row row = OfStructure("a");
  row.user = "54321";
  Find(run, row);
  run.ChangeTo(Mode::kActv);
  run.Select(kSurvey);
  EXPECT_TRUE(run.At(kSurveyList).rows.empty());
  run.s.db.Execute("UPDATE QC SET UserID='12345'");
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET RIMA_CO_NUM='54321'");
  run.SelectRoot();
  run.Select(kSurvey);
  EXPECT_TRUE(run.At(kSurveyList).rows.empty());
}

TEST(ResultsLists, tell_a_fault_with_its_number_first) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.s.db.Execute("DROP TABLE QC");
  for (const std::string& key : {run.Key(), run.Key("FLA", "F1")}) {
    run.Select(key);
    const Texts boxes = run.TakeBoxes();
    EXPECT_EQ(boxes, Texts{"3078 no such table: QC"}) << key;
  }
}

TEST(ResultsLists, of_a_survey_leave_out_a_structure_without_findings) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.Select(kSurvey);
  EXPECT_TRUE(run.At(kSurveyList).rows.empty());
}

}  // namespace
}  // namespace merlu::test
