#include <gtest/gtest.h>

#include "glycol.h"

namespace merlu::test {
namespace {

using namespace glycol;

using Texts = std::vector<std::string>;

// A field, and a text typed into it with what its column holds then.
struct Field {
  const char *control, *caption, *tag, *column, *text, *stored;
};

const Field kMonth[] = {
    {"txtGLY_TotalGasThru", "Processed Throughput (MMscf):", "Processed Throughput", "TOT_GAS_THRUPUT", "1.5", "1.5"},
};

const Field kDescription[] = {
    {"txtGLY_WetGasT", "Wet Gas Temperature (°F):", "Wet Gas Temperature", "WET_GAS_TEMP", "2.5", "2.5"},
    {"txtGLY_WetGasP", "Wet Gas Pressure (psig):", "Wet Gas Pressure", "WET_GAS_PRES", "3.5", "3.5"},
    {"cmbGLY_UseFlashTank", "Equipped with a flash tank?", "Equipped with flash tank?", "FLASH_TANK_FLG", "Yes",
     "True"},
    {"txtGLY_FlashTankT", "Flash Tank Temperature (°F):", "Flash Tank Temperature", "FLASH_TANK_TEMP", "5.5", "5.5"},
    {"txtGLY_FlashTankP", "Flash Tank Pressure (psig):", "Flash Tank Pressure", "FLASH_TANK_PRES", "6.5", "6.5"},
    {"cmbGLY_Disposition", "Destination of Flash Gas:", "Destination of Flash Gas", "Disposition", "burned in flare",
     "FL"},
    {"cmbGLY_StrippingGas", "Uses stripping gas?", "Uses stripping gas?", "STRIPPING_GAS", "Flash Gas", "FG"},
    {"txtGLY_StrippingGasFlowRate", "Stripping Gas Flowrate (scf/min):", "Stripping Gas Flowrate",
     "STRIPPING_GAS_FLOWRATE", "9.5", "9.5"},
    {"cmbGLY_GasesVentOrFlare", "Emissions Destination", "Emissions Destination", "EMIS_DEST", "Flared Locally", "FL"},
    {"txtGLY_ExhaustOutletHgt", "Outlet Height (ft above msl):", "Ventilation Outlet Height", "EXH_OUT_HGT", "11.5",
     "11.5"},
    {"txtGLY_ExhaustOutletInnerDiam", "Outlet Inner Diameter (in):", "Ventilation Outlet Inner Diameter",
     "EXH_OUT_INNER_DIAM", "12.5", "12.5"},
    {"txtGLY_ExhaustOutletExitVel", "Exit Velocity (ft/s):", "Ventilation Exit Velocity", "EXH_OUT_EXIT_VEL", "13.5",
     "13.5"},
    {"txtGLY_ExhaustOutletExitT", "Exit Temperature (°F):", "Ventilation Exit Temperature", "EXH_OUT_EXIT_TEMP", "14.5",
     "14.5"},
    {"txtGLY_ExhaustOutletAngle", "Outlet Orientation (degrees):", "Ventilation Outlet Orientation", "EXH_OUT_ANGLE",
     "15.5", "15.5"},
    {"txtGLY_FlareFeedRate", "Flare Feed Rate (scf/hr):", "Flare Feed Rate", "FLA_FEED_RATE", "16.5", "16.5"},
    {"txtGLY_FlareCombustionT", "Combustion Temperature (°F):", "Flare Combustion Temperature", "FLA_COMBUST_TEMP",
     "17.5", "17.5"},
    {"txtGLY_FlareEfficiency", "Combustion Efficiency (%):", "Flare Combustion Efficiency", "FLA_EFFIC", "18.5",
     "18.5"},
    {"cmbGLY_ControlTechnology", "Installed Control Equipment:", "Installed Control Equipment", "CTRL_TECH",
     "Vapor Recovery and/or Condenser (VR/C)", "VR/C"},
    {"txtGLY_CondenserT", "Condenser Temperature (°F):", "Condenser Temperature", "CONDENSER_TEMP", "20.5", "20.5"},
    {"txtGLY_CondenserP", "Condenser Pressure (psia):", "Condenser Pressure", "CONDENSER_PRES", "21.5", "21.5"},
    {"cmbGLY_OtherControlDevice", "Other Control Device (Y/N):", "Other Control Device?", "OTH_CTRL_DEVICE", "Yes",
     "True"},
    {"txtGLY_OtherControlDesc", "Description:", "Other Control Equipment Descript.", "OTH_CTRL_DESC", "a scrubber",
     "a scrubber"},
    {"txtGLY_OtherControlEffSOx", "SOx Efficiency (%):", "SOx Control Efficiency", "OTH_CTRL_EFFIC_SOX", "24.5",
     "24.5"},
    {"txtGLY_OtherControlEffNOx", "NOx Efficiency (%):", "NOx Control Efficiency", "OTH_CTRL_EFFIC_NOX", "25.5",
     "25.5"},
    {"txtGLY_OtherControlEffCO", "CO Efficiency (%):", "CO Control Efficiency", "OTH_CTRL_EFFIC_CO", "26.5", "26.5"},
    {"txtGLY_OtherControlEffVOC", "VOC Efficiency (%):", "VOC Control Efficiency", "OTH_CTRL_EFFIC_VOC", "27.5",
     "27.5"},
    {"txtGLY_OtherControlEffPM10", "PM10 Efficiency (%):", "PM10 Control Efficiency", "OTH_CTRL_EFFIC_PM10", "28.5",
     "28.5"},
};

std::string StoredText(TestRun& run, const std::string& column, const std::string& table = "ED_GLY") {
  return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
}

void SelectAgain(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("GLY", "G1"));
}

// ---- the flash tank's fields ----

TEST(Glycol, keeps_the_flash_tank_locked_in_a_month_after_a_save_too) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.s.db.Execute("UPDATE ED_GLY SET FLASH_TANK_FLG=1");
  run.GoTo("GLY", "G1", Mode::kActv);
  for (const char* field : {"txtGLY_FlashTankT", "txtGLY_FlashTankP"}) {
    EXPECT_TRUE(run.At(field).locked) << field;
    run.Click("cmdEdit");
    EXPECT_TRUE(run.At(field).locked) << field;
    run.Click("cmdSaveEdits");
    EXPECT_TRUE(run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kFace) << field;
    run.Click("cmdCANCEL");
    EXPECT_TRUE(run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kFace) << field;
  }
}

