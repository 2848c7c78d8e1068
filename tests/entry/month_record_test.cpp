// Typing a month: sums, hints, the month before and what is taken over from it, saving and going on.
#include "entry/month_record.h"

#include <gtest/gtest.h>

#include "entry/strip.h"
#include "forms/desk.h"
#include "forms/grid_model.h"
#include "shell/docks.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

class MonthEntry : public testing::Test {
 protected:
  // A flare F1 with a pilot and a vent V1 in two months; January has figures.
  void SetUp() override {
    run.StartWith("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("VEN", "V1");
    run.SelectRoot();
    run.AddMonth();
    run.s.db.Execute("UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=1");
    run.s.db.Execute(
        "UPDATE EA_FLA SET OP_HR=744,VOL_FLARED=12.5,PILOT_INCLUDED_IN_VOLUME='Yes' WHERE EA_ID_AK=(SELECT "
        "MIN(EA_ID_AK) FROM EA_FLA)");
  }
  void GoToFlare(int month) { run.GoTo("FLA", "F1", Mode::kActv, month); }
  TestRun run;
};

TEST_F(MonthEntry, computes_a_sum_when_its_field_is_left) {
  GoToFlare(2);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "=12*31");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "372");
  EXPECT_EQ(run.At("txtFLA_HrsOperated").hint, "");
  run.Set("txtFLA_HrsOperated", "=12*");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "=12*");
  EXPECT_EQ(run.At("txtFLA_HrsOperated").hint, "Not a number: will be saved blank");
  run.Set("txtFLA_Comments", "=1+1");
  EXPECT_EQ(run.Text("txtFLA_Comments"), "=1+1");
}

TEST_F(MonthEntry, computes_a_sum_that_a_save_finds_in_its_field) {
  GoToFlare(2);
  run.Click("cmdEdit");
  run.At("txtFLA_HrsOperated").text = "=2*5";
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "10");
}

TEST_F(MonthEntry, tells_what_a_save_will_make_of_a_text_until_it_is_saved) {
  GoToFlare(2);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "12,5");
  EXPECT_EQ(run.At("txtFLA_HrsOperated").hint, "Will be saved as 12");
  run.Set("txtFLA_VolFlared", "abc");
  EXPECT_EQ(run.At("txtFLA_VolFlared").hint, "Not a number: will be saved blank");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "12");
  EXPECT_EQ(run.At("txtFLA_HrsOperated").hint, "");
  EXPECT_EQ(run.At("txtFLA_VolFlared").hint, "");
}

TEST_F(MonthEntry, shows_the_month_before_beside_its_fields) {
  GoToFlare(2);
  EXPECT_EQ(run.At("txtFLA_HrsOperated").was, "744");
  EXPECT_EQ(run.At("txtFLA_VolFlared").was, "12.5");
  EXPECT_EQ(run.At("cmbFLA_PilotIncludedInVolume").was, "Yes");
  EXPECT_EQ(run.At("txtFLA_ConcH2S").was, "");
  GoToFlare(1);
  EXPECT_EQ(run.At("txtFLA_HrsOperated").was, "");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PROD_OIL=1000 WHERE PA_MO=1");
  run.Select(run.Key("", "", 2));
  EXPECT_EQ(run.At("txtSTRUCTURE_ProdOil").was, "1000");
  EXPECT_EQ(run.At("txtSTRUCTURE_ProdNG").was, "");
}

TEST_F(MonthEntry, copies_the_month_before_into_blank_open_fields) {
  GoToFlare(2);
  EXPECT_FALSE(run.WhyNotClick("mnuNCopy").empty());
  run.Click("cmdEdit");
  run.Set("txtFLA_VolFlared", "3");
  EXPECT_FALSE(run.WhyNotClick("mnuNConfirm").empty());
  run.Click("mnuNCopy");
  EXPECT_EQ(run.Text("txtFLA_HrsOperated"), "744");
  EXPECT_TRUE(run.At("txtFLA_HrsOperated").copied);
  EXPECT_EQ(run.Text("txtFLA_VolFlared"), "3");
  EXPECT_FALSE(run.At("txtFLA_VolFlared").copied);
  EXPECT_EQ(run.Text("cmbFLA_PilotIncludedInVolume"), "Yes");
  EXPECT_TRUE(run.At("cmbFLA_PilotIncludedInVolume").copied);
  run.Set("txtFLA_HrsOperated", "700");
  EXPECT_FALSE(run.At("txtFLA_HrsOperated").copied) << "typing confirms";
  run.Click("mnuNConfirm");
  EXPECT_FALSE(run.At("cmbFLA_PilotIncludedInVolume").copied);
  EXPECT_EQ(run.s.message, "1 value confirmed");
}

