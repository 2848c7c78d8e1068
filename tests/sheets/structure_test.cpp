#include "sheets/structure.h"

#include <gtest/gtest.h>

#include "records/structure_record.h"
#include "session/find_rows.h"
#include "session/node_keys.h"
#include "shell/status.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;

class StructureSheet : public testing::Test {
 protected:
  StructureSheet() { run.StartWithStructure(); }
  void GoToMonth(int month = 1) {
    run.ChangeTo(Mode::kActv);
    run.Select(run.Key("", "", month));
  }
  bool IsChecked() {
    UpdateStatus(run.s);
    return run.s.checked;
  }
  std::string StoredText(const std::string& table, const std::string& column) {
    return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
  }
  TestRun run;
};

const std::vector<std::pair<std::string, std::string>> kTexts = {{"txtSTRUCTURE_Area", "Area"},
                                                                 {"txtSTRUCTURE_Block", "Block"},
                                                                 {"txtSTRUCTURE_Name", "Name"},
                                                                 {"txtSTRUCTURE_LeaseNo", "LEASE_NUM"}};
const std::vector<std::pair<std::string, std::string>> kNumbers = {
    {"txtSTRUCTURE_Lon", "LONGITUDE"},
    {"txtSTRUCTURE_Lat", "LATITUDE"},
    {"txtSTRUCTURE_DistShore", "DIST_TO_SHORE"},
    {"txtSTRUCTURE_WaterDepth", "WATER_DEPTH_FT"},
    {"txtSTRUCTURE_SalesGasC1Content", "SalesGasC1Content"},
    {"txtSTRUCTURE_SalesGasC2Content", "SalesGasC2Content"},
    {"txtSTRUCTURE_SalesGasC3Content", "SalesGasC3Content"},
    {"txtSTRUCTURE_SalesGasiC4Content", "SalesGasiC4Content"},
    {"txtSTRUCTURE_SalesGasnC4Content", "SalesGasnC4Content"},
    {"txtSTRUCTURE_SalesGasiC5Content", "SalesGasiC5Content"},
    {"txtSTRUCTURE_SalesGasnC5Content", "SalesGasnC5Content"},
    {"txtSTRUCTURE_SalesGasC6Content", "SalesGasC6Content"},
    {"txtSTRUCTURE_SalesGasC7Content", "SalesGasC7Content"},
    {"txtSTRUCTURE_SalesGasC8Content", "SalesGasC8PlusContent"},
    {"txtSTRUCTURE_SalesGasCO2Content", "SalesGasCO2Content"},
    {"txtSTRUCTURE_SalesGasH2SContent", "SalesGasH2SContent"},
    {"txtSTRUCTURE_SalesGasN2Content", "SalesGasN2Content"},
    {"txtSTRUCTURE_SalesGasO2Content", "SalesGasO2Content"}};
const std::vector<std::pair<std::string, std::string>> kMonthNumbers = {
    {"txtSTRUCTURE_ProdOil", "PROD_OIL"},
    {"txtSTRUCTURE_ProdNG", "PROD_NG"},
    {"txtSTRUCTURE_ThruOil", "THRU_OIL"},
    {"txtSTRUCTURE_ThruNG", "THRU_NG"},
    {"txtSTRUCTURE_TotalFuelUsageNG", "TOT_FUEL_USE_NG"},
    {"txtSTRUCTURE_TotalFuelUsageGasoline", "TOT_FUEL_USE_GAS"},
    {"txtSTRUCTURE_TotalFuelUsageDiesel", "TOT_FUEL_USE_DIE"}};