// ---- what shows, and what is kept ----

TEST(Glycol, shows_its_pages_and_titles) {
  TestRun run;
  run.StartWith("GLY", "G1");
  EXPECT_EQ(run.At("tabGLY").items,
            (Texts{"General Information", "Ventilation System", "Control Equipment", "QC Results"}));
  EXPECT_EQ(run.At("tabGLY").page_available, (std::vector<bool>{true, true, true, true}));
  EXPECT_EQ(run.At("fraGLY").caption, "Glycol Dehydrator");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraGLY").caption, "Glycol Dehydrator - EDIT DATA");
  run.Click("cmdCANCEL");
  for (const char* name : {kThroughput, "txtGLY_Comments", "chkGLY_Status"}) EXPECT_FALSE(run.At(name).visible) << name;
  run.GoTo("GLY", "G1", Mode::kActv);
  EXPECT_EQ(run.At("tabGLY").page_available, (std::vector<bool>{true, false, false, true}));
  for (const char* name : {kThroughput, "txtGLY_Comments", "chkGLY_Status"}) EXPECT_TRUE(run.At(name).visible) << name;
}

TEST(Glycol, shows_every_field_with_its_caption_and_lists_it_under_its_name) {
  TestRun run;
  run.StartWith("GLY", "G1");
  const auto expect = [&](const Field& field) {
    EXPECT_EQ(run.At(field.control).caption, field.caption) << field.control;
    EXPECT_EQ(run.At(field.control).tag, field.tag) << field.control;
  };
  for (const Field& field : kMonth) expect(field);
  for (const Field& field : kDescription) expect(field);
  expect({"cmbGLY_VentedToID", "Remote Vent/Flare ID:", "Low Pressure Vent/Flare ID"});
}

TEST(Glycol, keeps_every_field_of_the_description_in_its_column) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.Click("cmdEdit");
  const std::string temperature = "txtGLY_ExhaustOutletExitT";
  for (const Field& field : kDescription)
    if (field.control == temperature) run.Put({{kDestination, "Vented Locally"}, {temperature, field.text}});
  for (const Field& field : kDescription)
    if (field.control != temperature) run.Set(field.control, field.text);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  for (const Field& field : kDescription) EXPECT_EQ(StoredText(run, field.column), field.stored) << field.control;
  SelectAgain(run);
  for (const Field& field : kDescription) EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  EXPECT_EQ(StoredText(run, "TOT_GAS_THRUPUT", "EA_GLY"), "");
}

