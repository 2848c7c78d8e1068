#include <gtest/gtest.h>

#include "base/numbers.h"
#include "fugitives.h"

namespace merlu::test {
namespace {

using namespace fugitives;

// An edit of a new record with sound values.
struct Sheet {
  Sheet() {
    run.StartWith("FUG", "L1");
    run.Click("cmdEdit");
    run.Put(Sound());
  }
  // Runs QC and gives the finding of the field.
  std::string Finding(const std::string& tag) {
    run.Click("cmdQC");
    run.TakeBoxes();
    return run.Finding(tag);
  }
  TestRun run;
};

TEST(Fugitives, of_a_blank_record_lack_every_required_field_in_the_order_of_the_rules) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.Click("cmdQC");
  std::vector<std::pair<std::string, std::string>> expected;
  for (const char* tag :
       {"Stream Type", "Facility Size", "VOC Weight %", "Equipment Elevation", "Count Type", "LDAR Program"})
    expected.emplace_back(tag, kBlankFinding);
  for (const Component& component : kComponents) expected.emplace_back(component.tag, kBlankFinding);
  EXPECT_EQ(run.Findings(), expected);
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"QC completed with 24 errors found"});
}

TEST(Fugitives, without_a_single_component_are_accepted_on_a_small_facility) {
  Sheet sheet;
  sheet.run.Click("cmdQC");
  EXPECT_EQ(sheet.run.TakeBoxes(), std::vector<std::string>{"QC completed, no errors found"});
}

TEST(Fugitives, taken_out_of_inspection_lose_months_and_method_and_their_findings) {
  Sheet sheet;
  sheet.run.Put({{kInspected, "Yes"}, {kMonths, "6"}});
  EXPECT_EQ(sheet.Finding("Method of Inspection"), kBlankFinding);
  sheet.run.Set(kMethod, "Visual Inspection");
  sheet.run.Set(kInspected, "No");
  EXPECT_EQ(sheet.run.Text(kMonths), "");
  EXPECT_EQ(sheet.run.Text(kMethod), "");
  EXPECT_EQ(sheet.run.At(kMethod).index, -1);
  EXPECT_EQ(sheet.run.WhyNotSet(kMonths), "is locked");
  EXPECT_EQ(sheet.run.WhyNotSet(kMethod), "is locked");
  EXPECT_EQ(sheet.Finding("Method of Inspection"), "");
  EXPECT_EQ(sheet.run.Finding("Months Between Inspections"), "");
}

TEST(Fugitives, open_for_inspection_only_what_inspection_needs) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.Click("cmdEdit");
  for (const char* field : {kMonths, kMethod}) {
    EXPECT_TRUE(run.At(field).locked) << field;
    EXPECT_TRUE(run.At(field).enabled) << field;
    EXPECT_EQ(run.At(field).back, Back::kFace) << field;
  }
  run.Set(kInspected, "Yes");
  for (const char* field : {kMonths, kMethod}) EXPECT_FALSE(run.At(field).locked) << field;
  run.Click("cmdSaveEdits");
  for (const char* field : {kMonths, kMethod}) {
    EXPECT_FALSE(run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kWindow) << field;
  }
}

TEST(Fugitives, that_are_not_inspected_still_show_the_months_and_method_that_are_stored) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.s.db.Execute(
      "UPDATE ED_FUG SET IS_LDAR_IN_PLACE='No',NBR_MONTHS_BETWEEN_INSPECTIONS=6,INSPECTION_METHOD='Vapor Analyzer'");
  run.Select(run.Key());
  run.Select(run.Key("FUG", "L1"));
  EXPECT_EQ(run.Text(kMonths), "6");
  EXPECT_EQ(run.Text(kMethod), "Vapor Analyzer");
}

TEST(Fugitives, store_every_stream_and_size_by_its_code) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.Click("cmdEdit");
  const auto stores = [&](const std::string& list, const std::string& column, const Values& codes) {
    std::vector<std::string> items;
    for (const auto& [item, code] : codes) {
      items.push_back(item);
      run.Set(list, item);
      run.Click("cmdSaveEdits");
      EXPECT_EQ(NullToEmpty(run.Sql("SELECT " + column + " FROM ED_FUG")), code);
      EXPECT_EQ(run.Text(list), item);
    }
    EXPECT_EQ(run.At(list).items, items);
  };
  stores("cmbFUG_StreamType", "STREAM_TYP",
         {{"Light Oil (>=20 APIG)", "LO"},
          {"Heavy Oil (<20 APIG)", "HO"},
          {"Oil/Water/Gas", "OG"},
          {"Oil/Water", "OW"},
          {"Gas", "GA"},
          {"NGL", "NG"}});
  stores(kSize, "FACIL_SIZE", {{kSmall, "S"}, {kMedium, "M"}, {kLarge, "L"}});
  stores("cmbFUG_CountType", "COUNT_TYPE", {{"Actual", "Actual"}, {"Default", "Default"}});
  stores(kInspected, "IS_LDAR_IN_PLACE", {{"Yes", "Yes"}, {"No", "No"}});
  run.Set(kInspected, "Yes");
  stores(kMethod, "INSPECTION_METHOD",
         {{"Optical Instrument", "Optical Instrument"},
          {"Vapor Analyzer", "Vapor Analyzer"},
          {"Visual Inspection", "Visual Inspection"}});
}

TEST(Fugitives, show_no_choice_for_a_stored_code_that_is_unknown_and_keep_it) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.s.db.Execute("UPDATE ED_FUG SET STREAM_TYP='ZZ',FACIL_SIZE='X'");
  run.Select(run.Key());
  run.Select(run.Key("FUG", "L1"));
  for (const char* list : {"cmbFUG_StreamType", kSize}) {
    EXPECT_EQ(run.Text(list), "") << list;
    EXPECT_EQ(run.At(list).index, -1) << list;
  }
  run.Keep({});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT STREAM_TYP FROM ED_FUG")), "ZZ");
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT FACIL_SIZE FROM ED_FUG")), "X");
}

