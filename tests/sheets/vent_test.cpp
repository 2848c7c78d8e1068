#include <gtest/gtest.h>

#include <array>

#include "rules/bounds.h"

namespace merlu::test {
namespace {

const char* const kTechnology = "cmbVEN_ControlTechnology";

// FieldIDs of the open findings, in the order of the log.
std::string Fields(TestRun& run) {
  return NullToEmpty(run.Sql("SELECT group_concat(FieldID,'|') FROM (SELECT FieldID FROM QC ORDER BY rowid)"));
}

TEST(Vent, misses_these_fields_of_a_blank_description_in_this_order) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdQC");
  EXPECT_EQ(Fields(run),
            "Vent Type|Stack Outlet Elevation|Stack Orientation|Stack Inner Diameter|Exit Velocity|Exit Temperature|"
            "Installed Control Equipment");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'DESC'"), 0);
}

TEST(Vent, misses_these_fields_of_a_blank_month_in_this_order) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.GoTo("VEN", "V1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(
      Fields(run),
      "Hours Operated, excl upsets|Volume Vented, incl upsets|Vent Gas H2S Concentration|Vent Gas VOC Concentration|"
      "Avg Molecular Weight of VOCs");
  EXPECT_EQ(run.Count("QC WHERE [Desc]<>'Required field left blank' OR EditMode<>'ACTV'"), 0);
}

TEST(Vent, is_asked_for_its_molecular_weight_in_every_month) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.AddMonth();
  for (int month : {1, 2}) {
    run.GoTo("VEN", "V1", Mode::kActv, month);
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Avg Molecular Weight of VOCs", "[Month]=" + std::to_string(month)), kBlankFinding);
  }
}

TEST(Vent, fails_at_a_stack_temperature_that_is_far_below_a_flare_s) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdEdit");
  run.Set("txtVEN_StackT", "201");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Exit Temperature"), "Value not in expected range (0 to 200)");
  run.Set("txtVEN_StackT", "200");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Exit Temperature"), "");
  run.Click("cmdCANCEL");
  run.Select(run.Key());
  run.AddEquipment("FLA", "F1");
  run.Click("cmdEdit");
  run.Set("txtFLA_StackExitT", "1099");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg. Combustion Temperature"), "Value not in expected range (1100 to 2000)");
  run.Set("txtFLA_StackExitT", "1100");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Avg. Combustion Temperature"), "");
}

TEST(Vent, with_a_condenser_of_blank_temperature_and_pressure_passes) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdEdit");
  run.Set(kTechnology, "Condenser");
  run.Click("cmdQC");
  EXPECT_GT(run.Count("QC"), 0);
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE 'Condenser%'"), 0);
}

TEST(Vent, without_a_condenser_loses_the_condenser_s_findings) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdEdit");
  run.Put({{kTechnology, "Condenser"}, {"txtVEN_CondenserT", "31"}, {"txtVEN_CondenserP", "1001"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), "Value not in expected range (32 to 212)");
  EXPECT_EQ(run.Finding("Condenser Pressure"), "Value not in expected range (0.5 to 1000)");
  run.Set(kTechnology, "None");
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE 'Condenser%'"), 0);
  EXPECT_GT(run.Count("QC"), 0);
}

TEST(Vent, keeps_a_standing_condenser_finding_while_the_field_is_blank) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdEdit");
  run.Put({{kTechnology, "Condenser"}, {"txtVEN_CondenserT", "31"}});
  run.Click("cmdQC");
  run.Set("txtVEN_CondenserT", "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Condenser Temperature"), "Value not in expected range (32 to 212)");
}

TEST(Vent, turns_the_condenser_s_fields_on_and_off_without_losing_their_texts) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdEdit");
  const auto expect = [&](bool on) {
    for (const char* field : {"txtVEN_CondenserT", "txtVEN_CondenserP"}) {
      EXPECT_EQ(run.At(field).enabled, on) << field;
      EXPECT_EQ(run.At(field).back, on ? Back::kWindow : Back::kFace) << field;
    }
  };
  expect(false);
  run.Set(kTechnology, "Condenser");
  expect(true);
  run.Put({{"txtVEN_CondenserT", "90"}, {"txtVEN_CondenserP", "15"}});
  run.Set(kTechnology, "None");
  expect(false);
  EXPECT_EQ(run.Text("txtVEN_CondenserT") + " " + run.Text("txtVEN_CondenserP"), "90 15");
  run.Click("cmdSaveEdits");
  expect(false);
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT CTRL_TECH||CONDENSER_TEMP||'|'||CONDENSER_PRES FROM ED_VEN")), "NONE90.0|15.0");
}

TEST(Vent, turns_the_condenser_s_fields_on_when_an_edit_begins_in_either_mode) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Keep({{kTechnology, "Condenser"}});
  for (Mode mode : {Mode::kDesc, Mode::kActv}) {
    run.GoTo("VEN", "V1", mode);
    run.Click("cmdEdit");
    for (const char* field : {"txtVEN_CondenserT", "txtVEN_CondenserP"}) {
      EXPECT_TRUE(run.At(field).enabled) << field;
      EXPECT_EQ(run.At(field).back, Back::kWindow) << field;
      EXPECT_EQ(run.At(field).locked, mode == Mode::kActv) << field;
    }
    run.Click("cmdCANCEL");
  }
}

