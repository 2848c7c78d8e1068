#include <gtest/gtest.h>

#include <array>

#include "support/test_run.h"

namespace merlu::test {
namespace {

const char* const kTechnology = "cmbVEN_ControlTechnology";

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
