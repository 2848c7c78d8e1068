#include <gtest/gtest.h>

#include "loading.h"

namespace merlu::test {
namespace {

using namespace loading;

using Texts = std::vector<std::string>;

// A field, and a text typed into it with what its column holds then.
struct Field {
  const char *control, *caption, *tag, *column, *text, *stored;
};

const Field kMonth[] = {
    {"txtLOA_VolLoaded", "Volume Loaded (bbl):", "Volume Loaded", "VOL_LOADED", "1.5", "1.5"},
    {"txtLOA_TankBulkLiqT", "Bulk Liquid Temperature (°F):", "Bulk Liquid Temperature", "TANK_BULK_LIQ_TEMP", "2.5",
     "2.5"},
};

const Field kDescription[] = {
    {"txtLOA_EquipElev", "Average Elevation (ft above msl):", "Average Elevation", "EQUIP_ELEV", "3.5", "3.5"},
    {"cmbLOA_TankPaintColor", "Storage Tank Paint Color:", "Storage Tank Paint Color", "TANK_PAINT_COLOR", "Grey/Med",
     "GM"},
    {"cmbLOA_TankPaintCondition", "Storage Tank Paint Condition:", "Storage Tank Paint Condition", "TANK_PAINT_COND",
     "Poor", "P"},
    {"txtLOA_ReidVP", "Product Reid Vapor Pressure (psia):", "Product Reid Vapor Pressure", "REID_VP", "6.5", "6.5"},
    {"txtLOA_TankVaporWeightPercentVOC", "Avg. Percent by Weight of VOCs in Tank Vapor (%):", "Avg. % by Weight VOCs",
     "TANK_VAPWGT_PVOC", "7.5", "7.5"},
    {"txtLOA_TankVOCMolWeight", "Avg. Molecular Weight of VOCs in Tank Vapor (lb/lb-mol):",
     "Avg. Molecular Weight of VOCs", "TANK_VOC_MOLEWGT", "8.5", "8.5"},
    {"cmbLOA_GasesVentOrFlare", "Emissions Destination", "Gases Vented/Flared?", "EMIS_DEST", "Flared Locally", "FL"},
    {"txtLOA_ExhaustOutletHgt", "Outlet Height (ft above msl):", "Ventilation Outlet Height", "EXH_OUT_HGT", "11.5",
     "11.5"},
    {"txtLOA_ExhaustOutletInnerDiam", "Outlet Inner Diameter (in):", "Ventilation Outlet Inner Diameter",
     "EXH_OUT_INNER_DIAM", "12.5", "12.5"},
    {"txtLOA_ExhaustOutletExitVel", "Exit Velocity (ft/s):", "Ventilation Exit Velocity", "EXH_OUT_EXIT_VEL", "13.5",
     "13.5"},
    {"txtLOA_ExhaustOutletExitT", "Exit Temperature (°F):", "Ventilation Exit Temperature", "EXH_OUT_EXIT_TEMP", "14.5",
     "14.5"},
    {"txtLOA_ExhaustOutletAngle", "Outlet Orientation (degrees):", "Ventilation Outlet Orientation", "EXH_OUT_ANGLE",
     "15.5", "15.5"},
    {"txtLOA_FlareFeedRate", "Flare Feed Rate (scf/hr):", "Flare Feed Rate", "FLA_FEED_RATE", "16.5", "16.5"},
    {"txtLOA_FlareCombustionT", "Combustion Temperature (°F):", "Flare Combustion Temperature", "FLA_COMBUST_TEMP",
     "17.5", "17.5"},
    {"txtLOA_FlareEfficiency", "Combustion Efficiency (%):", "Flare Combustion Efficiency", "FLA_EFFIC", "18.5",
     "18.5"},
    {"cmbLOA_ControlTechnology", "Installed Control Equipment:", "Installed Control Equipment", "CTRL_TECH",
     "Vapor Recovery and/or Condenser (VR/C)", "VR/C"},
    {"txtLOA_CondenserT", "Condenser Temperature (°F):", "Condenser Temperature", "CONDENSER_TEMP", "19.5", "19.5"},
    {"txtLOA_CondenserP", "Condenser Pressure (psia):", "Condenser Pressure", "CONDENSER_PRES", "20.5", "20.5"},
    {"cmbLOA_OtherControlDevice", "Other Control Device (Y/N):", "Other Control Device?", "OTH_CTRL_DEVICE", "Yes",
     "True"},
    {"txtLOA_OtherControlDesc", "Description:", "Other Control Equipment Descript.", "OTH_CTRL_DESC", "a scrubber",
     "a scrubber"},
    {"txtLOA_OtherControlEffVOC", "VOC Efficiency (%):", "VOC Control Efficiency", "OTH_CTRL_EFFIC_VOC", "21.5",
     "21.5"},
};

std::string StoredText(TestRun& run, const std::string& column, const std::string& table = "ED_LOA") {
  return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
}

void SelectAgain(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("LOA", "L1"));
}

// ---- what shows, and what is kept ----

TEST(Loading, shows_its_pages_and_titles) {
  TestRun run;
  run.StartWith("LOA", "L1");
  EXPECT_EQ(run.At("tabLOA").items,
            (Texts{"General Information", "Ventilation System", "Control Equipment", "QC Results"}));
  EXPECT_EQ(run.At("tabLOA").page_available, (std::vector<bool>{true, true, true, true}));
  EXPECT_EQ(run.At("fraLOA").caption, "Loading Operations");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraLOA").caption, "Loading Operations - EDIT DATA");
  run.Click("cmdCANCEL");
  for (const Field& field : kMonth) EXPECT_FALSE(run.At(field.control).visible) << field.control;
  run.GoTo("LOA", "L1", Mode::kActv);
  EXPECT_EQ(run.At("tabLOA").page_available, (std::vector<bool>{true, false, false, true}));
  for (const Field& field : kMonth) EXPECT_TRUE(run.At(field.control).visible) << field.control;
}

TEST(Loading, shows_every_field_with_its_caption_and_lists_it_under_its_name) {
  TestRun run;
  run.StartWith("LOA", "L1");
  const auto expect = [&](const Field& field) {
    EXPECT_EQ(run.At(field.control).caption, field.caption) << field.control;
    EXPECT_EQ(run.At(field.control).tag, field.tag) << field.control;
  };
  for (const Field& field : kMonth) expect(field);
  for (const Field& field : kDescription) expect(field);
  expect({"cmbLOA_VentedToID", "Remote Vent/Flare ID:", "Low Pressure Vent/Flare ID"});
}

TEST(Loading, keeps_every_field_of_the_description_in_its_column) {
  TestRun run;
  run.StartWith("LOA", "L1");
  run.Click("cmdEdit");
  const std::string temperature = "txtLOA_ExhaustOutletExitT";
  for (const Field& field : kDescription)
    if (field.control == temperature) run.Put({{kDestination, "Vented Locally"}, {temperature, field.text}});
  for (const Field& field : kDescription)
    if (field.control != temperature) run.Set(field.control, field.text);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  for (const Field& field : kDescription) EXPECT_EQ(StoredText(run, field.column), field.stored) << field.control;
  SelectAgain(run);
  for (const Field& field : kDescription) EXPECT_EQ(run.Text(field.control), field.text) << field.control;
}

TEST(Loading, keeps_every_field_of_a_month_in_its_column) {
  TestRun run;
  run.StartWith("LOA", "L1");
  run.GoTo("LOA", "L1", Mode::kActv);
  Values typed;
  for (const Field& field : kMonth) typed.emplace_back(field.control, field.text);
  run.Keep(typed);
  for (const Field& field : kMonth) {
    EXPECT_EQ(StoredText(run, field.column, "EA_LOA"), field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  }
}

TEST(Loading, keeps_each_item_of_its_lists_as_its_code) {
  struct {
    const char *list, *column;
    Values items;
  } const lists[] = {
      {"cmbLOA_TankPaintColor",
       "TANK_PAINT_COLOR",
       {{"Aluminum/Specular", "AS"},
        {"Aluminum/Diffuse", "AD"},
        {"Grey/Light", "GL"},
        {"Grey/Med", "GM"},
        {"Red/Primer", "RP"},
        {"White/NA", "WN"}}},
      {"cmbLOA_TankPaintCondition", "TANK_PAINT_COND", {{"Good", "G"}, {"Poor", "P"}}},
      {kTechnology, "CTRL_TECH", {{kCondenser, "VR/C"}, {"None", "NONE"}}},
      {kDevice, "OTH_CTRL_DEVICE", {{"Yes", "True"}, {"No", "False"}}},
  };
  TestRun run;
  run.StartWith("LOA", "L1");
  for (const auto& list : lists) {
    EXPECT_EQ(StoredText(run, list.column), "") << list.column;
    Texts items;
    for (const auto& [item, code] : list.items) {
      run.Keep({{list.list, item}});
      EXPECT_EQ(StoredText(run, list.column), code) << item;
      SelectAgain(run);
      EXPECT_EQ(run.Text(list.list), item);
      EXPECT_EQ(run.At(list.list).index, static_cast<int>(items.size())) << item;
      items.push_back(item);
    }
    EXPECT_EQ(run.At(list.list).items, items);
  }
}

// ---- blank records ----

TEST(Loading, is_asked_for_its_description_in_each_mode_by_a_finding_of_that_mode) {
  TestRun run;
  run.StartWith("LOA", "L1");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Elevation", "EditMode='DESC' AND [Month]=0"), kBlankFinding);
  run.GoTo("LOA", "L1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Elevation", "EditMode='ACTV' AND [Month]=1"), kBlankFinding);
  EXPECT_EQ(run.Finding("Average Elevation", "EditMode='DESC' AND [Month]=0"), kBlankFinding);
  run.GoTo("LOA", "L1", Mode::kDesc);
  run.Keep({{"txtLOA_EquipElev", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Elevation", "EditMode='DESC'"), "");
  EXPECT_EQ(run.Finding("Average Elevation", "EditMode='ACTV'"), kBlankFinding) << "until the month's own run";
  run.GoTo("LOA", "L1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Average Elevation"), "");
}

// ---- conditions ----

TEST(Loading, without_another_control_device_keeps_its_efficiency_and_raises_nothing) {
  TestRun run;
  run.StartWith("LOA", "L1");
  run.Keep({{kDevice, "Yes"}, {"txtLOA_OtherControlEffVOC", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Control Efficiency"), RangeFinding(0, 99.9));
  run.Keep({{kDevice, "No"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("VOC Control Efficiency"), "");
  EXPECT_EQ(StoredText(run, "OTH_CTRL_EFFIC_VOC"), "100");
}

TEST(Loading, turns_condenser_and_other_device_on_and_off_and_keeps_their_texts) {
  struct {
    const char *list, *with, *without;
    Texts fields;
  } const cases[] = {{kTechnology, kCondenser, "None", {"txtLOA_CondenserT", "txtLOA_CondenserP"}},
                     {kDevice, "Yes", "No", {"txtLOA_OtherControlDesc", "txtLOA_OtherControlEffVOC"}}};
  TestRun run;
  run.StartWith("LOA", "L1");
  run.Click("cmdEdit");
  const auto expect = [&](const Texts& names, bool on, const std::string& when) {
    for (const std::string& name : names) {
      EXPECT_EQ(run.At(name).enabled, on) << name << " " << when;
      EXPECT_EQ(run.At(name).back, on ? Back::kWindow : Back::kFace) << name << " " << when;
    }
  };
  for (const auto& one : cases) {
    expect(one.fields, false, "blank");
    run.Set(one.list, one.with);
    expect(one.fields, true, one.with);
    for (const std::string& name : one.fields) run.Set(name, "7");
    run.Set(one.list, one.without);
    expect(one.fields, false, one.without);
    for (const std::string& name : one.fields) EXPECT_EQ(run.Text(name), "7") << name;
  }
  run.Click("cmdSaveEdits");
  for (const auto& one : cases) {
    expect(one.fields, false, std::string("opened with ") + one.without);
    for (const std::string& name : one.fields) EXPECT_EQ(run.Text(name), "7") << name << " after the save";
  }
}

}  // namespace
}  // namespace merlu::test
