#include "shell/qc_command.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "rules/bounds.h"
#include "shell/dialogs.h"
#include "shell/main_program.h"

namespace merlu::test {
namespace {

using Found = std::vector<std::pair<std::string, std::string>>;
using Texts = std::vector<std::string>;

constexpr const char* kClean = "QC completed, no errors found";
constexpr const char* kHours = "txtFLA_HrsOperated";
const Values kSoundMonth = {{"txtFLA_HrsOperated", "700"}, {"txtFLA_VolFlared", "12"}};

// The edit of a flare's first month.
struct FlareMonth {
  FlareMonth() {
    run.StartWith("FLA", "F1");
    run.GoTo("FLA", "F1", Mode::kActv);
    run.Click("cmdEdit");
  }
  TestRun run;
};

// Records an explained finding of the flare, or of the structure, in a month.
void Find(TestRun& run, const std::string& level, int month, const std::string& mode, const std::string& field = "Old",
          const std::string& comment = "known") {
  const bool equipment = level == "EQUIPMENT";
  run.s.db.Execute(
      "INSERT INTO QC (UserID,Month,Year,Level,CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
      "VALUES ('12345',?,2017,?,'1001','1',?,?,?,'Wrong',?,?)",
      {std::int64_t{month}, level, std::string(equipment ? "FLA" : "NA"), std::string(equipment ? "F1" : "NA"), field,
       comment, mode});
}

TEST(QcRun, tells_how_many_errors_it_found_in_a_plain_box) {
  FlareMonth flare;
  EXPECT_EQ(RunQCAndTell(flare.run.s, flare.run.s.current, false).count, 2);
  ASSERT_EQ(flare.run.boxes.size(), 1u);
  const Box& box = flare.run.boxes.front();
  EXPECT_EQ(box.text, "QC completed with 2 errors found");
  EXPECT_EQ(box.icon, Icon::kInfo);
  EXPECT_EQ(box.title, "MERLU-2017");
  EXPECT_EQ(box.buttons, std::vector<Button>{Button::kOK});
}

TEST(QcRun, tells_that_it_found_nothing) {
  FlareMonth flare;
  flare.run.Put(kSoundMonth);
  EXPECT_EQ(RunQCAndTell(flare.run.s, flare.run.s.current, false).count, 0);
  ASSERT_EQ(flare.run.boxes.size(), 1u);
  EXPECT_EQ(flare.run.boxes.front().text, kClean);
  EXPECT_EQ(flare.run.boxes.front().icon, Icon::kInfo);
}

TEST(QcRun, that_is_silent_tells_errors_and_nothing_else) {
  FlareMonth flare;
  EXPECT_EQ(RunQCAndTell(flare.run.s, flare.run.s.current, true).count, 2);
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{"QC completed with 2 errors found"});
  flare.run.Put(kSoundMonth);
  EXPECT_EQ(RunQCAndTell(flare.run.s, flare.run.s.current, true).count, 0);
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{});
}

TEST(QcRun, reads_the_fields_as_they_stand_and_not_what_is_stored) {
  FlareMonth flare;
  flare.run.Put(kSoundMonth);
  flare.run.Click("cmdSaveEdits");
  flare.run.Set(kHours, "745");
  flare.run.Click("cmdQC");
  EXPECT_EQ(flare.run.Finding("Hours Operated, excl. upsets"), RangeFinding(0, 744));
  EXPECT_EQ(ToNumber(flare.run.Sql("SELECT OP_HR FROM EA_FLA")), 700);
}

TEST(QcRun, at_the_operator_checks_nothing_and_says_nothing) {
  TestRun run;
  run.StartWithStructure();
  run.SelectRoot();
  ASSERT_EQ(run.s.current.Level, "USER");
  EXPECT_EQ(RunQCAndTell(run.s, run.s.current, false).count, 0);
  EXPECT_TRUE(run.TakeBoxes().empty());
  EXPECT_EQ(run.Count("QC"), 0);
  EXPECT_FALSE(run.s.wait.showing);
}