TEST_F(StructureSheet, keeps_each_field_of_the_description_in_its_column) {
  run.Click("cmdEdit");
  int number = 0;
  for (const auto& [control, column] : kTexts) run.Set(control, "text " + std::to_string(++number));
  for (const auto& [control, column] : kNumbers) run.Set(control, std::to_string(++number) + ".5");
  run.Set("cmbMinorSourceExempt", "Yes");
  run.Set("cmbMinorSourceExemptWhat", "Other (describe in coments)");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  number = 0;
  for (const auto& [control, column] : kTexts) {
    EXPECT_EQ(StoredText("PD_PLATFORM_DESC", column), "text " + std::to_string(++number)) << column;
    EXPECT_EQ(run.Text(control), "text " + std::to_string(number)) << control;
  }
  for (const auto& [control, column] : kNumbers) {
    EXPECT_EQ(ToNumber(run.Sql("SELECT " + column + " FROM PD_PLATFORM_DESC")), ++number + 0.5) << column;
    EXPECT_EQ(run.Text(control), std::to_string(number) + ".5") << control;
  }
  EXPECT_EQ(StoredText("PD_PLATFORM_DESC", "MINOR_SOURCE_EXEMPT"), "Yes");
  EXPECT_EQ(StoredText("PD_PLATFORM_DESC", "MINOR_SOURCE_EXEMPT_WHAT"), "Other (describe in coments)");
}

TEST_F(StructureSheet, keeps_each_field_of_the_month_in_its_column_of_that_month_only) {
  run.AddMonth();
  GoToMonth(2);
  run.Click("cmdEdit");
  int number = 0;
  for (const auto& [control, column] : kMonthNumbers) run.Set(control, std::to_string(++number));
  run.Set("txtSTRUCTURE_Comments", "it's quiet");
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  number = 0;
  for (const auto& [control, column] : kMonthNumbers) {
    EXPECT_EQ(ToInteger(run.Sql("SELECT " + column + " FROM PA_PLATFORM_ACTV WHERE PA_MO=2")), ++number) << column;
    EXPECT_TRUE(IsNull(run.Sql("SELECT " + column + " FROM PA_PLATFORM_ACTV WHERE PA_MO=1"))) << column;
  }
  EXPECT_EQ(StoredText("PA_PLATFORM_ACTV WHERE PA_MO=2", "COMNT_TXT"), "it's quiet");
  EXPECT_EQ(run.Text("txtSTRUCTURE_Comments"), "it's quiet");
}

TEST_F(StructureSheet, stores_null_for_letters_and_what_stands_before_a_thousands_comma) {
  run.Keep({{"txtSTRUCTURE_Lon", "west"},
            {"txtSTRUCTURE_Lat", ""},
            {"txtSTRUCTURE_WaterDepth", "1,200"},
            {"txtSTRUCTURE_DistShore", " 7 "}});
  EXPECT_TRUE(IsNull(run.Sql("SELECT LONGITUDE FROM PD_PLATFORM_DESC")));
  EXPECT_TRUE(IsNull(run.Sql("SELECT LATITUDE FROM PD_PLATFORM_DESC")));
  EXPECT_EQ(run.Text("txtSTRUCTURE_Lon"), "");
  EXPECT_EQ(run.Text("txtSTRUCTURE_WaterDepth"), "1");
  EXPECT_EQ(run.Text("txtSTRUCTURE_DistShore"), "7");
}

TEST_F(StructureSheet, of_a_structure_without_any_value_is_blank_and_silent) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET Area=NULL,Block=NULL,Name=NULL");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status=NULL");
  GoToMonth();
  for (const FieldSpec& field : merlu::StructureSheet().fields) {
    if (field.stored == Stored::kNone) continue;
    EXPECT_EQ(run.Text(field.control), "") << field.control;
    EXPECT_EQ(run.At(field.control).index, -1) << field.control;
  }
  EXPECT_FALSE(run.At("chkSTRUCTURE_Status").checked);
  EXPECT_FALSE(run.At("lblNoEmissions").visible);
  EXPECT_EQ(run.TakeBoxes(), Texts{});
}

TEST_F(StructureSheet, shows_the_fields_of_its_mode_and_hides_the_others) {
  EXPECT_TRUE(run.Visible("txtSTRUCTURE_Lon"));
  EXPECT_FALSE(run.Visible("txtSTRUCTURE_ProdOil"));
  GoToMonth();
  EXPECT_FALSE(run.Visible("txtSTRUCTURE_Lon"));
  EXPECT_TRUE(run.Visible("txtSTRUCTURE_ProdOil"));
}