TEST_F(MonthEntry, keeps_in_mind_what_was_copied_and_saved_until_it_is_confirmed) {
  GoToFlare(2);
  run.Click("cmdEdit");
  run.Click("mnuNCopy");
  run.Set("txtFLA_VolFlared", "3");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(run.At("txtFLA_HrsOperated").copied);
  EXPECT_FALSE(run.At("txtFLA_VolFlared").copied);
  run.Click("cmdSaveExit");
  GoToFlare(1);
  EXPECT_FALSE(run.At("txtFLA_HrsOperated").copied);
  GoToFlare(2);
  EXPECT_TRUE(run.At("txtFLA_HrsOperated").copied);
  EXPECT_TRUE(run.At("cmbFLA_PilotIncludedInVolume").copied);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "700");
  run.Click("cmdSaveExit");
  EXPECT_FALSE(run.At("txtFLA_HrsOperated").copied);
  run.Click("mnuNConfirm");
  EXPECT_FALSE(run.At("cmbFLA_PilotIncludedInVolume").copied);
  GoToFlare(1);
  GoToFlare(2);
  EXPECT_FALSE(run.At("cmbFLA_PilotIncludedInVolume").copied);
  EXPECT_FALSE(run.WhyNotClick("mnuNConfirm").empty());
}

TEST_F(MonthEntry, keeps_the_finding_beside_its_field_and_counts_them_by_page) {
  GoToFlare(1);
  EXPECT_EQ(run.At("txtFLA_HrsOperated").finding, "");
  EXPECT_EQ(run.At("tabFLA").counts, (std::vector<int>{0, 0, 0}));
  run.Keep({{"txtFLA_HrsOperated", "745"}, {"txtFLA_VolFlared", ""}});
  EXPECT_EQ(run.Count("QC"), 0) << "judged as stored, without a run";
  EXPECT_EQ(run.At("txtFLA_HrsOperated").finding, "Value not in expected range (0 to 744)");
  EXPECT_EQ(run.At("txtFLA_VolFlared").finding, "Required field left blank");
  EXPECT_EQ(run.At("tabFLA").counts, (std::vector<int>{2, 0, 0}));
  run.s.db.Execute("UPDATE EA_FLA SET OP_HR=NULL,VOL_FLARED=NULL,PILOT_INCLUDED_IN_VOLUME=NULL");
  GoToFlare(2);
  GoToFlare(1);
  EXPECT_EQ(run.At("txtFLA_HrsOperated").finding, "") << "a month without a single value";
}

TEST_F(MonthEntry, keeps_a_finding_beside_every_field_of_its_tag_and_counts_it_once) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.AddEquipment("NGE", "N1");
  run.s.db.Execute("UPDATE ED_NGE SET ENGINE_STROKE_CYCLE='2'");
  run.GoTo("NGE", "N1", Mode::kDesc);
  const int count = run.At("tabNGE").counts[0];
  EXPECT_EQ(run.At("cmbNGE_EngineStrokeCycle").finding, "Required field left blank");
  EXPECT_EQ(run.At("cmbNGE_EngineBurnType").finding, "Required field left blank");
  run.Click("cmdQC");
  EXPECT_EQ(run.At("tabNGE").counts[0], count);
}

TEST_F(MonthEntry, keeps_no_finding_beside_a_field_without_a_tag) {
  run.s.db.Execute("DELETE FROM ED_EQUIP_DESC");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PROD_OIL=1");
  run.ChangeTo(Mode::kActv);
  run.Select(run.Key("", "", 1));
  EXPECT_EQ(run.At("txtSTRUCTURE_ProdNG").finding, "Required field left blank");
  EXPECT_EQ(run.At("chkSTRUCTURE_Status").finding, "") << "no equipment is the structure's finding";
}

TEST_F(MonthEntry, shows_the_twelve_months_of_the_field_in_hand) {
  EXPECT_EQ(AdviceOn(900, {10, 11, 12, 13, 14}), "Unusual: the other months lie between 10 and 14.");
  EXPECT_EQ(AdviceOn(15, {10, 11, 12, 13, 14}), "");
  EXPECT_EQ(AdviceOn(900, {10, 11, 12, 13}), "") << "too few";
  EXPECT_EQ(AdviceOn(900, {10, 10, 10, 10, 11}), "") << "no deviation";
  GoToFlare(2);
  run.Click("mnuRStrip");
  EXPECT_TRUE(run.At("mnuRStrip").checked);
  run.Click("cmdEdit");
  run.Set("txtFLA_HrsOperated", "700");
  RefreshDocks(run.s);
  EXPECT_EQ(run.Text("lblSTR_Field"), "Hours Operated (hrs), including upsets:");
  ASSERT_EQ(run.At("lvwSTR_Months").rows.size(), 1u);
  EXPECT_EQ(run.At("lvwSTR_Months").rows[0][0], "744");
  EXPECT_EQ(run.At("lvwSTR_Months").rows[0][1], "700");
  EXPECT_EQ(run.At("lvwSTR_Months").rows[0][2], "");
  EXPECT_EQ(run.Text("lblSTR_Advice"), "");
  EXPECT_EQ(run.Text("lblSTR_Least"), "0");
  EXPECT_EQ(run.Text("lblSTR_Most"), "744");
}