TEST(Fugitives, store_every_count_in_its_own_column) {
  TestRun run;
  run.StartWith("FUG", "L1");
  Values counts;
  for (const Component& component : kComponents)
    counts.emplace_back(component.control, std::to_string(11 + counts.size()));
  run.Keep(counts);
  int expected = 11;
  for (const Component& component : kComponents)
    EXPECT_EQ(ToNumber(run.Sql(std::string("SELECT ") + component.column + " FROM ED_FUG")), expected++)
        << component.column;
}

TEST(Fugitives, empty_the_control_device_that_no_page_shows_at_every_save) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.s.db.Execute(
      "UPDATE ED_FUG SET OTH_CTRL_DEVICE=1,OTH_CTRL_DESC='scrubber',OTH_CTRL_EFFIC_CO=1,OTH_CTRL_EFFIC_NOX=2,"
      "OTH_CTRL_EFFIC_PM10=3,OTH_CTRL_EFFIC_SOX=4,OTH_CTRL_EFFIC_VOC=5");
  run.Select(run.Key());
  run.Select(run.Key("FUG", "L1"));
  EXPECT_EQ(ToNumber(run.Sql("SELECT OTH_CTRL_EFFIC_VOC FROM ED_FUG")), 5);
  run.Keep({{"txtFUG_Valves", "7"}});
  EXPECT_EQ(run.Count("ED_FUG WHERE VALVES_QTY=7 AND OTH_CTRL_DEVICE IS NULL AND OTH_CTRL_DESC IS NULL AND "
                      "OTH_CTRL_EFFIC_CO IS NULL AND OTH_CTRL_EFFIC_NOX IS NULL AND OTH_CTRL_EFFIC_PM10 IS NULL AND "
                      "OTH_CTRL_EFFIC_SOX IS NULL AND OTH_CTRL_EFFIC_VOC IS NULL"),
            1);
}

TEST(Fugitives, lose_their_comment_when_the_sheet_is_loaded_again) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.Click("cmdEdit");
  run.Set("txtFUG_Comments", "seen from the boat");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.Text("txtFUG_Comments"), "");
  EXPECT_EQ(run.At("txtFUG_Comments").caption, "Comments:");
}

TEST(Fugitives, leave_the_rows_of_every_month_alone) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.Select(run.Key());
  run.AddEquipment("FUG", "L1");
  run.Select(run.Key());
  run.AddMonth();
  run.s.db.Execute(
      "UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT='kept',EA_QC_DT='2017-02-01 08:00:00' WHERE EA_EQUIP_TYP='FUG'");
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key("FUG", "L1"));
  run.Click("cmdEdit");
  run.Put(Sound());
  run.Click("cmdSaveExit");
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='FUG'"), 1);
  EXPECT_EQ(run.Count("EA_EQUIP_ACTV WHERE EA_EQUIP_TYP='FUG' AND EA_COMNT_TXT='kept' AND EA_STATUS IS NULL AND "
                      "EA_QC_DT='2017-02-01 08:00:00'"),
            1);
}

TEST(Fugitives, have_no_month_no_status_and_no_date_of_a_run) {
  Sheet sheet;
  sheet.run.Click("cmdQC");
  EXPECT_EQ(sheet.run.Text("lblFUG_QCDate"), "Date of Last QC:          ");
  EXPECT_TRUE(IsNull(sheet.run.Sql("SELECT ED_QC_DT FROM ED_EQUIP_DESC")));
  EXPECT_EQ(sheet.run.Count("EA_EQUIP_ACTV"), 0);
  EXPECT_FALSE(sheet.run.Visible("lblNoEmissions"));
  EXPECT_EQ(sheet.run.s.desk.Find("frmFUG")->Find("chkFUG_Status"), nullptr);
}

TEST(Fugitives, refuse_the_activity_edit_mode_by_button_and_by_menu) {
  TestRun run;
  run.StartWith("FUG", "L1");
  for (const char* command : {"cmdEditMode", "mnuSetEditMode"}) {
    run.Click(command);
    EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"No Activity Edit Mode for Fugitives."}) << command;
    EXPECT_EQ(run.s.mode, Mode::kDesc) << command;
  }
  EXPECT_EQ(run.At("cmdEditMode").caption, "Edit Activity Data");
}

TEST(Fugitives, wear_their_captions_and_the_misspelled_name_of_one) {
  TestRun run;
  run.StartWith("FUG", "L1");
  EXPECT_EQ(run.Text("lblFUG_IsLDAPInPlace"), "Is active Leak Detection and Repair (LDAR) program in place?");
  EXPECT_EQ(run.At("fraFUG").caption, "Fugitives");
  EXPECT_EQ(run.At("tabFUG").items, (std::vector<std::string>{"General Information", "QC Results"}));
  EXPECT_EQ(run.At("txtFUG_OtherCompSeals").caption, "Other Compressors - # seals:");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraFUG").caption, "Fugitives - EDIT DATA");
  EXPECT_EQ(run.s.desk.Find("frmFUG")->focus, "cmbFUG_StreamType");
}

TEST(Fugitives, keep_the_control_device_out_of_sight) {
  TestRun run;
  run.StartWith("FUG", "L1");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet("cmbFUG_OtherControlDevice"), "is hidden");
  EXPECT_EQ(run.WhyNotSet("txtFUG_OtherControlEffVOC"), "is hidden");
}

}  // namespace
}  // namespace merlu::test