TEST_F(StructureSheet, is_read_only_in_view) {
  EXPECT_EQ(run.At("fraStructure").caption, "Structure");
  EXPECT_FALSE(run.At("fraStructure").emphasis);
  for (const FieldSpec& field : merlu::StructureSheet().fields) {
    EXPECT_TRUE(run.At(field.control).locked) << field.control;
    EXPECT_EQ(run.At(field.control).back, Back::kFace) << field.control;
  }
  EXPECT_FALSE(run.At("cmdSTRUCTURE_EditQCComment").enabled);
}

TEST_F(StructureSheet, opens_the_fields_of_its_mode_for_an_edit_but_never_the_ids_and_the_total) {
  for (Mode mode : {Mode::kDesc, Mode::kActv}) {
    if (mode == Mode::kActv) GoToMonth();
    run.Click("cmdEdit");
    EXPECT_EQ(run.At("fraStructure").caption, "Structure - EDIT DATA");
    EXPECT_TRUE(run.At("fraStructure").emphasis);
    for (const FieldSpec& field : merlu::StructureSheet().fields) {
      const bool fixed = field.control == "txtSTRUCTURE_CmplxID" || field.control == "txtSTRUCTURE_StructID" ||
                         field.control == "txtSTRUCTURE_SalesGasTotal";
      const bool open = !fixed && (field.mode == In::kActv) == (mode == Mode::kActv);
      EXPECT_EQ(run.At(field.control).locked, !open) << field.control;
      EXPECT_EQ(run.At(field.control).back, open ? Back::kWindow : Back::kFace) << field.control;
    }
    EXPECT_TRUE(run.At("cmdSTRUCTURE_EditQCComment").enabled);
    EXPECT_EQ(run.At("Frame1").visible, mode == Mode::kActv);
    run.Click("cmdCANCEL");
  }
}

TEST_F(StructureSheet, lists_its_findings_under_error_source) {
  EXPECT_EQ(run.At("lvwSTRUCTURE_QCResults").columns, (Texts{"Error Source", "Error Description", "Operator Comment"}));
}

TEST_F(StructureSheet, offers_the_four_kinds_of_an_exempt_source) {
  EXPECT_EQ(run.At("cmbMinorSourceExempt").items, (Texts{"Yes", "No"}));
  EXPECT_EQ(run.At("cmbMinorSourceExemptWhat").items,
            (Texts{"Caisson", "Living Quarters", "Wellhead Protector", "Other (describe in coments)"}));
}

TEST_F(StructureSheet, forgets_what_is_exempt_when_nothing_is) {
  run.Keep({{"cmbMinorSourceExempt", "Yes"}, {"cmbMinorSourceExemptWhat", "Caisson"}});
  run.Click("cmdEdit");
  EXPECT_EQ(run.Text("cmbMinorSourceExemptWhat"), "Caisson");
  run.Set("cmbMinorSourceExempt", "No");
  EXPECT_EQ(run.Text("cmbMinorSourceExemptWhat"), "");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(StoredText("PD_PLATFORM_DESC", "MINOR_SOURCE_EXEMPT"), "No");
  EXPECT_TRUE(IsNull(run.Sql("SELECT MINOR_SOURCE_EXEMPT_WHAT FROM PD_PLATFORM_DESC")));
}

TEST_F(StructureSheet, writes_the_rows_of_its_mode_only) {
  const auto month = [&] { return run.s.db.Query("SELECT * FROM PA_PLATFORM_ACTV").rows; };
  const auto description = [&] { return run.s.db.Query("SELECT * FROM PD_PLATFORM_DESC").rows; };
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PROD_OIL=5,status='I'");
  const auto months = month();
  run.Keep({{"txtSTRUCTURE_Lat", "28"}});
  EXPECT_EQ(month(), months);
  GoToMonth();
  const auto descriptions = description();
  run.Keep({{"txtSTRUCTURE_ProdOil", "6"}});
  EXPECT_EQ(description(), descriptions);
}

