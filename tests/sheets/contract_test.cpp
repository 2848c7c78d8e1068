#include "sheets/contract.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "forms/desk.h"
#include "qc_run/run_record.h"
#include "session/types.h"
#include "sheets/conversions.h"
#include "sheets/sheet_form.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kNoDate = "Date of Last QC:          ";

// ---- conversions ----

TEST(Conversions, store_the_number_of_a_numeric_text_and_null_for_any_other) {
  EXPECT_EQ(FieldNumber("744"), Value(744.0));
  EXPECT_EQ(FieldNumber(" -5.5 "), Value(-5.5));
  EXPECT_EQ(FieldNumber("1e3"), Value(1000.0));
  for (const char* text : {"", "  ", "abc", "12abc", "1 2", "-"}) EXPECT_TRUE(IsNull(FieldNumber(text))) << text;
}

TEST(Conversions, store_only_what_stands_before_a_thousands_comma) {
  EXPECT_EQ(FieldNumber("1,200"), Value(1.0));
  EXPECT_EQ(FieldNumber("12,345,678.9"), Value(12.0));
}

TEST(Conversions, store_a_text_as_it_stands_and_null_for_an_empty_one) {
  EXPECT_EQ(FieldText(" A "), Value(std::string(" A ")));
  EXPECT_EQ(FieldText(" "), Value(std::string(" ")));
  EXPECT_TRUE(IsNull(FieldText("")));
}

TEST(Conversions, store_yes_in_any_case_as_true_and_anything_else_as_false) {
  EXPECT_EQ(FieldYesNo("Yes"), Value(true));
  EXPECT_EQ(FieldYesNo("yES"), Value(true));
  EXPECT_EQ(FieldYesNo("No"), Value(false));
  EXPECT_EQ(FieldYesNo("perhaps"), Value(false));
  EXPECT_TRUE(IsNull(FieldYesNo("")));
}

TEST(Conversions, write_a_date_as_the_sheets_show_it) {
  EXPECT_EQ(QCDateText(std::string("2017-03-05 14:02:09")), "Date of Last QC: Mar 05, 2017 14:02");
  EXPECT_EQ(QCDateText(std::string("2017-03-05")), "Date of Last QC: Mar 05, 2017 00:00");
}

// ---- a flare ----

// Two flares and a vent of two months, in description mode at the first flare.
class FlareSheet : public testing::Test {
 protected:
  FlareSheet() {
    run.StartWith("FLA", "F1");
    for (const auto& [type, id] : {std::pair{"FLA", "F2"}, {"VEN", "V1"}}) {
      run.Select(run.Key());
      run.AddEquipment(type, id);
    }
    run.SelectRoot();
    run.AddMonth();
    run.ChangeTo(Mode::kDesc);
    run.Select(run.Key("FLA", "F1"));
    run.TakeBoxes();
  }
  void GoToMonth(int month = 1) { run.GoTo("FLA", "F1", Mode::kActv, month); }
  // Loads the record again.
  void Reload() {
    const std::string key = run.s.tree.nodes[static_cast<std::size_t>(run.s.tree.selected)].key;
    run.SelectRoot();
    run.Select(key);
  }
  Form& Sheet() { return *run.s.desk.Find("frmFLA"); }
  TestRun run;
};

TEST_F(FlareSheet, has_the_controls_that_every_sheet_has) {
  EXPECT_EQ(run.At("tabFLA").items, (Texts{"General Information", "Control Equipment", "QC Results"}));
  EXPECT_EQ(run.At("lvwFLA_QCResults").columns, (Texts{"Field Name", "Error Description", "Operator Comment"}));
  EXPECT_EQ(run.Text("lblFLA_QCResults"), "QC Results");
  EXPECT_EQ(run.At("cmdFLA_EditQCComment").caption, "Edit QC Comment");
  EXPECT_EQ(run.At("chkFLA_Status").caption, "No Emissions to Report");
  EXPECT_EQ(run.At("chkFLA_Status").parent, "Frame1");
  EXPECT_EQ(run.Text("lblNoEmissions"), "No Emissions to Report");
}

