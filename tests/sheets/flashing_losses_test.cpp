#include <gtest/gtest.h>

#include "flashing_losses.h"

namespace merlu::test {
namespace {

using namespace flashing;

using Texts = std::vector<std::string>;

// A field, and a text typed into it with what its column holds then.
struct Field {
  const char *control, *caption, *tag, *column, *text, *stored;
};

const Field kMonth[] = {
    {"txtLOS_Throughput", "Oil/Condensate Throughput (bbls):", "Oil/Condensate Throughput", "THRUPUT", "3.5", "3.5"},
    {"txtLOS_SCFperBarrel", "SCF of flash per bbl of oil:", "SCF per bbl Flash", "SCF_PER_BBL", "4.5", "4.5"},
    {"txtLOS_DSOpPressure", "Operating Pressure of Vessel  (psig):", "Op pressure of Vessel", "DS_OP_PRES", "5.5",
     "5.5"},
    {"txtLOS_DSOpTemperature", "Operating Temperature of Vessel (F):", "Op temp of Vessel", "DS_OP_TEMP", "6.5", "6.5"},
    {"txtLOS_USOpPressure", "Op Press upstream of Vessel  (psig):", "Op Press upstream of Vessel", "US_OP_PRES", "7.5",
     "7.5"},
    {"txtLOS_USOpTemperature", "Op Temp upstream of Vessel (F):", "Op Temp upstream of Vessel", "US_OP_TEMP", "8.5",
     "8.5"},
};

const Field kDescription[] = {
    {"cmbLOS_VesselType", "Type of Vessel:", "Type of Vessel", "VESSEL_TYP", "Surge Tank", "Surge Tank"},
    {"txtLOS_APISpGrav", "API gravity of stored oil:", "API gravity", "API_SPGRAV", "2.5", "2.5"},
    {"cmbLOS_GasesVentOrFlare", "Emissions Destination", "Emissions Destination", "EMIS_DEST", "Flared Locally", "FL"},
    {"txtLOS_ExhaustOutletHgt", "Outlet Height (ft above msl):", "Outlet Height", "EXH_OUT_HGT", "10.5", "10.5"},
    {"txtLOS_ExhaustOutletInnerDiam", "Outlet Inner Diameter (in):", "Outlet Diameter", "EXH_OUT_INNER_DIAM", "11.5",
     "11.5"},
    {"txtLOS_ExhaustOutletExitVel", "Exit Velocity (ft/s):", "Exhaust Exit Velocity", "EXH_OUT_EXIT_VEL", "12.5",
     "12.5"},
    {"txtLOS_ExhaustOutletExitT", "Exit Temperature (°F):", "Exhaust Exit Temperature", "EXH_OUT_EXIT_TEMP", "13.5",
     "13.5"},
    {"txtLOS_ExhaustOutletAngle", "Outlet Orientation (degrees):", "Exhaust Outlet Orientation", "EXH_OUT_ANGLE",
     "14.5", "14.5"},
};

std::string StoredText(TestRun& run, const std::string& column, const std::string& table = "ED_LOS") {
  return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
}

void SelectAgain(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("LOS", "S1"));
}

// The month of a vessel of that type, in an edit; of one without a type when it is empty.
void EditMonthOf(TestRun& run, const std::string& vessel) {
  if (run.s.InActv()) {
    run.Click("cmdCANCEL");
    run.GoTo("LOS", "S1", Mode::kDesc);
  }
  run.s.db.Execute("UPDATE ED_LOS SET VESSEL_TYP=" + (vessel.empty() ? "NULL" : "'" + vessel + "'"));
  run.GoTo("LOS", "S1", Mode::kActv);
  run.Select(run.Key("", "", 1));
  run.Select(run.Key("LOS", "S1", 1));
  run.Click("cmdEdit");
}

// ---- what shows, and what is kept ----

TEST(FlashingLosses, shows_its_pages_titles_and_comment_caption) {
  TestRun run;
  run.StartWith("LOS", "S1");
  EXPECT_EQ(run.At("tabLOS").items, (Texts{"General Information", "Ventilation System", "QC Results"}));
  EXPECT_EQ(run.At("tabLOS").page_available, (std::vector<bool>{true, true, true}));
  EXPECT_EQ(run.At("fraLOS").caption, "Losses from Flashing");
  EXPECT_EQ(run.At("lblLOS_Comments").caption, "Comments;");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraLOS").caption, "Losses from Flashing - EDIT DATA");
  run.Click("cmdCANCEL");
  for (const Field& field : kMonth) EXPECT_FALSE(run.At(field.control).visible) << field.control;
  run.GoTo("LOS", "S1", Mode::kActv);
  EXPECT_EQ(run.At("tabLOS").page_available, (std::vector<bool>{true, false, true}));
  for (const Field& field : kMonth) EXPECT_TRUE(run.At(field.control).visible) << field.control;
}

TEST(FlashingLosses, shows_every_field_with_its_caption_and_lists_it_under_its_name) {
  TestRun run;
  run.StartWith("LOS", "S1");
  const auto expect = [&](const Field& field) {
    EXPECT_EQ(run.At(field.control).caption, field.caption) << field.control;
    EXPECT_EQ(run.At(field.control).tag, field.tag) << field.control;
  };
  for (const Field& field : kMonth) expect(field);
  for (const Field& field : kDescription) expect(field);
  expect({"cmbLOS_VentedToID", "Remote Vent/Flare ID:", "Low Pressure Vent/Flare ID"});
}

TEST(FlashingLosses, keeps_every_field_of_the_description_in_its_column) {
  TestRun run;
  run.StartWith("LOS", "S1");
  Values typed;
  for (const Field& field : kDescription) typed.emplace_back(field.control, field.text);
  run.Keep(typed);
  for (const Field& field : kDescription) EXPECT_EQ(StoredText(run, field.column), field.stored) << field.control;
  SelectAgain(run);
  for (const Field& field : kDescription) EXPECT_EQ(run.Text(field.control), field.text) << field.control;
}

TEST(FlashingLosses, keeps_every_field_of_a_month_in_its_column) {
  TestRun run;
  run.StartWith("LOS", "S1");
  run.GoTo("LOS", "S1", Mode::kActv);
  Values typed;
  for (const Field& field : kMonth) typed.emplace_back(field.control, field.text);
  run.Keep(typed);
  for (const Field& field : kMonth) {
    EXPECT_EQ(StoredText(run, field.column, "EA_LOS"), field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  }
}

TEST(FlashingLosses, keeps_its_vessel_as_its_text) {
  TestRun run;
  run.StartWith("LOS", "S1");
  const Texts vessels = {"Separator", "Heater Treater", "Surge Tank", "Storage Tank", "Other"};
  EXPECT_EQ(run.At(kVessel).items, vessels);
  EXPECT_EQ(StoredText(run, "VESSEL_TYP"), "");
  for (std::size_t i = 0; i < vessels.size(); ++i) {
    run.Keep({{kVessel, vessels[i]}});
    EXPECT_EQ(StoredText(run, "VESSEL_TYP"), vessels[i]);
    SelectAgain(run);
    EXPECT_EQ(run.Text(kVessel), vessels[i]);
    EXPECT_EQ(run.At(kVessel).index, static_cast<int>(i));
  }
  run.s.db.Execute("UPDATE ED_LOS SET VESSEL_TYP='Kettle'");
  SelectAgain(run);
  EXPECT_EQ(run.Text(kVessel), "");
  EXPECT_EQ(run.At(kVessel).index, -1);
}

TEST(FlashingLosses, tells_a_missing_record_in_words_of_its_own) {
  TestRun run;
  run.StartWith("LOS", "S1");
  run.Click("cmdEdit");
  run.s.db.Execute("DELETE FROM ED_LOS");
  run.s.At("ED_LOS").Requery();
  run.TakeBoxes();
  run.Click("cmdSaveEdits");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equipment record not found in SaveLOSFrame"});
  EXPECT_TRUE(run.s.editing);
  run.Click("cmdCANCEL");
  EXPECT_EQ(run.TakeBoxes(), Texts{"Equipment record not found in LoadLOSFrame"});
}

// ---- blank records ----

TEST(FlashingLosses, keeps_the_finding_of_the_vessel_that_it_was_when_the_new_one_passes) {
  TestRun run;
  run.StartWith("LOS", "S1");
  EditMonthOf(run, "Surge Tank");
  run.Set(kDownstream, "50");
  run.Click("cmdQC");
  run.Click("cmdSaveEdits");
  EditMonthOf(run, "Separator");
  ASSERT_EQ(run.Text(kDownstream), "50");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding(kDownstreamTag), RangeFinding(0, 40));
  EXPECT_EQ(run.At(kDownstream).back, Back::kWindow);
}

// ---- conditions ----

TEST(FlashingLosses, drop_the_remote_vent_when_the_destination_stops_being_remote) {
  TestRun run;
  run.StartWith("LOS", "S1");
  run.Select(run.Key());
  run.AddEquipment("VEN", "V1");
  run.Select(run.Key("LOS", "S1"));
  run.Click("cmdEdit");
  for (const char* other : {"Vented Locally", "Flared Locally", "Routed to System"}) {
    run.Put({{kDestination, "Vented Remotely"}, {"cmbLOS_VentedToID", "Vent: V1"}});
    run.Click("cmdSaveEdits");
    EXPECT_EQ(StoredText(run, "SENT_TO_ID"), "VENV1");
    run.Set(kDestination, other);
    EXPECT_EQ(run.Text("cmbLOS_VentedToID"), "") << other;
    EXPECT_EQ(run.At("cmbLOS_VentedToID").index, -1) << other;
    run.Click("cmdSaveEdits");
    EXPECT_TRUE(IsNull(run.Sql("SELECT SENT_TO_ID FROM ED_LOS"))) << other;
  }
}

}  // namespace
}  // namespace merlu::test