TEST_F(StructureSheet, stores_the_status_of_the_month_and_shows_it_in_view) {
  GoToMonth();
  run.Click("cmdEdit");
  run.Check("chkSTRUCTURE_Status", true);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  EXPECT_EQ(StoredText("PA_PLATFORM_ACTV", "status"), "I");
  EXPECT_TRUE(run.Visible("lblNoEmissions"));
  EXPECT_FALSE(run.Visible("chkSTRUCTURE_Status"));
  run.Click("cmdEdit");
  EXPECT_TRUE(run.Visible("chkSTRUCTURE_Status"));
  EXPECT_FALSE(run.Visible("lblNoEmissions"));
  run.Check("chkSTRUCTURE_Status", false);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  EXPECT_EQ(StoredText("PA_PLATFORM_ACTV", "status"), "A");
  EXPECT_FALSE(run.Visible("lblNoEmissions"));
}

TEST_F(StructureSheet, shows_the_date_of_its_last_run_by_mode) {
  run.s.db.Execute("UPDATE PD_PLATFORM_DESC SET PD_QC_DT='2017-02-03 04:05:06'");
  run.Select(run.Key());
  EXPECT_EQ(run.Text("lblSTRUCTURE_QCDate"), "Date of Last QC: Feb 03, 2017 04:05");
  GoToMonth();
  EXPECT_EQ(run.Text("lblSTRUCTURE_QCDate"), "Date of Last QC:          ");
}

TEST_F(StructureSheet, saved_without_a_run_keeps_its_date_of_last_run_and_is_not_checked) {
  run.Click("cmdQC");
  run.TakeBoxes();
  GoToMonth();
  run.Click("cmdQC");
  run.TakeBoxes();
  const std::string date = StoredText("PA_PLATFORM_ACTV", "PA_QC_DT");
  EXPECT_NE(date, "");
  EXPECT_TRUE(IsChecked());
  run.Keep({{"txtSTRUCTURE_ProdOil", "8"}});
  EXPECT_EQ(StoredText("PA_PLATFORM_ACTV", "PA_QC_DT"), date);
  EXPECT_FALSE(IsChecked());
  run.Select(SurveyKey("12345", 1, 2017));
  EXPECT_FALSE(IsChecked());
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  EXPECT_TRUE(IsChecked()) << "its description is as it was";
  run.Keep({{"txtSTRUCTURE_Lat", "25"}});
  EXPECT_FALSE(IsChecked());
  run.Click("cmdEdit");
  run.Click("cmdSaveExit");
  run.TakeBoxes();
  EXPECT_TRUE(IsChecked());
  GoToMonth();
  EXPECT_FALSE(IsChecked());
  run.Select(SurveyKey("12345", 1, 2017));
  run.Click("cmdQC");
  run.TakeBoxes();
  EXPECT_TRUE(IsChecked());
  GoToMonth();
  EXPECT_TRUE(IsChecked());
}

TEST_F(StructureSheet, that_is_gone_cannot_be_loaded_or_saved) {
  run.Click("cmdEdit");
  run.s.db.Execute("DELETE FROM PD_PLATFORM_DESC");
  run.s.At("PD_PLATFORM_DESC").Requery();
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Record not found"});
  EXPECT_TRUE(run.s.save_failed);
  EXPECT_TRUE(run.s.editing);
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Structure record not found"});
  EXPECT_EQ(run.Text("txtSTRUCTURE_Area"), "");
}

// ---- new structures ----

TEST_F(StructureSheet, of_a_new_structure_gets_a_month_s_row_for_each_month_with_keys_in_a_row) {
  for (int month = 2; month <= 4; ++month) run.AddMonth();
  run.ChangeTo(Mode::kDesc);
  const std::int64_t next = NextSAId(run.s);
  run.AddStructure("2002", "2", "B");
  const Rows rows =
      run.s.db.Query("SELECT SA_ID_AK,PA_MO,PA_YR,status FROM PA_PLATFORM_ACTV WHERE PD_ID_AK=2 ORDER BY SA_ID_AK");
  ASSERT_EQ(rows.rows.size(), 4u);
  for (int month = 1; month <= 4; ++month)
    EXPECT_EQ(rows.rows[static_cast<std::size_t>(month) - 1],
              (Values{next + month - 1, std::int64_t{month}, std::int64_t{2017}, std::string("A")}));
}