TEST(QcRun, shows_the_wait_screen_while_it_works_and_takes_it_away) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Select(run.Key());
  run.waits = run.paints = 0;
  run.wait_texts.clear();
  run.Click("cmdQC");
  EXPECT_GE(run.waits, 3);
  EXPECT_GE(run.paints, 1);
  EXPECT_EQ(run.wait_texts.front(), "Running QC ...");
  EXPECT_NE(std::find(run.wait_texts.begin(), run.wait_texts.end(), "Combustion Flare"), run.wait_texts.end());
  EXPECT_FALSE(run.s.wait.showing);
  EXPECT_EQ(run.s.wait.title, "MERLU");
}

TEST(QcRun, of_a_survey_names_the_structure_that_it_is_at) {
  TestRun run;
  run.StartWithStructure();
  run.AddStructure("1002", "2", "B");
  run.ChangeTo(Mode::kActv);
  run.Select("K12345 12017");
  run.wait_texts.clear();
  run.Click("cmdQC");
  for (const char* text : {"Structure 1001 1", "Structure 1002 2"})
    EXPECT_NE(std::find(run.wait_texts.begin(), run.wait_texts.end(), text), run.wait_texts.end()) << text;
  EXPECT_FALSE(run.s.wait.showing);
}

TEST(QcRun, passes_over_an_equipment_without_emissions_and_wipes_its_findings_of_every_month) {
  FlareMonth flare;
  Find(flare.run, "EQUIPMENT", 1, "ACTV", "This month");
  Find(flare.run, "EQUIPMENT", 2, "ACTV", "Other month");
  Find(flare.run, "EQUIPMENT", 1, "DESC", "Description");
  flare.run.Check("chkFLA_Status", true);
  flare.run.Click("cmdQC");
  ASSERT_EQ(flare.run.boxes.size(), 1u);
  EXPECT_EQ(flare.run.boxes.front().text, "QC skipped for inactive Equipment");
  EXPECT_EQ(flare.run.boxes.front().icon, Icon::kInfo);
  EXPECT_EQ(flare.run.Findings(), (Values{{"Description", "Wrong"}}));
  EXPECT_TRUE(IsNull(flare.run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")));
}

TEST(QcRun, passes_over_an_equipment_without_a_word_when_it_is_silent) {
  FlareMonth flare;
  Find(flare.run, "EQUIPMENT", 2, "ACTV");
  flare.run.Check("chkFLA_Status", true);
  RunQCAndTell(flare.run.s, flare.run.s.current, true);
  EXPECT_TRUE(flare.run.TakeBoxes().empty());
  EXPECT_EQ(flare.run.Count("QC"), 0);
}

TEST(QcRun, lists_what_there_was_before_an_equipment_without_emissions_lost_its_findings) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='why' WHERE rowid=(SELECT MIN(rowid) FROM QC)");
  run.Click("cmdEdit");
  run.Check("chkFLA_Status", true);
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC"), 0);
  ASSERT_EQ(run.At("lvwFLA_QCResults").rows.size(), 1u);
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows.front().back(), "why");
}

TEST(QcRun, forgets_an_equipment_that_it_passed_over_before) {
  FlareMonth flare;
  flare.run.Check("chkFLA_Status", true);
  flare.run.Click("cmdQC");
  flare.run.Check("chkFLA_Status", false);
  flare.run.TakeBoxes();
  flare.run.Click("cmdQC");
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{"QC completed with 2 errors found"});
}