TEST(Vent, leaves_a_required_list_flagged_when_it_passes) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.At("cmbVEN_VentType").back, Back::kFlag);
  EXPECT_EQ(run.At(kTechnology).back, Back::kFlag);
  EXPECT_EQ(run.At("txtVEN_StackT").back, Back::kFlag);
  run.Put({{"cmbVEN_VentType", "Low Pressure"}, {kTechnology, "None"}, {"txtVEN_StackT", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Vent Type") + run.Finding("Installed Control Equipment") + run.Finding("Exit Temperature"),
            "");
  EXPECT_EQ(run.At("cmbVEN_VentType").back, Back::kFlag);
  EXPECT_EQ(run.At(kTechnology).back, Back::kFlag);
  EXPECT_EQ(run.At("txtVEN_StackT").back, Back::kWindow);
}

TEST(Vent, unlocks_the_hidden_comment_with_the_description) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Click("cmdEdit");
  EXPECT_FALSE(run.At("txtVEN_Comments").locked);
  EXPECT_EQ(run.At("txtVEN_Comments").back, Back::kWindow);
  EXPECT_EQ(run.WhyNotSet("txtVEN_Comments"), "is hidden");
}

TEST(Vent, keeps_its_description_and_reads_it_back) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.Keep({{"cmbVEN_VentType", "High Pressure"},
            {kTechnology, "Condenser"},
            {"txtVEN_CondenserT", "1.5"},
            {"txtVEN_CondenserP", "2.5"}});
  EXPECT_EQ(
      NullToEmpty(run.Sql("SELECT VENT_TYP||' '||CTRL_TECH||' '||CONDENSER_TEMP||' '||CONDENSER_PRES FROM ED_VEN")),
      "H CND 1.5 2.5");
  EXPECT_EQ(run.At("cmbVEN_VentType").index, 0);
  EXPECT_EQ(run.At(kTechnology).index, 0);
  EXPECT_EQ(run.Text("txtVEN_CondenserT") + " " + run.Text("txtVEN_CondenserP"), "1.5 2.5");
  run.Keep({{"cmbVEN_VentType", "Low Pressure"}, {kTechnology, "None"}});
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT VENT_TYP||' '||CTRL_TECH FROM ED_VEN")), "L NONE");
}

TEST(Vent, keeps_its_month_and_reads_it_back) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.GoTo("VEN", "V1", Mode::kActv);
  run.Keep({{"txtVEN_HrsOperated", "1.5"},
            {"txtVEN_VolVented", "2.5"},
            {"txtVEN_ConcH2S", "3.5"},
            {"txtVEN_ConcVOC", "4.5"},
            {"txtVEN_VOCMolWeight", "5.5"}});
  EXPECT_EQ(NullToEmpty(
                run.Sql("SELECT OP_HR||' '||VOL_VENTED||' '||CONC_H2S||' '||CONC_VOC||' '||VOC_MOLE_WGT FROM EA_VEN")),
            "1.5 2.5 3.5 4.5 5.5");
  EXPECT_EQ(run.Text("txtVEN_HrsOperated") + " " + run.Text("txtVEN_VolVented") + " " + run.Text("txtVEN_ConcH2S") +
                " " + run.Text("txtVEN_ConcVOC") + " " + run.Text("txtVEN_VOCMolWeight"),
            "1.5 2.5 3.5 4.5 5.5");
}

TEST(Vent, has_its_captions_tags_and_lists) {
  TestRun run;
  run.StartWith("VEN", "V1");
  const std::vector<std::array<std::string, 3>> fields = {
      {"cmbVEN_VentType", "Vent Type:", "Vent Type"},
      {kTechnology, "Installed Control Equipment:", "Installed Control Equipment"},
      {"txtVEN_CondenserT", "Condenser Temperature (°F):", "Condenser Temperature"},
      {"txtVEN_CondenserP", "Condenser Pressure (psia):", "Condenser Pressure"},
      {"txtVEN_HrsOperated", "Hours Operated (hrs), including upsets:", "Hours Operated, excl upsets"},
      {"txtVEN_VolVented", "Volume Vented (Mscf), including upsets:", "Volume Vented, incl upsets"},
      {"txtVEN_ConcH2S", "Vent Gas H2S Concentration (ppmv):", "Vent Gas H2S Concentration"},
      {"txtVEN_ConcVOC", "Vent Gas VOC Concentration (ppmv):", "Vent Gas VOC Concentration"},
      {"txtVEN_VOCMolWeight", "Avg Molecular Weight of VOCs (lb/lb-mol):", "Avg Molecular Weight of VOCs"},
      {"txtVEN_Comments", "Comments:", ""}};
  for (const auto& [control, caption, tag] : fields) {
    EXPECT_EQ(run.At(control).caption, caption);
    EXPECT_EQ(run.At(control).tag, tag);
  }
  EXPECT_EQ(run.At("cmbVEN_VentType").items, (std::vector<std::string>{"High Pressure", "Low Pressure"}));
  EXPECT_EQ(run.At(kTechnology).items, (std::vector<std::string>{"Condenser", "None"}));
}

TEST(Vent, keeps_the_month_s_comment_when_its_own_row_cannot_be_written) {
  TestRun run;
  run.StartWith("VEN", "V1");
  run.GoTo("VEN", "V1", Mode::kActv);
  run.s.db.Execute("CREATE TEMP TRIGGER full BEFORE UPDATE ON EA_VEN BEGIN SELECT RAISE(ABORT,'full'); END");
  run.Click("cmdEdit");
  run.Put({{"txtVEN_HrsOperated", "5"}, {"txtVEN_Comments", "first"}});
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.boxes.size(), 1u);
  EXPECT_EQ(NullToEmpty(run.Sql("SELECT EA_COMNT_TXT FROM EA_EQUIP_ACTV")), "first");
  EXPECT_TRUE(IsNull(run.Sql("SELECT OP_HR FROM EA_VEN")));
}

}  // namespace
}  // namespace merlu::test