TEST(Glycol, keeps_the_month_s_throughput_in_its_column) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.GoTo("GLY", "G1", Mode::kActv);
  for (const Field& field : kMonth) {
    run.Keep({{field.control, field.text}});
    EXPECT_EQ(StoredText(run, field.column, "EA_GLY"), field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  }
}

TEST(Glycol, keeps_each_item_of_its_lists_as_its_code) {
  struct {
    const char *list, *column;
    Values items;
  } const lists[] = {
      {"cmbGLY_Disposition",
       "Disposition",
       {{"routed to system", "RS"}, {"vented to atm", "VL"}, {"burned in flare", "FL"}}},
      {kStripping, "STRIPPING_GAS", {{"None", "NO"}, {"Dry Gas", "DG"}, {"Flash Gas", "FG"}, {"Nitrogen", "NI"}}},
      {kTechnology, "CTRL_TECH", {{kCondenser, "VR/C"}, {"None", "NONE"}}},
      {kFlashTank, "FLASH_TANK_FLG", {{"Yes", "True"}, {"No", "False"}}},
      {kDevice, "OTH_CTRL_DEVICE", {{"Yes", "True"}, {"No", "False"}}},
  };
  TestRun run;
  run.StartWith("GLY", "G1");
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

TEST(Glycol, shows_no_choice_for_a_code_that_no_item_has) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.s.db.Execute("UPDATE ED_GLY SET CTRL_TECH='SRVC', Disposition='VR', STRIPPING_GAS='NONE'");
  SelectAgain(run);
  for (const char* list : {kTechnology, "cmbGLY_Disposition", kStripping}) {
    EXPECT_EQ(run.Text(list), "") << list;
    EXPECT_EQ(run.At(list).index, -1) << list;
  }
  run.Keep({});
  EXPECT_EQ(StoredText(run, "CTRL_TECH"), "SRVC") << "a list without a choice leaves its column";
  EXPECT_EQ(StoredText(run, "STRIPPING_GAS"), "NONE");
}

// ---- conditions ----

TEST(Glycol, locks_flash_tank_and_stripping_gas_fields_that_do_not_apply_and_keeps_their_texts) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.Click("cmdEdit");
  const auto expect = [&](std::initializer_list<const char*> names, bool editable, const std::string& when) {
    for (const char* name : names) {
      EXPECT_EQ(run.At(name).locked, !editable) << name << " " << when;
      EXPECT_TRUE(run.At(name).enabled) << name << " " << when;
      EXPECT_EQ(run.At(name).back, editable ? Back::kWindow : Back::kFace) << name << " " << when;
    }
  };
  expect({"txtGLY_FlashTankT", "txtGLY_FlashTankP", "txtGLY_StrippingGasFlowRate"}, false, "blank");
  for (const char* yes_no : {"Yes", "No", "Yes"}) {
    run.Set(kFlashTank, yes_no);
    expect({"txtGLY_FlashTankT", "txtGLY_FlashTankP"}, std::string(yes_no) == "Yes", yes_no);
  }
  for (const char* gas : {"Nitrogen", "None", "Flash Gas", "None", "Dry Gas"}) {
    run.Set(kStripping, gas);
    expect({"txtGLY_StrippingGasFlowRate"}, std::string(gas) != "None", gas);
  }
  run.Put({{"txtGLY_FlashTankT", "100"},
           {"txtGLY_FlashTankP", "50"},
           {"txtGLY_StrippingGasFlowRate", "7"},
           {kFlashTank, "No"},
           {kStripping, "None"}});
  EXPECT_EQ(run.Text("txtGLY_FlashTankT"), "100");
  EXPECT_EQ(run.Text("txtGLY_FlashTankP"), "50");
  EXPECT_EQ(run.Text("txtGLY_StrippingGasFlowRate"), "7");
  run.Click("cmdSaveEdits");
  expect({"txtGLY_FlashTankT", "txtGLY_FlashTankP", "txtGLY_StrippingGasFlowRate"}, false, "opened with No and None");
  EXPECT_EQ(StoredText(run, "FLASH_TANK_TEMP"), "100");
  EXPECT_EQ(StoredText(run, "FLASH_TANK_PRES"), "50");
  EXPECT_EQ(StoredText(run, "STRIPPING_GAS_FLOWRATE"), "7");
}