TEST_F(FlareSheet, of_a_record_without_values_is_blank_without_a_word) {
  GoToMonth();
  for (const FieldSpec& field : TARNE_FLA().fields) {
    EXPECT_EQ(run.Text(field.control), "") << field.control;
    EXPECT_EQ(run.At(field.control).index, -1) << field.control;
  }
  EXPECT_FALSE(run.At("chkFLA_Status").checked);
  EXPECT_FALSE(run.At("lblNoEmissions").visible);
  EXPECT_EQ(run.Text("lblFLA_QCDate"), kNoDate);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(FlareSheet, saves_and_shows_a_thousands_comma_as_what_stands_before_it) {
  GoToMonth();
  run.Keep({{"txtFLA_VolFlared", "1,200"}});
  EXPECT_EQ(ToNumber(run.Sql("SELECT VOL_FLARED FROM EA_FLA WHERE EA_ID_AK=1")), 1);
  Reload();
  EXPECT_EQ(run.Text("txtFLA_VolFlared"), "1");
}

TEST_F(FlareSheet, saves_letters_in_a_number_as_null) {
  GoToMonth();
  run.Keep({{"txtFLA_VolFlared", "5"}});
  run.Keep({{"txtFLA_VolFlared", "much"}});
  EXPECT_TRUE(IsNull(run.Sql("SELECT VOL_FLARED FROM EA_FLA WHERE EA_ID_AK=1")));
  EXPECT_EQ(run.Text("txtFLA_VolFlared"), "");
}

TEST_F(FlareSheet, shows_a_yes_no_by_its_item_and_null_by_none) {
  for (const auto& [stored, index] : {std::pair{"1", 0}, {"0", 1}, {"NULL", -1}}) {
    run.s.db.Execute(std::string("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=") + stored);
    Reload();
    EXPECT_EQ(run.At("cmbFLA_HasContFlarePilot").index, index) << stored;
  }
}

TEST_F(FlareSheet, shows_a_code_by_its_item_and_an_unknown_one_by_none) {
  for (const auto& [stored, index] :
       {std::pair{"'N'", 0}, {"'L'", 1}, {"'M'", 2}, {"'H'", 3}, {"'X'", -1}, {"''", -1}, {"NULL", -1}}) {
    run.s.db.Execute(std::string("UPDATE ED_FLA SET FLA_SMOKE_FLG=") + stored);
    Reload();
    EXPECT_EQ(run.At("cmbFLA_FlareSmoke").index, index) << stored;
  }
}

TEST_F(FlareSheet, leaves_a_code_alone_whose_list_shows_no_item) {
  run.s.db.Execute("UPDATE ED_FLA SET FLA_SMOKE_FLG='X'");
  Reload();
  run.Keep({{"txtFLA_ConcH2S", "1"}});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT FLA_SMOKE_FLG FROM ED_FLA WHERE ED_ID_AK=1")), "X");
}

TEST_F(FlareSheet, prints_doubles_in_their_general_form) {
  run.s.db.Execute("UPDATE ED_FLA SET CONC_H2S=0.1+0.2,FLA_EFFIC=99.0,STK_ANGLE=1e20");
  Reload();
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "0.3");
  EXPECT_EQ(run.Text("txtFLA_FlareEfficiency"), "99");
  EXPECT_EQ(run.Text("txtFLA_StackAngle"), "1E+20");
}

TEST_F(FlareSheet, shows_the_month_s_status_on_its_check_box_and_its_caption) {
  GoToMonth();
  for (const auto& [stored, inactive] :
       {std::pair{"'I'", true}, {"'A'", false}, {"'I'", true}, {"'x'", false}, {"'I'", true}, {"NULL", false}}) {
    run.s.db.Execute(std::string("UPDATE EA_EQUIP_ACTV SET EA_STATUS=") + stored);
    Reload();
    EXPECT_EQ(run.At("chkFLA_Status").checked, inactive) << stored;
    EXPECT_EQ(run.Visible("lblNoEmissions"), inactive) << stored;
  }
}