TEST(QcRun, over_an_equipment_without_emissions_takes_what_its_like_of_the_month_left_unexplained) {
  FlareMonth flare;
  flare.run.s.db.Execute(
      "INSERT INTO QC (UserID,Month,Year,Level,CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],Comments,EditMode) "
      "VALUES "
      "('12345',1,2017,'EQUIPMENT','1001','1','FLA','F2','Unexplained','Wrong','','ACTV'),"
      "('12345',1,2017,'EQUIPMENT','1001','1','FLA','F2','Explained','Wrong','known','ACTV')");
  flare.run.Check("chkFLA_Status", true);
  flare.run.Click("cmdQC");
  EXPECT_EQ(flare.run.Findings(), (Values{{"Explained", "Wrong"}}));
}

TEST(QcRun, over_an_inactive_structure_wipes_its_own_findings_of_every_month_and_spares_explained_equipment) {
  TestRun run;
  run.StartWith("FLA", "F1");
  Find(run, "STRUCTURE", 1, "ACTV", "Own");
  Find(run, "STRUCTURE", 2, "ACTV", "Own of February");
  Find(run, "STRUCTURE", 1, "DESC", "Own description");
  Find(run, "EQUIPMENT", 1, "ACTV", "Explained");
  Find(run, "EQUIPMENT", 1, "ACTV", "Unexplained", "");
  Find(run, "EQUIPMENT", 2, "ACTV", "Unexplained in February", "");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdEdit");
  run.Check("chkSTRUCTURE_Status", true);
  run.Click("cmdQC");
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes.front().text, "QC skipped for inactive Structure");
  EXPECT_EQ(run.boxes.front().icon, Icon::kInfo);
  EXPECT_EQ(run.Findings(),
            (Values{{"Own description", "Wrong"}, {"Explained", "Wrong"}, {"Unexplained in February", "Wrong"}}));
  EXPECT_TRUE(IsNull(run.Sql("SELECT PA_QC_DT FROM PA_PLATFORM_ACTV")));
}

TEST(QcRun, that_finds_an_equipment_clean_wipes_its_findings_of_the_mode_in_all_other_months) {
  FlareMonth flare;
  Find(flare.run, "EQUIPMENT", 2, "ACTV", "Explained");
  Find(flare.run, "EQUIPMENT", 3, "ACTV", "Unexplained", "");
  Find(flare.run, "EQUIPMENT", 3, "DESC", "Description");
  Find(flare.run, "STRUCTURE", 3, "ACTV", "Structure");
  flare.run.Put(kSoundMonth);
  flare.run.Click("cmdQC");
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{kClean});
  EXPECT_EQ(flare.run.Findings(), (Values{{"Description", "Wrong"}, {"Structure", "Wrong"}}));
}

TEST(QcRun, that_finds_an_equipment_wanting_leaves_the_other_months_alone) {
  FlareMonth flare;
  Find(flare.run, "EQUIPMENT", 2, "ACTV");
  flare.run.Click("cmdQC");
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{"QC completed with 2 errors found"});
  EXPECT_EQ(flare.run.Count("QC WHERE Month=2"), 1);
}

TEST(QcRun, that_finds_a_structure_clean_wipes_its_own_findings_of_the_mode_in_all_other_months) {
  TestRun run;
  run.StartWith("MUD", "M1");
  run.s.db.Execute(
      "UPDATE PA_PLATFORM_ACTV SET PROD_OIL=0,PROD_NG=0,THRU_OIL=0,THRU_NG=0,TOT_FUEL_USE_NG=0,TOT_FUEL_USE_GAS=0,"
      "TOT_FUEL_USE_DIE=0");
  Find(run, "STRUCTURE", 2, "ACTV", "Own of February");
  Find(run, "STRUCTURE", 2, "DESC", "Own description");
  Find(run, "EQUIPMENT", 2, "ACTV", "Equipment");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Texts{kClean});
  EXPECT_EQ(run.Findings(), (Values{{"Own description", "Wrong"}, {"Equipment", "Wrong"}}));
}

TEST(QcRun, counts_findings_that_it_did_not_make_itself) {
  FlareMonth flare;
  Find(flare.run, "EQUIPMENT", 1, "DESC");
  flare.run.Put(kSoundMonth);
  flare.run.Click("cmdQC");
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{"QC completed with 1 errors found"});
}