TEST_F(MonthEntry, saves_and_goes_on_to_the_next_record_that_is_active) {
  GoToFlare(1);
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotClick("mnuNNext"), "");
  run.Set("txtFLA_HrsOperated", "745");
  run.TakeBoxes();
  run.Click("mnuNPrevious");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{}) << "its findings stand in the message";
  // the vent comes before the flare
  EXPECT_EQ(run.s.current.EquipID, "V1");
  EXPECT_TRUE(run.s.editing);
  EXPECT_EQ(run.s.message, "Flare F1 saved, 1 finding");
  EXPECT_EQ(run.Sql("SELECT MIN(OP_HR) FROM EA_FLA"), Value(745.0));
  run.Click("mnuNNext");
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(run.s.current.Month, 1);
  EXPECT_TRUE(run.s.message.starts_with("Vent V1 saved, ")) << run.s.message;
  run.Click("mnuNNext");
  EXPECT_FALSE(run.s.editing);
  EXPECT_EQ(run.s.message, "Flare F1 saved, 1 finding. It is the last record.");
  run.s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_STATUS='I' WHERE EA_EQUIP_TYP='VEN'");
  run.Click("cmdEdit");
  run.Click("mnuNPrevious");
  EXPECT_FALSE(run.s.editing);
  EXPECT_EQ(run.s.current.EquipID, "F1");
}

TEST_F(MonthEntry, takes_the_name_of_the_rig_over_too) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.AddEquipment("DRI", "R1");
  run.s.db.Execute("UPDATE EA_DRI SET DRILLING_EQUIPMENT='Rig 7' WHERE EA_ID_AK=(SELECT MIN(EA_ID_AK) FROM EA_DRI)");
  run.GoTo("DRI", "R1", Mode::kActv, 2);
  EXPECT_EQ(run.At("txtJAC_DrillingEquipment").was, "Rig 7");
  run.Click("cmdEdit");
  run.Click("mnuNCopy");
  EXPECT_EQ(run.Text("txtJAC_DrillingEquipment"), "Rig 7");
  EXPECT_TRUE(run.At("txtJAC_DrillingEquipment").copied);
}

// A pump whose remote vent has no ID: its months fall back while they are saved.
void AddPumpWithoutVent(TestRun& run) {
  run.ChangeTo(Mode::kDesc);
  run.Select(run.Key());
  run.AddEquipment("PNE", "P1");
  run.s.db.Execute("UPDATE ED_PNE SET EMIS_DEST='VR',SENT_TO_ID=NULL");
  run.GoTo("PNE", "P1", Mode::kActv, 1);
  run.TakeBoxes();
}

TEST_F(MonthEntry, says_in_the_message_what_a_sheet_says_in_a_box_of_its_destination) {
  AddPumpWithoutVent(run);
  run.Click("cmdEdit");
  run.Set("txtPNE_HrsOperated", "10");
  run.Set("txtPNE_FuelUsageRate", "10");
  run.Click("mnuNPrevious");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{});
  EXPECT_EQ(run.s.message,
            "Pneumatic Pumps P1 saved, 1 finding. No Vent ID given. Changing Ventilation to Vented Locally");
  run.Click("cmdCANCEL");
  run.GoTo("PNE", "P1", Mode::kActv, 1);
  run.dialogs.push_back([&](Form& form) {
    GridModel& grid = *form.At("grdGRD").grid;
    EXPECT_EQ(act::TypeCell(run.s.desk, form, "grdGRD", 0, grid.FindColumn("txtPNE_HrsOperated"), "12"), "");
    run.Click("cmdGRD_Save");
    EXPECT_EQ(form.At("lblGRD_Message").text,
              "1 record saved, 1 finding. P1: No Vent ID given. Changing Ventilation to Vented Locally");
    run.Click("cmdCANCEL");
  });
  run.Click("mnuNGrid");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{});
  EXPECT_EQ(run.Text("txtPNE_HrsOperated"), "12") << "the sheet below shows what was saved";
}

TEST_F(MonthEntry, a_month_of_the_strip_is_gone_to_unless_the_record_is_edited) {
  GoToFlare(2);
  run.Click("mnuRStrip");
  Form& strip = *run.s.desk.Find("frmStrip");
  EXPECT_EQ(act::DoubleClick(run.s.desk, strip, "lvwSTR_Months", 0, 0), "");
  EXPECT_EQ(run.s.current.Month, 1);
  EXPECT_EQ(run.s.current.EquipID, "F1");
  EXPECT_EQ(act::DoubleClick(run.s.desk, strip, "lvwSTR_Months", 0, 11), "");
  EXPECT_EQ(run.s.current.Month, 1) << "there is no such month yet";
  run.Click("cmdEdit");
  run.TakeBoxes();
  EXPECT_EQ(act::DoubleClick(run.s.desk, strip, "lvwSTR_Months", 0, 1), "");
  EXPECT_EQ(run.TakeBoxes(), std::vector<std::string>{"End the edit first."});
  EXPECT_EQ(run.s.current.Month, 1);
}

}  // namespace
}  // namespace merlu::test