TEST_F(FlareSheet, shows_no_emissions_of_an_active_flare_on_a_structure_that_has_none) {
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I'");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='A'");
  run.Start();
  GoToMonth();
  EXPECT_FALSE(run.At("chkFLA_Status").checked);
  EXPECT_TRUE(run.Visible("lblNoEmissions"));
}

TEST_F(FlareSheet, stores_status_and_comment_of_its_month) {
  GoToMonth(2);
  run.Click("cmdEdit");
  run.Check("chkFLA_Status", true);
  run.Set("txtFLA_Comments", "shut in");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(NullToEmpty(run.Sql(
                "SELECT group_concat(EA_ID_AK||EA_STATUS||EA_COMNT_TXT) FROM EA_EQUIP_ACTV WHERE EA_STATUS='I'")),
            std::to_string(run.s.EA_ID_AK) + "Ishut in");
  run.Check("chkFLA_Status", false);
  run.Set("txtFLA_Comments", "");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_STATUS='A' AND EA_COMNT_TXT IS NULL"), 1);
}

TEST_F(FlareSheet, hides_the_monthly_fields_of_a_description_and_shuts_the_middle_page_of_a_month) {
  for (const char* name :
       {"txtFLA_HrsOperated", "txtFLA_VolFlared", "cmbFLA_PilotIncludedInVolume", "txtFLA_Comments", "lblFLA_Comments"})
    EXPECT_FALSE(run.Visible(name)) << name;
  EXPECT_EQ(run.At("tabFLA").page_available, (std::vector<bool>{true, true, true}));
  GoToMonth();
  for (const char* name :
       {"txtFLA_HrsOperated", "txtFLA_VolFlared", "cmbFLA_PilotIncludedInVolume", "txtFLA_Comments", "lblFLA_Comments"})
    EXPECT_TRUE(run.Visible(name)) << name;
  EXPECT_EQ(run.At("tabFLA").page_available, (std::vector<bool>{true, false, true}));
  EXPECT_TRUE(run.Visible("txtFLA_ConcH2S"));
}

TEST_F(FlareSheet, shows_its_description_as_a_context_of_its_month) {
  run.Keep({{"txtFLA_ConcH2S", "7"}, {"cmbFLA_FlareSmoke", "Light"}});
  GoToMonth();
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "7");
  EXPECT_EQ(run.Text("cmbFLA_FlareSmoke"), "Light");
  run.Click("cmdEdit");
  EXPECT_TRUE(run.At("txtFLA_ConcH2S").locked);
  EXPECT_EQ(run.At("txtFLA_ConcH2S").back, Back::kFace);
}

TEST_F(FlareSheet, is_grey_in_view_and_white_and_titled_in_an_edit) {
  EXPECT_EQ(run.At("fraFLA").caption, "Combustion Flare");
  EXPECT_FALSE(run.At("fraFLA").emphasis);
  EXPECT_FALSE(run.At("cmdFLA_EditQCComment").enabled);
  EXPECT_EQ(run.At("lvwFLA_QCResults").back, Back::kFace);
  EXPECT_FALSE(run.At("Frame1").visible);
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraFLA").caption, "Flare - EDIT DATA");
  EXPECT_TRUE(run.At("fraFLA").emphasis);
  EXPECT_TRUE(run.At("cmdFLA_EditQCComment").enabled);
  EXPECT_EQ(run.At("lvwFLA_QCResults").back, Back::kWindow);
  EXPECT_EQ(run.At("txtFLA_ConcH2S").back, Back::kWindow);
  EXPECT_FALSE(run.At("Frame1").visible);
  EXPECT_EQ(Sheet().focus, "txtFLA_ConcH2S");
  run.Click("cmdCANCEL");
  GoToMonth();
  run.Click("cmdEdit");
  EXPECT_TRUE(run.At("Frame1").visible);
  EXPECT_EQ(Sheet().focus, "txtFLA_HrsOperated");
}