TEST(QcRun, without_data_says_so) {
  TestRun run;
  run.settings["Options/DBloc"] = run.folder.path("nowhere.mdb");
  Main(run.s);
  CloseSplash(run.s);
  ASSERT_FALSE(run.s.db.IsOpen());
  run.boxes.clear();
  run.s.main->Raise("mnuFQC", Event::kClick);
  ASSERT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(run.boxes.front().text, "There is no data to QC");
  EXPECT_EQ(run.boxes.front().title, "Data Validation");
  EXPECT_EQ(run.boxes.front().icon, Icon::kWarning);
  EXPECT_FALSE(run.s.wait.showing);
}

TEST(QcRun, is_not_begun_by_the_button_of_an_empty_tree) {
  TestRun run;
  run.settings["Options/DBloc"] = run.folder.path("nowhere.mdb");
  Main(run.s);
  CloseSplash(run.s);
  run.boxes.clear();
  ASSERT_TRUE(run.s.tree.nodes.empty());
  run.waits = 0;
  run.s.main->Raise("cmdQC", Event::kClick);
  EXPECT_TRUE(run.boxes.empty());
  EXPECT_EQ(run.waits, 0);
}

TEST(QcRun, that_meets_a_fault_tells_number_and_description_and_stops) {
  TestRun run;
  run.StartWith("DIE", "D1");
  for (const char* type : {"AMI", "FLA"}) {
    run.Select(run.Key());
    run.AddEquipment(type, "X1");
  }
  run.Select(run.Key());
  const QCLocation here = run.s.current;
  run.s.db.Execute("DROP TABLE ED_AMI");
  EXPECT_EQ(RunQCAndTell(run.s, here, false).count, 0);
  ASSERT_EQ(run.boxes.size(), 1u);
  const Box& box = run.boxes.front();
  EXPECT_EQ(box.text, "3078: no such table: ED_AMI");
  EXPECT_EQ(box.title, "Application Error");
  EXPECT_EQ(box.icon, Icon::kStop);
  EXPECT_FALSE(run.s.wait.showing);
  EXPECT_GT(run.Count("QC WHERE EquipType='DIE'"), 0) << "what was found before stays";
  EXPECT_EQ(run.Count("QC WHERE EquipType='FLA'"), 0);
}

TEST(QcRun, tells_a_fault_inside_a_rule_of_a_structure_once) {
  TestRun run;
  run.StartWithStructure();
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.s.db.Execute("DROP TABLE ED_EQUIP_DESC");
  run.TakeBoxes();
  RunQCAndTell(run.s, run.s.current, false);
  const std::vector<std::string> boxes = run.TakeBoxes();
  EXPECT_EQ(std::count(boxes.begin(), boxes.end(), "3078 no such table: ED_EQUIP_DESC"), 1);
  EXPECT_EQ(boxes.size(), 2u) << "the fault and the result of the run";
}

TEST(QcRun, that_meets_a_fault_leaves_the_user_where_it_was_at) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.Select(run.Key());
  run.AddEquipment("AMI", "A1");
  run.Select(run.Key());
  run.s.db.Execute("DROP TABLE ED_AMI");
  RunQCAndTell(run.s, run.s.current, false);
  EXPECT_EQ(run.s.current.Level, "EQUIPMENT");
  EXPECT_EQ(run.s.current.EquipType, "DIE");
  run.Select(run.Key());
  EXPECT_EQ(run.s.current.Level, "STRUCTURE");
}

