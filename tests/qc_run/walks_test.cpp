#include "qc_run/walks.h"

#include <gtest/gtest.h>

#include <array>

#include "qc/qc_log.h"
#include "rules/bounds.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;
using Equipment = std::vector<std::pair<std::string, std::string>>;  // type and ID

constexpr const char* kSurvey = "K12345 12017";

void Add(TestRun& run, const Equipment& equipment) {
  for (const auto& [type, id] : equipment) {
    run.Select(run.Key());
    run.AddEquipment(type, id);
  }
  run.Select(run.Key());
}

// A structure with that equipment, in view in description mode.
struct Structure {
  explicit Structure(const Equipment& equipment) {
    run.StartWithStructure();
    Add(run, equipment);
  }
  void GoToMonth() {
    run.ChangeTo(Mode::kActv);
    run.Select(run.Key("", "", 1));
  }
  void RunInMonth() {
    GoToMonth();
    run.Click("cmdQC");
  }
  // Values in the order of the query.
  Texts All(const std::string& sql) {
    Texts values;
    run.s.db.ForEach(sql, {}, [&](const RowView& row) { values.emplace_back(row.Text(0)); });
    return values;
  }
  Texts Checked() { return All("SELECT DISTINCT EquipID FROM QC WHERE Level='EQUIPMENT' ORDER BY EquipID"); }
  void MarkInactive(const std::string& id) {
    run.s.db.Execute(
        "UPDATE EA_EQUIP_ACTV SET EA_STATUS='I' WHERE ED_ID_AK=(SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE "
        "ED_MERLU_EQUIP_ID=?)",
        {id});
  }
  TestRun run;
};

const Equipment kOneOfEach = {{"AMI", "X"}, {"BOI", "X"}, {"DIE", "X"}, {"DRI", "X"}, {"FLA", "X"}, {"FUG", "X"},
                              {"GLY", "X"}, {"LOA", "X"}, {"LOS", "X"}, {"MUD", "X"}, {"NGE", "X"}, {"NGT", "X"},
                              {"PNE", "X"}, {"PRE", "X"}, {"STO", "X"}, {"VEN", "X"}};
const char* const kTypesInOrder =
    "SELECT EquipType FROM QC WHERE Level='EQUIPMENT' GROUP BY EquipType ORDER BY MIN(rowid)";

TEST(Walks, over_a_structure_take_twelve_types_in_their_order) {
  Structure structure(kOneOfEach);
  structure.run.Click("cmdQC");
  EXPECT_EQ(structure.All(kTypesInOrder),
            (Texts{"DIE", "AMI", "BOI", "FLA", "FUG", "GLY", "DRI", "LOA", "NGE", "NGT", "STO", "VEN"}));
}

TEST(Walks, over_a_structure_s_month_leave_the_fugitives_out_as_well) {
  Structure structure(kOneOfEach);
  structure.RunInMonth();
  EXPECT_EQ(structure.All(kTypesInOrder),
            (Texts{"DIE", "AMI", "BOI", "FLA", "GLY", "DRI", "LOA", "NGE", "NGT", "STO", "VEN"}));
}

TEST(Walks, leave_out_four_types_that_an_equipment_s_own_run_checks) {
  for (const auto& [type, field] :
       Values{{"PNE", "Fuel Usage Rate (SCF/hr)"}, {"LOS", "Oil/Condensate Throughput"}, {"MUD", "Days per Month"}}) {
    Structure structure(Equipment{{type, "X"}});
    structure.run.GoTo(type, "X", Mode::kActv);
    structure.run.Click("cmdQC");
    EXPECT_EQ(structure.run.Finding(field), kBlankFinding) << type;
  }
  Structure controllers(Equipment{{"PRE", "X"}});
  controllers.run.Select(controllers.run.Key("PRE", "X"));
  controllers.run.Click("cmdQC");
  EXPECT_EQ(controllers.run.Finding("Bleed Rate"), kBlankFinding);
}