TEST_F(FlareSheet, whose_record_is_gone_says_so_and_stays_cleared) {
  run.Keep({{"txtFLA_ConcH2S", "7"}});
  run.SelectRoot();
  run.s.db.Execute("DELETE FROM ED_FLA WHERE ED_ID_AK=1");
  run.s.At("ED_FLA").Requery();
  run.Select(run.Key("FLA", "F1"));
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equipment record not found"});
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "");
  EXPECT_EQ(run.Text("lblFLA_QCDate"), kNoDate);
}

TEST_F(FlareSheet, whose_record_another_program_deletes_while_it_shows_says_so_when_it_is_clicked_again) {
  run.Keep({{"txtFLA_ConcH2S", "7"}});
  Raw(run.s.path, {"DELETE FROM ED_FLA"});
  run.Select(run.Key("FLA", "F1"));
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equipment record not found"});
  EXPECT_EQ(run.Text("txtFLA_ConcH2S"), "");
}

TEST_F(FlareSheet, whose_second_row_cannot_be_saved_has_saved_the_first) {
  GoToMonth();
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE UPDATE ON EA_FLA BEGIN SELECT RAISE(ABORT,'no'); END");
  run.Click("cmdEdit");
  run.Put({{"txtFLA_Comments", "kept"}, {"txtFLA_HrsOperated", "5"}});
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3146 no"});
  EXPECT_TRUE(run.s.save_failed);
  const std::string path = run.s.path;
  EXPECT_EQ(NullToEmpty(RawValue(path, "SELECT EA_COMNT_TXT FROM EA_EQUIP_ACTV WHERE EA_ID_AK=1")), "kept");
  EXPECT_TRUE(IsNull(RawValue(path, "SELECT OP_HR FROM EA_FLA WHERE EA_ID_AK=1")));
}

// ---- findings and dates ----

TEST_F(FlareSheet, lists_the_findings_of_both_modes_of_its_month) {
  GoToMonth();
  run.s.db.Execute(
      "INSERT INTO QC VALUES ('12345',1,2017,'EQUIPMENT','1001','1','FLA','F1','a','of a "
      "description','why','DESC'),"
      "('12345',1,2017,'EQUIPMENT','1001','1','FLA','F1','b','of a month',NULL,'ACTV'),"
      "('12345',2,2017,'EQUIPMENT','1001','1','FLA','F1','c','of another month','','ACTV'),"
      "('12345',1,2017,'EQUIPMENT','1001','1','FLA','F2','d','of another flare','','ACTV'),"
      "('12345',1,2017,'EQUIPMENT','1001','1','VEN','F1','e','of a vent','','ACTV')");
  Reload();
  EXPECT_EQ(run.At("lvwFLA_QCResults").rows,
            (std::vector<Texts>{{"a", "of a description", "why"}, {"b", "of a month", ""}}));
}

TEST_F(FlareSheet, keeps_the_findings_of_its_description_under_no_month_and_no_year) {
  run.Click("cmdQC");
  EXPECT_GT(run.Count("QC WHERE Month=0 AND Year=0 AND EditMode='DESC' AND Level='EQUIPMENT' AND EquipID='F1'"), 0);
  EXPECT_EQ(run.Count("QC WHERE Month<>0 OR Year<>0"), 0);
  const std::size_t listed = run.At("lvwFLA_QCResults").rows.size();
  EXPECT_EQ(static_cast<std::int64_t>(listed), run.Count("QC"));
  GoToMonth();
  EXPECT_TRUE(run.At("lvwFLA_QCResults").rows.empty());
}