TEST(Glycol, withdraws_explained_findings_of_fields_that_no_longer_apply) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.Click("cmdEdit");
  run.Put({{kFlashTank, "Yes"},
           {kStripping, "Dry Gas"},
           {kTechnology, kCondenser},
           {kDevice, "Yes"},
           {kDestination, "Vented Locally"}});
  run.Click("cmdQC");
  const Texts tags = {"Flash Tank Temperature", "Stripping Gas Flowrate", "Condenser Temperature",
                      "Other Control Equipment Descript.", "Ventilation Exit Temperature"};
  for (const std::string& tag : tags) EXPECT_EQ(run.Finding(tag), kBlankFinding) << tag;
  run.s.db.Execute("UPDATE QC SET Comments='known'");
  run.Put({{kFlashTank, "No"},
           {kStripping, "None"},
           {kTechnology, "None"},
           {kDevice, "No"},
           {kDestination, "Flared Locally"}});
  run.Click("cmdQC");
  for (const std::string& tag : tags) EXPECT_EQ(run.Finding(tag), "") << tag;
  EXPECT_GT(run.Count("QC WHERE Comments='known'"), 0) << "what still applies keeps its comment";
}

TEST(Glycol, withdraws_the_findings_of_efficiencies_without_a_device_and_keeps_their_values) {
  TestRun run;
  run.StartWith("GLY", "G1");
  const Texts gases = {"SOx", "NOx", "CO", "VOC", "PM10"};
  run.Click("cmdEdit");
  run.Set(kDevice, "Yes");
  for (const std::string& gas : gases) run.Set("txtGLY_OtherControlEff" + gas, "99.91");
  run.Click("cmdQC");
  for (const std::string& gas : gases) EXPECT_EQ(run.Finding(gas + " Control Efficiency"), RangeFinding(0, 99.9));
  run.Set(kDevice, "No");
  run.Click("cmdQC");
  for (const std::string& gas : gases) EXPECT_EQ(run.Finding(gas + " Control Efficiency"), "");
  run.Click("cmdSaveEdits");
  for (const char* column :
       {"OTH_CTRL_EFFIC_SOX", "OTH_CTRL_EFFIC_NOX", "OTH_CTRL_EFFIC_CO", "OTH_CTRL_EFFIC_VOC", "OTH_CTRL_EFFIC_PM10"})
    EXPECT_EQ(StoredText(run, column), "99.91") << column;
}

TEST(Glycol, turns_condenser_and_other_device_on_and_off_and_keeps_their_texts) {
  TestRun run;
  run.StartWith("GLY", "G1");
  run.Click("cmdEdit");
  const Texts condenser = {"txtGLY_CondenserT", "txtGLY_CondenserP"};
  const Texts device = {"txtGLY_OtherControlDesc",  "txtGLY_OtherControlEffSOx", "txtGLY_OtherControlEffNOx",
                        "txtGLY_OtherControlEffCO", "txtGLY_OtherControlEffVOC", "txtGLY_OtherControlEffPM10"};
  const auto expect = [&](const Texts& names, bool on, const char* when) {
    for (const std::string& name : names) {
      EXPECT_EQ(run.At(name).enabled, on) << name << " " << when;
      EXPECT_EQ(run.At(name).back, on ? Back::kWindow : Back::kFace) << name << " " << when;
    }
  };
  expect(condenser, false, "blank");
  expect(device, false, "blank");
  run.Put({{kTechnology, kCondenser}, {kDevice, "Yes"}});
  expect(condenser, true, kCondenser);
  expect(device, true, "Yes");
  for (const std::string& name : condenser) run.Set(name, "50");
  for (const std::string& name : device) run.Set(name, "60");
  run.Put({{kTechnology, "None"}, {kDevice, "No"}});
  expect(condenser, false, "None");
  expect(device, false, "No");
  for (const std::string& name : condenser) EXPECT_EQ(run.Text(name), "50") << name;
  for (const std::string& name : device) EXPECT_EQ(run.Text(name), "60") << name;
}

}  // namespace
}  // namespace merlu::test