TEST(Walks, leave_the_findings_of_those_types_as_they_are_and_count_them) {
  for (const std::string type : {"PRE", "PNE", "LOS", "MUD"}) {
    Structure structure(Equipment{{type, "X"}});
    structure.run.s.db.Execute(
        "INSERT INTO QC (UserID,Month,Year,Level,CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
        "VALUES ('12345',1,2017,'EQUIPMENT','1001','1',?,'X','Old','Wrong','','ACTV')",
        {type});
    structure.run.s.db.Execute(
        "UPDATE PA_PLATFORM_ACTV SET PROD_OIL=0,PROD_NG=0,THRU_OIL=0,THRU_NG=0,TOT_FUEL_USE_NG=0,TOT_FUEL_USE_GAS=0,"
        "TOT_FUEL_USE_DIE=0");
    for (const std::string& key : {structure.run.Key("", "", 1), std::string(kSurvey)}) {
      structure.run.ChangeTo(Mode::kActv);
      structure.run.Select(key);
      structure.run.Click("cmdQC");
      EXPECT_EQ(structure.run.TakeBoxes(), Texts{"QC completed with 1 errors found"}) << type << " " << key;
      EXPECT_EQ(structure.run.Findings(), (Values{{"Old", "Wrong"}})) << type << " " << key;
    }
  }
}

TEST(Walks, date_the_equipment_that_they_have_checked_and_no_other) {
  Structure structure(Equipment{{"BOI", "A"}, {"BOI", "B"}, {"DIE", "X"}, {"LOS", "Y"}});
  structure.MarkInactive("B");
  structure.RunInMonth();
  EXPECT_EQ(structure.All("SELECT ED_MERLU_EQUIP_ID FROM EA_EQUIP_ACTV JOIN ED_EQUIP_DESC USING (ED_ID_AK) WHERE "
                          "EA_QC_DT IS NOT NULL AND EA_MO=1 ORDER BY 1"),
            (Texts{"A", "X"}));
  EXPECT_EQ(structure.All("SELECT DISTINCT EA_MO FROM EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL"), Texts{"1"});
}

TEST(Walks, leave_what_ran_before_a_failed_write_undated_since_its_findings_may_be_lost) {
  Structure structure(Equipment{{"BOI", "A"}, {"BOI", "B"}});
  // the second boiler's findings are refused
  structure.run.s.db.Execute("CREATE UNIQUE INDEX once ON QC (FieldID) WHERE EquipType='BOI'");
  structure.RunInMonth();
  EXPECT_NE(structure.run.TakeBoxes(), Texts{});
  EXPECT_EQ(structure.Checked(), Texts{"A"});
  EXPECT_EQ(structure.All("SELECT 1 FROM EA_EQUIP_ACTV JOIN ED_EQUIP_DESC USING (ED_ID_AK) WHERE "
                          "ED_MERLU_EQUIP_ID='A' AND EA_QC_DT IS NOT NULL"),
            Texts{});
}

TEST(Walks, end_at_once_for_a_type_whose_first_equipment_is_inactive) {
  Structure structure(Equipment{{"FLA", "F1"}, {"FLA", "F2"}, {"VEN", "V1"}});
  structure.MarkInactive("F1");
  structure.RunInMonth();
  EXPECT_EQ(structure.Checked(), Texts{"V1"});
}

TEST(Walks, pass_over_a_later_inactive_equipment_alone) {
  Structure structure(Equipment{{"FLA", "F1"}, {"FLA", "F2"}, {"FLA", "F3"}});
  structure.MarkInactive("F2");
  structure.RunInMonth();
  EXPECT_EQ(structure.Checked(), (Texts{"F1", "F3"}));
  EXPECT_EQ(structure.run.TakeBoxes().size(), 1u);
}

TEST(Walks, check_every_description_whatever_the_month_s_status) {
  Structure structure(Equipment{{"FLA", "F1"}, {"FLA", "F2"}});
  structure.MarkInactive("F1");
  structure.MarkInactive("F2");
  structure.run.Click("cmdQC");
  EXPECT_EQ(structure.Checked(), (Texts{"F1", "F2"}));
}

TEST(Walks, do_not_check_again_what_was_checked_since_its_last_save_and_still_count_it) {
  Structure structure(Equipment{{"FLA", "F1"}});
  structure.RunInMonth();
  EXPECT_EQ(structure.Checked(), Texts{"F1"});
  const int errors = CountQCErrors(structure.run.s, structure.run.s.current);
  structure.run.s.db.Execute("UPDATE EA_FLA SET OP_HR=5,VOL_FLARED=5");
  structure.run.TakeBoxes();
  structure.run.Click("cmdQC");
  EXPECT_EQ(structure.Checked(), Texts{"F1"});
  EXPECT_EQ(structure.run.TakeBoxes(), Texts{"QC completed with " + std::to_string(errors) + " errors found"});
}