TEST_F(FlareSheet, finds_nothing_when_it_is_checked_off_and_loses_what_nobody_explained) {
  GoToMonth();
  run.Click("cmdQC");
  run.TakeBoxes();
  ASSERT_EQ(run.Findings().size(), 2u);
  run.s.db.Execute("UPDATE QC SET Comments='explained' WHERE FieldID LIKE 'Hours%'");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I',EA_QC_DT=NULL WHERE EA_ID_AK=1");
  Reload();
  QCLocation here = run.s.current;
  RunSheetQC(run.s, TARNE_FLA(), here);
  EXPECT_TRUE(run.s.EquipmentInactive);
  EXPECT_EQ(run.Findings(), (std::vector<std::pair<std::string, std::string>>{
                                {"Hours Operated, excl. upsets", "Required field left blank"}}));
  EXPECT_TRUE(IsNull(run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV WHERE EA_ID_AK=1")));
}

TEST_F(FlareSheet, stamps_its_month_whether_a_run_finds_something_or_not) {
  GoToMonth();
  run.Click("cmdQC");
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EA_QC_DT FROM EA_EQUIP_ACTV WHERE EA_ID_AK=1")), "2017-03-05 14:02:00");
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC: Mar 05, 2017 14:02");
  run.Keep({{"txtFLA_HrsOperated", "5"}, {"txtFLA_VolFlared", "5"}});
  run.clock = {2017, 4, 1, 0, 0, 0};
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC"), 0);
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC: Apr 01, 2017 00:00");
}

TEST_F(FlareSheet, of_a_description_shows_no_date_unless_the_store_has_one) {
  run.Click("cmdQC");
  Reload();
  EXPECT_EQ(run.Text("lblFLA_QCDate"), kNoDate);
  EXPECT_EQ(run.Count("ED_EQUIP_DESC WHERE ED_QC_DT IS NOT NULL"), 0);
  run.s.db.Execute("UPDATE ED_EQUIP_DESC SET ED_QC_DT='2017-01-02 03:04:05'");
  Reload();
  EXPECT_EQ(run.Text("lblFLA_QCDate"), "Date of Last QC: Jan 02, 2017 03:04");
}

TEST_F(FlareSheet, runs_its_rules_hidden_and_leaves_no_form_behind) {
  GoToMonth();
  QCLocation flare = run.s.current;
  run.Select(run.Key("", "", 1));
  RunSheetQC(run.s, TARNE_FLA(), flare);
  EXPECT_EQ(run.Findings().size(), 2u);
  EXPECT_FALSE(Sheet().loaded);
  EXPECT_FALSE(Sheet().visible);
}

TEST_F(FlareSheet, on_the_screen_is_judged_by_what_it_shows_and_not_loaded_again) {
  GoToMonth();
  run.Click("cmdEdit");
  run.Put({{"txtFLA_HrsOperated", "5"}, {"txtFLA_VolFlared", "30000"}});
  QCLocation here = run.s.current;
  RunSheetQC(run.s, TARNE_FLA(), here);
  EXPECT_EQ(run.Finding("Volume Flared, incl. upsets"), "Value not in expected range (0 to 20000)");
  EXPECT_EQ(run.Text("txtFLA_VolFlared"), "30000");
  EXPECT_TRUE(Sheet().visible);
}

// ---- pages ----

TEST_F(FlareSheet, comes_back_to_its_page_by_type_and_mode_and_not_by_record) {
  const auto turn = [&](const std::string& tab, int page) {
    Form& form = *run.s.desk.Find("frm" + tab.substr(3));
    ASSERT_EQ(act::Page(run.s.desk, form, tab, page), "");
  };
  turn("tabFLA", 1);
  run.Select(run.Key("VEN", "V1"));
  EXPECT_EQ(run.At("tabVEN").index, 0);
  turn("tabVEN", 2);
  run.Select(run.Key("FLA", "F2"));
  EXPECT_EQ(run.At("tabFLA").index, 1);
  GoToMonth();
  EXPECT_EQ(run.At("tabFLA").index, 0);
  turn("tabFLA", 2);
  run.GoTo("VEN", "V1", Mode::kDesc);
  EXPECT_EQ(run.At("tabVEN").index, 2);
  run.Select(run.Key("FLA", "F1"));
  EXPECT_EQ(run.At("tabFLA").index, 1);
  run.GoTo("FLA", "F2", Mode::kActv, 2);
  EXPECT_EQ(run.At("tabFLA").index, 2);
}

TEST_F(FlareSheet, remembers_pages_under_the_numbers_of_the_types) {
  ASSERT_EQ(act::Page(run.s.desk, Sheet(), "tabFLA", 2), "");
  PageMemory expected{};
  expected[4] = 2;
  EXPECT_EQ(run.s.last_page_desc, expected);
  EXPECT_EQ(run.s.last_page_actv, PageMemory{});
}

// ---- every type ----

class AnySheet : public testing::TestWithParam<const SheetSpec*> {
 protected:
  AnySheet() {
    run.StartWith(sheet.type, "X1");
    run.TakeBoxes();
  }
  // Edits with something in every field that opens, and saves.
  void FillAndSave() {
    run.Click("cmdEdit");
    for (const FieldSpec& field : sheet.fields) {
      Control& control = run.At(field.control);
      if (!run.WhyNotSet(field.control).empty()) continue;
      if (control.kind == Kind::kText) run.Set(field.control, "7");
      if (control.kind == Kind::kList && !control.items.empty()) run.Set(field.control, control.items.back());
    }
    run.Click("cmdSaveEdits");
    run.Click("cmdCANCEL");
    run.TakeBoxes();
  }
  std::vector<std::vector<Values>> Rows(const Texts& tables) {
    std::vector<std::vector<Values>> rows;
    for (const std::string& table : tables) rows.push_back(run.s.db.Query("SELECT * FROM " + table).rows);
    return rows;
  }
  Texts Descriptions() { return {"PD_PLATFORM_DESC", "ED_EQUIP_DESC", sheet.ed_table()}; }
  Texts Months() {
    Texts tables = {"PA_PLATFORM_ACTV", "EA_EQUIP_ACTV"};
    if (sheet.has_activity) tables.push_back(sheet.ea_table());
    return tables;
  }
  const SheetSpec& sheet = *GetParam();
  TestRun run;
};

class AnySheetOfMonths : public AnySheet {};

std::vector<const SheetSpec*> SheetsOfMonths() {
  std::vector<const SheetSpec*> sheets = AllSheets();
  std::erase_if(sheets, [](const SheetSpec* sheet) { return sheet->type == "FUG"; });
  return sheets;
}

std::string TypeOf(const testing::TestParamInfo<const SheetSpec*>& info) {
  return info.param->type;
}

INSTANTIATE_TEST_SUITE_P(, AnySheet, testing::ValuesIn(AllSheets()), TypeOf);
INSTANTIATE_TEST_SUITE_P(, AnySheetOfMonths, testing::ValuesIn(SheetsOfMonths()), TypeOf);

TEST_P(AnySheet, saves_a_description_without_touching_a_month) {
  const auto months = Rows(Months());
  const auto description = Rows({sheet.ed_table()});
  FillAndSave();
  EXPECT_EQ(Rows(Months()), months);
  EXPECT_NE(Rows({sheet.ed_table()}), description);
}

TEST_P(AnySheetOfMonths, saves_a_month_without_touching_a_description) {
  FillAndSave();
  run.GoTo(sheet.type, "X1", Mode::kActv);
  const auto descriptions = Rows(Descriptions());
  const auto month = Rows({sheet.ea_table()});
  FillAndSave();
  EXPECT_EQ(Rows(Descriptions()), descriptions);
  EXPECT_NE(Rows({sheet.ea_table()}), month);
}

TEST_P(AnySheet, tells_a_record_that_is_gone_at_a_save_and_stays_in_the_edit) {
  run.Click("cmdEdit");
  run.s.db.Execute("DELETE FROM " + sheet.ed_table());
  run.s.At(sheet.ed_table()).Requery();
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{sheet.not_found_on_save});
  EXPECT_TRUE(sheet.not_found_on_save.starts_with("Equipment record not found"));
  EXPECT_TRUE(run.s.save_failed);
  EXPECT_TRUE(run.s.editing);
}

TEST_P(AnySheet, forgets_the_last_record_when_another_one_is_shown) {
  FillAndSave();
  run.Select(run.Key());
  run.AddEquipment(sheet.type, "X2");
  for (const FieldSpec& field : sheet.fields) {
    if (run.At(field.control).kind != Kind::kText) continue;
    EXPECT_EQ(run.Text(field.control), "") << field.control;
  }
}

TEST_P(AnySheet, has_its_pages_in_their_order_with_the_results_on_the_last) {
  const std::string general = sheet.type == "AMI" || sheet.type == "STO" ? "General Info." : "General Information";
  const std::map<std::string, Texts> middle = {{"AMI", {"Model Inputs", "Ventilation System", "Control Equipment"}},
                                               {"BOI", {"Exhaust System", "Control Equipment"}},
                                               {"DIE", {"Exhaust System", "Control Equipment"}},
                                               {"FLA", {"Control Equipment"}},
                                               {"FUG", {}},
                                               {"GLY", {"Ventilation System", "Control Equipment"}},
                                               {"DRI", {"Exhaust System", "Control Equipment"}},
                                               {"LOA", {"Ventilation System", "Control Equipment"}},
                                               {"NGE", {"Exhaust System", "Control Equipment"}},
                                               {"NGT", {"Exhaust System", "Control Equipment"}},
                                               {"STO", {"Ventilation System", "Control Equipment"}},
                                               {"VEN", {"Control Equipment"}},
                                               {"LOS", {"Ventilation System"}},
                                               {"MUD", {}},
                                               {"PNE", {"Ventilation System"}},
                                               {"PRE", {}}};
  Texts pages = middle.at(sheet.type);
  pages.insert(pages.begin(), general);
  pages.push_back("QC Results");
  EXPECT_EQ(run.At(sheet.tab()).items, pages);
  EXPECT_EQ(run.At(sheet.list()).page, static_cast<int>(pages.size()) - 1);
  EXPECT_EQ(run.At(sheet.list()).columns, (Texts{"Field Name", "Error Description", "Operator Comment"}));
  EXPECT_EQ(run.Text(sheet.date_label()), kNoDate);
}

TEST_P(AnySheetOfMonths, shuts_its_middle_pages_in_a_month) {
  std::vector<bool> open(run.At(sheet.tab()).items.size(), true);
  EXPECT_EQ(run.At(sheet.tab()).page_available, open);
  run.GoTo(sheet.type, "X1", Mode::kActv);
  std::fill(open.begin() + 1, open.end() - 1, false);
  EXPECT_EQ(run.At(sheet.tab()).page_available, open);
}

TEST_P(AnySheet, is_found_by_its_code_under_its_number) {
  EXPECT_EQ(FindSheet(sheet.type), &sheet);
  EXPECT_EQ(FindType(sheet.type)->number, sheet.number);
  EXPECT_EQ(FindType(sheet.type)->letters, sheet.letters);
  EXPECT_EQ(FindType(sheet.type)->has_activity, sheet.has_activity);
}

TEST(AllSheets, stand_in_the_order_of_their_numbers) {
  int number = 0;
  for (const SheetSpec* sheet : AllSheets()) EXPECT_EQ(sheet->number, ++number);
  EXPECT_EQ(number, 16);
  EXPECT_EQ(FindSheet("XXX"), nullptr);
}

TEST(DieselEngine, writes_the_type_s_month_before_the_common_one) {
  TestRun run;
  run.StartWith("DIE", "D1");
  run.GoTo("DIE", "D1", Mode::kActv);
  run.s.db.Execute("CREATE TEMP TRIGGER stop BEFORE UPDATE ON EA_DIE BEGIN SELECT RAISE(ABORT,'no'); END");
  run.Click("cmdEdit");
  run.Set("txtDIE_Comments", "not kept");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"3146 no"});
  EXPECT_TRUE(IsNull(run.Sql("SELECT EA_COMNT_TXT FROM EA_EQUIP_ACTV")));
}

}  // namespace
}  // namespace merlu::test