TEST(QcRun, goes_back_to_where_it_was_begun) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.ChangeTo(Mode::kActv);
  for (const std::string& key : {std::string("K12345 12017"), run.Key("", "", 1)}) {
    run.Select(key);
    const QCLocation before = run.s.current;
    run.Click("cmdQC");
    EXPECT_EQ(run.s.current.Level, before.Level);
    EXPECT_EQ(run.s.current.CmplxID, before.CmplxID);
    EXPECT_EQ(run.s.current.StructID, before.StructID);
    EXPECT_EQ(run.s.current.EquipType, before.EquipType);
    EXPECT_EQ(run.s.current.EquipID, before.EquipID);
    EXPECT_EQ(run.s.current.Month, 1);
  }
}

TEST(QcRun, of_an_edit_s_end_is_silent_and_keeps_the_date_that_it_wrote) {
  FlareMonth flare;
  flare.run.Put(kSoundMonth);
  flare.run.Click("cmdSaveExit");
  EXPECT_TRUE(flare.run.TakeBoxes().empty());
  EXPECT_EQ(NullToEmpty(flare.run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")), "2017-03-05 14:02:00");
  EXPECT_FALSE(flare.run.s.InSaveQC);
  EXPECT_FALSE(flare.run.s.editing);
}

TEST(QcRun, of_an_edit_s_end_tells_its_errors_and_does_not_stop_the_save) {
  FlareMonth flare;
  flare.run.Put({{kHours, "745"}, {"txtFLA_VolFlared", "12"}});
  flare.run.Click("cmdSaveExit");
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{"QC completed with 1 errors found"});
  EXPECT_EQ(ToNumber(flare.run.Sql("SELECT OP_HR FROM EA_FLA")), 745);
}

TEST(QcRun, stays_due_after_a_save_in_the_middle_of_the_edit) {
  FlareMonth flare;
  flare.run.Put(kSoundMonth);
  flare.run.Click("cmdQC");
  EXPECT_EQ(NullToEmpty(flare.run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")), "2017-03-05 14:02:00");
  flare.run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsNull(flare.run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV")));
}

TEST(QcRun, can_be_asked_for_while_editing) {
  FlareMonth flare;
  EXPECT_EQ(flare.run.WhyNotClick("cmdQC"), "");
  flare.run.Click("cmdQC");
  EXPECT_EQ(flare.run.TakeBoxes(), Texts{"QC completed with 2 errors found"});
  EXPECT_TRUE(flare.run.s.editing);
  EXPECT_EQ(flare.run.At(kHours).back, Back::kFlag);
  EXPECT_FALSE(flare.run.At(kHours).locked);
}

TEST(QcRun, sees_what_another_program_has_written_meanwhile) {
  TestRun run;
  run.StartWith("NGE", "N1");
  run.GoTo("NGE", "N1", Mode::kActv);
  run.Click("cmdEdit");
  run.Put({{"txtNGE_HrsOperated", "10"}, {"txtNGE_TotalFuelUsed", "500"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Texts{"QC completed, no errors found"});
  Raw(run.s.path, {"UPDATE PA_PLATFORM_ACTV SET TOT_FUEL_USE_NG=100",
                   "INSERT INTO QC (UserID,[Month],[Year],[Level],CmplxID,StructID,EquipType,EquipID,FieldID,[Desc],"
                   "Comments,EditMode) VALUES "
                   "('12345',1,2017,'EQUIPMENT','1001','1','NGE','N1','Hours Operated','Required field left blank','',"
                   "'ACTV')"});
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Total Fuel Used", "Value exceeds N.G. usage for structure"}}));
}

TEST(QcRun, by_the_menu_is_the_same_as_by_the_button) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("mnuFQC");
  EXPECT_EQ(run.TakeBoxes(), Texts{"QC completed with 2 errors found"});
}

TEST(QcRun, in_view_leaves_what_passed_as_a_read_only_field) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.s.db.Execute("UPDATE EA_FLA SET OP_HR=5");
  run.GoTo("FLA", "F1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.At(kHours).back, Back::kFace);
  EXPECT_EQ(run.At("txtFLA_VolFlared").back, Back::kFlag);
}

}  // namespace
}  // namespace merlu::test