TEST(Walks, check_again_what_was_saved_since_its_last_check) {
  Structure structure(Equipment{{"FLA", "F1"}});
  structure.RunInMonth();
  structure.run.GoTo("FLA", "F1", Mode::kActv);
  structure.run.Keep({{"txtFLA_HrsOperated", "5"}, {"txtFLA_VolFlared", "5"}});
  EXPECT_EQ(structure.Checked(), Texts{"F1"});
  structure.RunInMonth();
  EXPECT_EQ(structure.Checked(), Texts{});
}

TEST(Walks, check_every_description_at_every_run) {
  Structure structure(Equipment{{"VEN", "V1"}});
  structure.run.Click("cmdQC");
  const std::int64_t before = structure.run.Count("QC WHERE EquipID='V1'");
  structure.run.s.db.Execute("UPDATE ED_VEN SET VENT_TYP='H'");
  structure.run.Click("cmdQC");
  EXPECT_EQ(structure.run.Count("QC WHERE EquipID='V1'"), before - 1);
}

TEST(Walks, stay_on_their_structure_and_their_month) {
  Structure structure(Equipment{{"FLA", "F1"}});
  structure.run.AddStructure("1002", "1", "B");
  structure.run.AddEquipment("FLA", "F2");
  structure.run.AddMonth();
  structure.RunInMonth();
  EXPECT_EQ(structure.Checked(), Texts{"F1"});
  EXPECT_EQ(structure.run.Count("QC WHERE Month<>1 OR Year<>2017"), 0);
  EXPECT_EQ(structure.All("SELECT EA_MO FROM EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL"), Texts{"1"});
}

TEST(Walks, end_for_every_type_of_an_inactive_structure) {
  Structure structure(Equipment{{"FLA", "F1"}});
  structure.GoToMonth();
  structure.run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  structure.run.Click("cmdQC");
  EXPECT_GT(structure.run.Count("QC WHERE Level='STRUCTURE'"), 0);
  EXPECT_EQ(structure.Checked(), Texts{});
}

TEST(Walks, leave_the_records_that_were_current) {
  Structure structure(Equipment{{"FLA", "F1"}, {"FLA", "F2"}});
  structure.run.AddMonth();
  structure.run.GoTo("FLA", "F2", Mode::kActv, 2);
  Session& s = structure.run.s;
  structure.run.Select(structure.run.Key("", "", 1));
  const std::array<std::int64_t, 4> before = {s.EA_ID_AK, s.ED_ID_AK, s.SA_ID_AK, s.PD_ID_AK};
  structure.run.Click("cmdQC");
  EXPECT_EQ((std::array<std::int64_t, 4>{s.EA_ID_AK, s.ED_ID_AK, s.SA_ID_AK, s.PD_ID_AK}), before);
  EXPECT_GT(structure.run.Count("QC WHERE Month=1"), 0);
}

TEST(Walks, stamp_the_structure_in_the_mode_of_the_run) {
  Structure structure(Equipment{});
  structure.run.clock = {2017, 7, 8, 9, 10, 11};
  structure.run.Click("cmdQC");
  EXPECT_EQ(NullToEmpty(structure.run.Sql("SELECT PD_QC_DT FROM PD_PLATFORM_DESC")), "2017-07-08 09:10:11");
  EXPECT_TRUE(IsNull(structure.run.Sql("SELECT PA_QC_DT FROM PA_PLATFORM_ACTV")));
  EXPECT_EQ(structure.run.Text("lblSTRUCTURE_QCDate"), "Date of Last QC: Jul 08, 2017 09:10");
  structure.run.clock = {2017, 8, 1, 0, 0, 0};
  structure.RunInMonth();
  EXPECT_EQ(NullToEmpty(structure.run.Sql("SELECT PA_QC_DT FROM PA_PLATFORM_ACTV")), "2017-08-01 00:00:00");
  EXPECT_EQ(NullToEmpty(structure.run.Sql("SELECT PD_QC_DT FROM PD_PLATFORM_DESC")), "2017-07-08 09:10:11");
}