TEST_F(StructureSheet, of_a_new_structure_has_its_ids_texts_and_operator) {
  run.AddStructure("2002", "2", "B");
  const Rows rows = run.s.db.Query(
      "SELECT PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name,status FROM PD_PLATFORM_DESC "
      "WHERE PD_ID_AK=2");
  ASSERT_EQ(rows.rows.size(), 1u);
  EXPECT_EQ(rows.rows[0], (Values{std::int64_t{2}, std::string("12345"), std::string("2002"), std::string("2"),
                                  std::string("GI"), std::string("43"), std::string("B"), Null{}}));
  EXPECT_EQ(run.s.PD_ID_AK, 2);
  EXPECT_EQ(run.Text("txtSTRUCTURE_CmplxID"), "2002");
  EXPECT_EQ(run.Text("txtSTRUCTURE_StructID"), "2");
}

TEST_F(StructureSheet, knows_a_pair_of_ids_whatever_their_case) {
  run.AddStructure("ab1", "x");
  EXPECT_TRUE(StructureExists(run.s.db, "AB1", "X"));
  EXPECT_FALSE(StructureExists(run.s.db, "AB1", "1"));
  EXPECT_FALSE(StructureExists(run.s.db, "1001", "x"));
}

// ---- the status of a structure is that of its equipment ----

class Statuses : public testing::Test {
 protected:
  Statuses() {
    run.StartWithStructure();
    run.AddEquipment("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FUG", "G1");
    run.AddStructure("1002");
    run.AddEquipment("VEN", "V1");
    run.SelectRoot();
    run.AddMonth();
  }
  std::string Of(const std::string& equipment, int month) {
    return NullToEmpty(
        run.Sql("SELECT EA_STATUS FROM EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK WHERE "
                "ED_MERLU_EQUIP_ID='" +
                equipment + "' AND EA_MO=" + std::to_string(month)));
  }
  TestRun run;
};

TEST_F(Statuses, go_down_to_every_equipment_of_every_structure_in_every_month) {
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='X'");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status='I' WHERE PD_ID_AK=2 AND PA_MO=1");
  run.Select(run.Key("", "", 2));
  run.Click("cmdEdit");
  run.Check("chkSTRUCTURE_Status", true);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Of("F1", 1), "A");
  EXPECT_EQ(Of("F1", 2), "I");
  EXPECT_EQ(Of("G1", 2), "I");
  EXPECT_EQ(Of("V1", 1), "I");
  EXPECT_EQ(Of("V1", 2), "A");
}

TEST_F(Statuses, of_equipment_that_was_inactive_by_itself_become_active_with_the_structure) {
  run.Select(run.Key("FLA", "F1", 1));
  run.Click("cmdEdit");
  run.Check("chkFLA_Status", true);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  EXPECT_EQ(Of("F1", 1), "I");
  run.Select(run.Key("", "", 1));
  run.Keep({{"txtSTRUCTURE_ProdOil", "1"}});
  EXPECT_EQ(Of("F1", 1), "A");
}

TEST_F(Statuses, of_structures_that_have_none_leave_their_equipment_with_none) {
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='A'");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET status=NULL WHERE PD_ID_AK=2");
  PropagateStatus(run.s);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_STATUS IS NULL"), 2);
  EXPECT_EQ(Of("F1", 1), "A");
}

TEST_F(Statuses, do_not_go_down_when_a_description_is_saved) {
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='X'");
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.Keep({{"txtSTRUCTURE_Lat", "28"}});
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_STATUS='X'"), run.Count("EA_EQUIP_ACTV"));
}

TEST_F(Statuses, of_the_month_stay_apart_by_year) {
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_YR=2016,EA_STATUS='X' WHERE EA_MO=1");
  PropagateStatus(run.s);
  EXPECT_EQ(Of("F1", 1), "X");
  EXPECT_EQ(Of("F1", 2), "A");
}

}  // namespace
}  // namespace merlu::test