TEST(Walks, stamp_every_equipment_that_they_check_in_a_month) {
  Structure structure(Equipment{{"FLA", "F1"}, {"VEN", "V1"}});
  structure.run.Click("cmdQC");
  EXPECT_EQ(structure.run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT IS NOT NULL"), 0);
  structure.RunInMonth();
  EXPECT_EQ(structure.run.Count("EA_EQUIP_ACTV WHERE EA_QC_DT='2017-03-05 14:02:00'"), 2);
}

TEST(Walks, leave_no_equipment_sheet_behind) {
  Structure structure(Equipment{{"FLA", "F1"}});
  structure.run.Click("cmdQC");
  ASSERT_GT(structure.run.Count("QC WHERE EquipID='F1'"), 0);
  EXPECT_EQ(structure.run.s.desk.showing, std::vector<Form*>{structure.run.s.main});
  EXPECT_FALSE(structure.run.s.desk.Find("frmFLA")->loaded);
}

TEST(Walks, over_a_survey_check_every_active_structure_of_the_month_with_its_equipment) {
  Structure structure(Equipment{{"FLA", "F1"}});
  TestRun& run = structure.run;
  for (const auto& [complex, id] : Values{{"1002", "F2"}, {"1003", "F3"}, {"1004", "F4"}}) {
    run.AddStructure(complex, "1", complex);
    run.AddEquipment("FLA", id);
  }
  run.AddMonth();
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I' WHERE PD_ID_AK=2 AND PA_MO=1");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status=NULL WHERE PD_ID_AK=3 AND PA_MO=1");
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET RIMA_CO_NUM='54321' WHERE PD_ID_AK=4");
  run.Select(kSurvey);
  run.Click("cmdQC");
  EXPECT_EQ(structure.Checked(), (Texts{"F1", "F3"}));
  EXPECT_EQ(structure.All("SELECT DISTINCT CmplxID FROM QC WHERE Level='STRUCTURE'"), (Texts{"1001", "1003"}));
  EXPECT_EQ(structure.All("SELECT PD_ID_AK FROM PA_PLATFORM_ACTV WHERE PA_QC_DT IS NOT NULL"), (Texts{"1", "3"}));
  EXPECT_EQ(run.Count("QC WHERE Month<>1"), 0);
  EXPECT_EQ(run.TakeBoxes().back(), "QC completed with " + std::to_string(run.Count("QC")) + " errors found");
}

TEST(Walks, over_a_survey_read_each_structure_s_own_values) {
  Structure structure(Equipment{{"MUD", "M1"}});
  TestRun& run = structure.run;
  run.AddStructure("1002", "1", "B");
  run.AddEquipment("MUD", "M1");
  run.s.db.Execute(
      "UPDATE PA_PLATFORM_ACTV SET PROD_OIL=0,PROD_NG=0,THRU_OIL=0,THRU_NG=0,TOT_FUEL_USE_NG=0,TOT_FUEL_USE_GAS=0,"
      "TOT_FUEL_USE_DIE=0");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PROD_OIL=NULL WHERE PD_ID_AK=1");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PROD_NG=20001 WHERE PD_ID_AK=2");
  run.ChangeTo(Mode::kActv);
  run.Select(kSurvey);
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings("CmplxID='1001'"), (Values{{"Oil Production", kBlankFinding}}));
  EXPECT_EQ(run.Findings("CmplxID='1002'"), (Values{{"Natural Gas Production", RangeFinding(0, 20000)}}));
}

TEST(Walks, over_a_survey_list_the_structures_with_findings_and_stay_on_the_survey) {
  Structure structure(Equipment{});
  structure.run.ChangeTo(Mode::kActv);
  structure.run.Select(kSurvey);
  structure.run.Click("cmdQC");
  EXPECT_EQ(structure.run.At("lvwSURVEY_QCResults").rows,
            (std::vector<Texts>{{"Structure: GI, 43, A", "8 errors found", "n/a"}}));
  EXPECT_EQ(structure.run.s.main->front, "fraSurvey");
  EXPECT_EQ(structure.run.s.current.Level, "SURVEY");
}

TEST(Walks, over_a_survey_without_a_structure_find_nothing) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  run.Select(kSurvey);
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Texts{"QC completed, no errors found"});
}

TEST(Walks, over_a_structure_list_its_findings_and_its_equipment) {
  Structure structure(Equipment{{"FLA", "F1"}});
  structure.RunInMonth();
  const auto& rows = structure.run.At("lvwSTRUCTURE_QCResults").rows;
  ASSERT_EQ(rows.size(), 8u);
  EXPECT_EQ(rows.front(), (Texts{"Oil Production", kBlankFinding, ""}));
  EXPECT_EQ(rows.back(), (Texts{"Combustion Flare: F1", "2 errors found", "n/a"}));
}

}  // namespace
}  // namespace merlu::test
