#include <gtest/gtest.h>

#include "base/numbers.h"
#include "bounds.h"
#include "forms/desk.h"

namespace merlu::test {
namespace {

using Texts = std::vector<std::string>;
using Found = std::vector<std::pair<std::string, std::string>>;

constexpr const char* kTotal = "txtAMI_UNGConcTotal";
constexpr const char* kTotalTag = "Unprocessed Natural Gas Concentrations Total";
constexpr const char* kTotalFinding = "Value not in expected range (99.8 to 100)";
constexpr const char* kExceeds = "Value exceeds N.G. throughput for structure";
constexpr const char* kZeroHours = "Zero hours for active equipment";
constexpr const char* kThroughput = "txtAMI_TotalGasThru";
constexpr const char* kHours = "txtAMI_HrsOperated";
constexpr const char* kDestination = "cmbAMI_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbAMI_ControlTechnology";
constexpr const char* kRecovery = "Vapor Recovery and/or Condenser (VR/C)";

// A field, and a text typed into it with what its column holds then.
struct Field {
  const char *control, *caption, *tag, *column, *text, *stored;
};

const Field kMonth[] = {
    {"txtAMI_TotalGasThru", "Processed Throughput (MMscf):", "Processed Throughput", "TOT_GAS_THRUPUT", "1.5", "1.5"},
    {"txtAMI_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "2.5", "2.5"},
};

const Field kDescription[] = {
    {"txtAMI_ConcNGH2S", "H2S:", "H2S Concentration", "Conc_NGH2S", "3.5", "3.5"},
    {"txtAMI_ConcMethane", "Methane:", "Methane Concentration", "Conc_Methane", "4.5", "4.5"},
    {"txtAMI_ConcEthane", "Ethane:", "Ethane Concentration", "Conc_Ethane", "5.5", "5.5"},
    {"txtAMI_ConcC3HC", "C3 Hydrocarbons:", "C3 Hyrdrocarbon Concentration", "Conc_C3HC", "6.5", "6.5"},
    {"txtAMI_ConcC4HC", " C4 Hydrocarbons:", "C4 Hyrdrocarbon Concentration", "Conc_C4HC", "7.5", "7.5"},
    {"txtAMI_ConcC5HC", "C5 Hydrocarbons:", "C5 Hyrdrocarbon Concentration", "Conc_C5HC", "8.5", "8.5"},
    {"txtAMI_ConcC6HC", "C6 Hydrocarbons:", "C6 Hyrdrocarbon Concentration", "Conc_C6HC", "9.5", "9.5"},
    {"txtAMI_ConcC7HC", "C7 Hydrocarbons:", "C7 Hyrdrocarbon Concentration", "Conc_C7HC", "10.5", "10.5"},
    {"txtAMI_ConcC8plusHC", "C8+ Hydrocarbons:", "C8+ Hyrdrocarbon Concentration", "Conc_C8plus_HC", "11.5", "11.5"},
    {"txtAMI_ConcO2", "O2:", "O2 Concentration", "CONC_O2", "12.5", "12.5"},
    {"txtAMI_ConcCO2", "CO2:", "CO2 Concentration", "CONC_CO2", "13.5", "13.5"},
    {"txtAMI_ConcN2", "N2:", "N2 Concentration", "CONC_N2", "14.5", "14.5"},
    {"cmbAMI_AmineType", "Amine Type:", "Amine Type", "AMINE_TYP", "TEA", "TEA"},
    {"txtAMI_SourTemp", "Unprocessed sour gas feed temperature (°F):", "Sour gas feed temperature", "Sour_Temp", "16.5",
     "16.5"},
    {"txtAMI_SourPress", "Unprocessed sour gas feed pressure (psig):", "Sour gas feed pressure", "Sour_Pres", "17.5",
     "17.5"},
    {"cmbAmi_UseFlashTank", "Equipped with a flash tank:", "Equipped with flash tank?", "FLASHTANK_FLG", "No", "False"},
    {"txtAMI_FlashTemp", "Flash Tank Temperature (°F):", "Flash Tank Temperature", "Flash_Temp", "19.5", "19.5"},
    {"txtAMI_FlashPress", "Flash Tank pressure (psig):", "Flash Tank  Pressure", "Flash_Pres", "20.5", "20.5"},
    {"cmbAmi_Disposition", "Destination of Flash Gas:", "Destination of Flash Gas", "Disposition", "Flared", "FL"},
    {"txtAMI_Nbr", "Number of Absorber Trays:", "Number of Absorb trays", "NUM", "22.5", "22.5"},
    {"txtAMI_AmineFeedPress", "Lean amine feed pressure (psig):", "Lean Amine feed pressure", "Amine_Feed_Pres", "23.5",
     "23.5"},
    {"txtAMI_AmineFeedTemp", "Lean amine feed temperature (°F):", "Lean Amine feed temperature", "Amine_Feed_Temp",
     "24.5", "24.5"},
    {"txtAMI_AmineFeedFlowRate", "Lean amine feed flowrate (gal/min):", "Lean Amine feed flowrate",
     "Amine_Feed_FlowRate", "25.5", "25.5"},
    {"txtAMI_AmineFeedAminePct", "lean amine feed amine content (% wt):", "Lean Amine feed amine content",
     "Amine_Feed_AminePct", "26.5", "26.5"},
    {"txtAMI_AmineFeedH2SPct", "lean amine feed H2S content (% wt):", "Lean Amine feed H2S content",
     "Amine_Feed_H2SPct", "27.5", "27.5"},
    {"txtAMI_AmineFeedCO2Pct", "lean amine feed CO2 content (% wt):", "Lean Amine feed CO2 content",
     "Amine_Feed_CO2Pct", "28.5", "28.5"},
    {"cmbAMI_GasesVentOrFlare", "Emission Destination", "Emissions Destination", "EMIS_DEST", "Flared Locally", "FL"},
    {"txtAMI_ExhaustOutletHgt", "Outlet Height (ft above msl):", "Ventilation Outlet Height", "EXH_OUT_HGT", "30.5",
     "30.5"},
    {"txtAMI_ExhaustOutletInnerDiam", "Outlet Inner Diameter (in):", "Ventilation Outlet Inner Diameter",
     "EXH_OUT_INNER_DIAM", "31.5", "31.5"},
    {"txtAMI_ExhaustOutletExitVel", "Exit Velocity (ft/s):", "Ventilation Exit Velocity", "EXH_OUT_EXIT_VEL", "32.5",
     "32.5"},
    {"txtAMI_ExhaustOutletT", "Exit Temperature (°F):", "Ventilation Exit Temperature", "EXH_OUT_TEMP", "33.5", "33.5"},
    {"txtAMI_ExhaustOutletAngle", "Outlet Orientation (degrees):", "Ventilation Outlet Orientation", "EXH_OUT_ANGLE",
     "34.5", "34.5"},
    {"txtAMI_FlareFeedRate", "Flare Feed Rate (scf/hr):", "Flare Feed Rate", "FLA_FEED_RATE", "35.5", "35.5"},
    {"txtAMI_FlareCombustionT", "Combustion Temperature (°F):", "Flare Combustion Temperature", "FLA_COMBUST_TEMP",
     "36.5", "36.5"},
    {"txtAMI_FlareEfficiency", "Combustion Efficiency (%):", "Combustion Efficiency", "FLA_EFFIC", "37.5", "37.5"},
    {"cmbAMI_ControlTechnology", "Installed Control Equipment:", "Installed Control Equipment", "CTRL_TECH",
     "SR + VR/C", "SRVC"},
    {"txtAMI_CondenserT", "Condenser Temperature (°F):", "Condenser Temperature", "CONDENSER_TEMP", "39.5", "39.5"},
    {"txtAMI_CondenserP", "Condenser Pressure (psia):", "Condenser Pressure", "CONDENSER_PRES", "40.5", "40.5"},
    {"txtAMI_SRURecoveryEff", "Sulfur Recovery Efficiency (%):", "Sulfur Recovery Efficiency", "SRU_RECOVERY_EFFIC",
     "41.5", "41.5"},
    {"cmbAMI_OtherControlDevice", "Other Control Device (Y/N):", "Other Control Device?", "OTH_CTRL_DEVICE", "Yes",
     "True"},
    {"txtAMI_OtherControlDesc", "Description:", "Other Control Device Descript.", "OTH_CTRL_DESC", "a scrubber",
     "a scrubber"},
    {"txtAMI_OtherControlEffSOx", "SOx Efficiency (%):", "SOx Efficiency", "OTH_CTRL_EFFIC_SOX", "44.5", "44.5"},
    {"txtAMI_OtherControlEffNOx", "NOx Efficiency (%):", "NOx Efficiency", "OTH_CTRL_EFFIC_NOX", "45.5", "45.5"},
    {"txtAMI_OtherControlEffCO", "CO Efficiency (%):", "CO Efficiency", "OTH_CTRL_EFFIC_CO", "46.5", "46.5"},
    {"txtAMI_OtherControlEffVOC", "VOC Efficiency (%):", "VOC Efficiency", "OTH_CTRL_EFFIC_VOC", "47.5", "47.5"},
    {"txtAMI_OtherControlEffPM10", "PM10 Efficiency (%):", "PM10 Efficiency", "OTH_CTRL_EFFIC_PM10", "48.5", "48.5"},
};

const Bound kConcentrations[] = {
    {"txtAMI_ConcNGH2S", "H2S Concentration", 0, 100},
    {"txtAMI_ConcMethane", "Methane Concentration", 0, 100},
    {"txtAMI_ConcEthane", "Ethane Concentration", 0, 100},
    {"txtAMI_ConcC3HC", "C3 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC4HC", "C4 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC5HC", "C5 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC6HC", "C6 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC7HC", "C7 Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcC8plusHC", "C8+ Hyrdrocarbon Concentration", 0, 100},
    {"txtAMI_ConcO2", "O2 Concentration", 0, 100},
    {"txtAMI_ConcCO2", "CO2 Concentration", 0, 100},
    {"txtAMI_ConcN2", "N2 Concentration", 0, 100},
};

const std::vector<Bound> kModelBounds = {
    {"txtAMI_SourPress", "Sour gas feed pressure", 0, 1000},
    {"txtAMI_SourTemp", "Sour gas feed temperature", 32, 180},
    {"txtAMI_Nbr", "Number of Absorb trays", 0, 22},
    {"txtAMI_AmineFeedPress", "Lean Amine feed pressure", 0, 1600},
    {"txtAMI_AmineFeedTemp", "Lean Amine feed temperature", 32, 180},
    {"txtAMI_AmineFeedFlowRate", "Lean Amine feed flowrate", 0, 400},
    {"txtAMI_AmineFeedAminePct", "Lean Amine feed amine content", 0, 50},
    {"txtAMI_AmineFeedH2SPct", "Lean Amine feed H2S content", 0, 1},
    {"txtAMI_AmineFeedCO2Pct", "Lean Amine feed CO2 content", 0, 1},
};
const std::vector<Bound> kFlashBounds = {
    {"txtAMI_FlashTemp", "Flash Tank Temperature", 32, 180},
    {"txtAMI_FlashPress", "Flash Tank  Pressure", 0, 200},
};

const char* const kModelFields[] = {"txtAMI_SourPress",
                                    "txtAMI_SourTemp",
                                    "txtAMI_FlashTemp",
                                    "txtAMI_FlashPress",
                                    "txtAMI_Nbr",
                                    "txtAMI_AmineFeedPress",
                                    "txtAMI_AmineFeedTemp",
                                    "txtAMI_AmineFeedFlowRate",
                                    "txtAMI_AmineFeedAminePct",
                                    "txtAMI_AmineFeedH2SPct",
                                    "txtAMI_AmineFeedCO2Pct",
                                    "cmbAMI_AmineType",
                                    "cmbAmi_UseFlashTank",
                                    "cmbAmi_Disposition"};
const char* const kOutletFields[] = {"txtAMI_ExhaustOutletHgt",     "txtAMI_ExhaustOutletInnerDiam",
                                     "txtAMI_ExhaustOutletExitVel", "txtAMI_ExhaustOutletT",
                                     "txtAMI_ExhaustOutletAngle",   "txtAMI_FlareFeedRate",
                                     "txtAMI_FlareCombustionT",     "txtAMI_FlareEfficiency"};

std::string Stored(TestRun& run, const std::string& column, const std::string& table = "ED_AMI") {
  return NullToEmpty(run.Sql("SELECT " + column + " FROM " + table));
}

bool IsStoredNull(TestRun& run, const std::string& column) {
  return IsNull(run.Sql("SELECT " + column + " FROM ED_AMI"));
}

void SelectAgain(TestRun& run) {
  run.Select(run.Key());
  run.Select(run.Key("AMI", "A1"));
}

// In the edit that is open. Unexplained findings go at the start of a run, so that nothing stands from before.
void TryInEdit(TestRun& run, const std::vector<Bound>& bounds, const std::string& blank_finding) {
  const auto attempt = [&](const char* what, auto value, auto expected) {
    for (const Bound& bound : bounds) run.Set(bound.control, value(bound));
    run.Click("cmdQC");
    run.TakeBoxes();
    for (const Bound& bound : bounds)
      EXPECT_EQ(run.Finding(bound.tag), expected(bound)) << bound.control << " " << what;
  };
  const auto none = [](const Bound&) { return std::string(); };
  const auto range = [](const Bound& bound) { return RangeFinding(bound.low, bound.high); };
  attempt(
      "at the low bound", [](const Bound& b) { return GeneralNumber(b.low); }, none);
  attempt(
      "at the high bound", [](const Bound& b) { return GeneralNumber(b.high); }, none);
  attempt(
      "below", [](const Bound& b) { return GeneralNumber(b.low - 0.01); }, range);
  attempt(
      "above", [](const Bound& b) { return GeneralNumber(b.high + 0.01); }, range);
  attempt("blank", none, [&](const Bound&) { return blank_finding; });
  attempt(
      "at the low bound again", [](const Bound& b) { return GeneralNumber(b.low); }, none);
}

// Twelve concentrations: the first two as given, the others 0.
Values Composition(const std::string& first, const std::string& second) {
  Values values;
  for (const Bound& one : kConcentrations) values.emplace_back(one.control, "0");
  values[0].second = first;
  values[1].second = second;
  return values;
}

// ---- what shows, and what is kept ----

TEST(Amine, shows_its_pages_titles_and_first_fields) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_EQ(run.At("tabAMI").items,
            (Texts{"General Info.", "Model Inputs", "Ventilation System", "Control Equipment", "QC Results"}));
  EXPECT_EQ(run.At("tabAMI").page_available, (std::vector<bool>{true, true, true, true, true}));
  EXPECT_EQ(run.At("fraAMI").caption, "Amine Unit");
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraAMI").caption, "Amine Unit - EDIT DATA");
  EXPECT_EQ(run.s.desk.Find("frmAMI")->focus, "txtAMI_ConcNGH2S");
  run.Click("cmdCANCEL");
  run.GoTo("AMI", "A1", Mode::kActv);
  EXPECT_EQ(run.At("tabAMI").page_available, (std::vector<bool>{true, false, false, false, true}));
  run.Click("cmdEdit");
  EXPECT_EQ(run.At("fraAMI").caption, "Amine Unit - EDIT DATA");
  EXPECT_EQ(run.s.desk.Find("frmAMI")->focus, kThroughput);
}

TEST(Amine, remembers_its_page_under_its_own_number) {
  TestRun run;
  run.StartWith("AMI", "A1");
  ASSERT_EQ(act::Page(run.s.desk, *run.s.desk.Find("frmAMI"), "tabAMI", 2), "");
  EXPECT_EQ(run.s.last_page_desc[1], 2);
  run.Select(run.Key());
  run.Select(run.Key("AMI", "A1"));
  EXPECT_EQ(run.At("tabAMI").index, 2);
}

TEST(Amine, shows_every_field_with_its_caption_and_lists_it_under_its_name) {
  TestRun run;
  run.StartWith("AMI", "A1");
  const auto expect = [&](const Field& field) {
    EXPECT_EQ(run.At(field.control).caption, field.caption) << field.control;
    EXPECT_EQ(run.At(field.control).tag, field.tag) << field.control;
  };
  for (const Field& field : kMonth) expect(field);
  for (const Field& field : kDescription) expect(field);
  expect({"txtAMI_Comments", "Comments:", "Comments"});
  expect({kTotal, "Total:", kTotalTag});
  expect({"cmbAMI_VentedToID", "Remote Vent/Flare ID:", "Low Pressure Vent/Flare ID"});
  expect({"zOptAMI_EmisEdit", "Quantity emitted (%)", ""});
  expect({"OptAMI_ModlEdit", "Model inputs", ""});
  EXPECT_EQ(run.At("chkAMI_Status").caption, "No Emissions to Report");
  EXPECT_EQ(run.At("fraAMI2").caption, "Specify emissions by");
  EXPECT_EQ(run.At("txtAMI_ConcNGH2S").block, "Unprocessed Natural Gas Concentrations (% by volume)");
  EXPECT_EQ(run.Text(run.At("cmbAMI_VentedToID").note), "(selected from current structure)");
}

TEST(Amine, holds_the_nine_quantities_emitted_out_of_sight) {
  struct {
    const char *control, *tag;
  } const fields[] = {{"xtAMI_EmittedH2S", "H2S % Emitted"},
                      {"xtAMI_EmittedMethane", "Methane % Emitted"},
                      {"xtAMI_EmittedEthane", "Ethane % Emitted"},
                      {"xtAMI_EmittedC3HC", "C3 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC4HC", "C4 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC5HC", "C5 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC6HC", "C6 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC7HC", "C7 Hydrocarbon % Emitted"},
                      {"xtAMI_EmittedC8plusHC", "C8+ Hydrocarbon % Emitted"}};
  TestRun run;
  run.StartWith("AMI", "A1");
  const Form& form = *run.s.desk.Find("frmAMI");
  for (const auto& field : fields) {
    const Control* control = form.Find(field.control);
    ASSERT_NE(control, nullptr) << field.control;
    EXPECT_EQ(control->tag, field.tag);
    EXPECT_FALSE(IsVisible(form, *control)) << field.control;
  }
  run.Click("cmdEdit");
  for (const auto& field : fields) EXPECT_FALSE(IsVisible(form, form.At(field.control))) << field.control;
}

TEST(Amine, leaves_the_stored_quantities_emitted_alone) {
  TestRun run;
  run.StartWith("AMI", "A1");
  const Texts columns = {"Emis_H2S",  "Emis_Methane", "Emis_Ethane", "Emis_C3HC",     "Emis_C4HC",
                         "Emis_C5HC", "Emis_C6HC",    "Emis_C7HC",   "Emis_C8plus_HC"};
  for (std::size_t i = 0; i < columns.size(); ++i)
    run.s.db.Execute("UPDATE ED_AMI SET " + columns[i] + "=" + std::to_string(i) + ".5");
  SelectAgain(run);
  run.Keep({{"txtAMI_ConcN2", "3"}});
  for (std::size_t i = 0; i < columns.size(); ++i)
    EXPECT_EQ(Stored(run, columns[i]), std::to_string(i) + ".5") << columns[i];
}

TEST(Amine, keeps_every_field_of_the_description_in_its_column) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  const std::string temperature = "txtAMI_ExhaustOutletT";
  for (const Field& field : kDescription)
    if (field.control == temperature) run.Put({{kDestination, "Vented Locally"}, {temperature, field.text}});
  for (const Field& field : kDescription)
    if (field.control != temperature) run.Set(field.control, field.text);
  run.Click("cmdSaveEdits");
  run.Click("cmdCANCEL");
  for (const Field& field : kDescription) EXPECT_EQ(Stored(run, field.column), field.stored) << field.control;
  SelectAgain(run);
  for (const Field& field : kDescription) EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  EXPECT_EQ(Stored(run, "TOT_GAS_THRUPUT", "EA_AMI"), "");
}

TEST(Amine, keeps_every_field_of_a_month_in_its_column) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const Field& field : kMonth) run.Set(field.control, field.text);
  run.Set("txtAMI_Comments", "a dry month");
  run.Check("chkAMI_Status", true);
  run.Click("cmdSaveEdits");
  for (const Field& field : kMonth) {
    EXPECT_EQ(Stored(run, field.column, "EA_AMI"), field.stored) << field.control;
    EXPECT_EQ(run.Text(field.control), field.text) << field.control;
  }
  EXPECT_EQ(Stored(run, "EA_COMNT_TXT", "EA_EQUIP_ACTV"), "a dry month");
  EXPECT_EQ(Stored(run, "EA_STATUS", "EA_EQUIP_ACTV"), "I");
  run.Check("chkAMI_Status", false);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "EA_STATUS", "EA_EQUIP_ACTV"), "A");
}

TEST(Amine, keeps_each_item_of_its_lists_as_its_code_or_its_text) {
  struct {
    const char *list, *column;
    Values items;
  } const lists[] = {
      {kTechnology,
       "CTRL_TECH",
       {{"None", "NONE"}, {kRecovery, "VR/C"}, {"Sulfur Recovery (SR)", "SR"}, {"SR + VR/C", "SRVC"}}},
      {"cmbAmi_Disposition", "Disposition", {{"Vented", "VL"}, {"Flared", "FL"}, {"Routed to System", "RS"}}},
      {"cmbAMI_AmineType",
       "AMINE_TYP",
       {{"MEA", "MEA"}, {"DEA", "DEA"}, {"TEA", "TEA"}, {"MDEA", "MDEA"}, {"GDA", "GDA"}}},
      {"cmbAmi_UseFlashTank", "FLASHTANK_FLG", {{"Yes", "True"}, {"No", "False"}}},
      {"cmbAMI_OtherControlDevice", "OTH_CTRL_DEVICE", {{"Yes", "True"}, {"No", "False"}}},
  };
  TestRun run;
  run.StartWith("AMI", "A1");
  for (const auto& list : lists) {
    EXPECT_TRUE(IsStoredNull(run, list.column)) << list.column;
    Texts items;
    for (const auto& [item, code] : list.items) {
      run.Keep({{list.list, item}});
      EXPECT_EQ(Stored(run, list.column), code) << item;
      SelectAgain(run);
      EXPECT_EQ(run.Text(list.list), item);
      EXPECT_EQ(run.At(list.list).index, static_cast<int>(items.size())) << item;
      items.push_back(item);
    }
    EXPECT_EQ(run.At(list.list).items, items);
  }
}

TEST(Amine, shows_no_choice_for_a_code_that_no_item_has) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.s.db.Execute("UPDATE ED_AMI SET CTRL_TECH='CND', Disposition='VR', AMINE_TYP='XEA'");
  SelectAgain(run);
  for (const char* list : {kTechnology, "cmbAmi_Disposition", "cmbAMI_AmineType"}) {
    EXPECT_EQ(run.Text(list), "") << list;
    EXPECT_EQ(run.At(list).index, -1) << list;
  }
}

TEST(Amine, shows_the_composition_in_a_month_and_does_not_let_it_be_typed) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_FALSE(run.Visible(kThroughput));
  EXPECT_FALSE(run.Visible(kHours));
  EXPECT_FALSE(run.Visible("txtAMI_Comments"));
  run.Keep(Composition("40", "59.9"));
  run.GoTo("AMI", "A1", Mode::kActv);
  EXPECT_TRUE(run.Visible(kThroughput));
  EXPECT_TRUE(run.Visible(kHours));
  EXPECT_TRUE(run.Visible("txtAMI_Comments"));
  run.Click("cmdEdit");
  EXPECT_TRUE(run.Visible("chkAMI_Status"));
  EXPECT_EQ(run.Text("txtAMI_ConcNGH2S"), "40");
  EXPECT_EQ(run.Text("txtAMI_ConcMethane"), "59.9");
  for (const Bound& one : kConcentrations) {
    EXPECT_TRUE(run.Visible(one.control)) << one.control;
    EXPECT_EQ(run.WhyNotSet(one.control), "is locked") << one.control;
  }
  EXPECT_EQ(run.WhyNotSet(kThroughput), "");
  EXPECT_EQ(run.WhyNotSet(kHours), "");
}

// ---- bounds ----

TEST(Amine, is_held_to_every_bound_of_a_month) {
  TryBounds({.type = "AMI",
             .mode = Mode::kActv,
             .required = {{kThroughput, "Processed Throughput", 0, 15500}, {kHours, "Hours Operated", 0, 744}}});
}

TEST(Amine, is_held_to_the_bounds_of_its_composition) {
  TryBounds({.type = "AMI", .mode = Mode::kDesc, .required = {std::begin(kConcentrations), std::end(kConcentrations)}});
}

TEST(Amine, flared_locally_is_held_to_the_bounds_of_outlet_and_flare) {
  TryBounds({.type = "AMI",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Flared Locally"}},
             .required = {{"txtAMI_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtAMI_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 12},
                          {"txtAMI_ExhaustOutletExitVel", "Ventilation Exit Velocity", 5, 1100},
                          {"txtAMI_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180},
                          {"txtAMI_FlareFeedRate", "Flare Feed Rate", 0, 4000},
                          {"txtAMI_FlareCombustionT", "Flare Combustion Temperature", 1400, 2000},
                          {"txtAMI_FlareEfficiency", "Combustion Efficiency", 50, 99.9}}});
}

TEST(Amine, vented_locally_is_held_to_the_bounds_of_the_outlet) {
  TryBounds({.type = "AMI",
             .mode = Mode::kDesc,
             .base = {{kDestination, "Vented Locally"}},
             .required = {{"txtAMI_ExhaustOutletHgt", "Ventilation Outlet Height", -30, 100},
                          {"txtAMI_ExhaustOutletInnerDiam", "Ventilation Outlet Inner Diameter", 2, 12},
                          {"txtAMI_ExhaustOutletExitVel", "Ventilation Exit Velocity", 5, 1100},
                          {"txtAMI_ExhaustOutletT", "Ventilation Exit Temperature", 70, 250},
                          {"txtAMI_ExhaustOutletAngle", "Ventilation Outlet Orientation", 0, 180}}});
}

TEST(Amine, is_held_to_the_bounds_of_the_control_equipment_installed) {
  const Bound temperature = {"txtAMI_CondenserT", "Condenser Temperature", 32, 212};
  const Bound pressure = {"txtAMI_CondenserP", "Condenser Pressure", 0.5, 1000};
  const Bound recovery = {"txtAMI_SRURecoveryEff", "Sulfur Recovery Efficiency", 50, 99.9};
  TryBounds({.type = "AMI",
             .mode = Mode::kDesc,
             .base = {{kTechnology, "SR + VR/C"}},
             .required = {temperature, pressure, recovery}});
  TryBounds(
      {.type = "AMI", .mode = Mode::kDesc, .base = {{kTechnology, kRecovery}}, .required = {temperature, pressure}});
  TryBounds(
      {.type = "AMI", .mode = Mode::kDesc, .base = {{kTechnology, "Sulfur Recovery (SR)"}}, .required = {recovery}});
}

TEST(Amine, is_held_to_the_bounds_of_the_model_inputs) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Set("cmbAmi_UseFlashTank", "Yes");
  TryInEdit(run, kModelBounds, kBlankFinding);
  TryInEdit(run, kFlashBounds, kBlankFinding);
}

TEST(Amine, is_held_to_the_bounds_of_the_efficiencies_that_are_given) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Set("cmbAMI_OtherControlDevice", "Yes");
  TryInEdit(run,
            {{"txtAMI_OtherControlEffSOx", "SOx Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffNOx", "NOx Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffCO", "CO Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffVOC", "VOC Efficiency", 0, 99.9},
             {"txtAMI_OtherControlEffPM10", "PM10 Efficiency", 0, 99.9}},
            "");
  EXPECT_EQ(run.Finding("Other Control Device Descript."), kBlankFinding);
  run.Set("txtAMI_OtherControlDesc", "scrubber");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Other Control Device Descript."), "");
}

TEST(Amine, without_another_control_device_keeps_its_efficiencies_and_raises_nothing) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep({{"cmbAMI_OtherControlDevice", "Yes"},
            {"txtAMI_OtherControlEffCO", "120"},
            {"txtAMI_OtherControlEffVOC", "99.91"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("CO Efficiency"), RangeFinding(0, 99.9));
  EXPECT_EQ(run.Finding("VOC Efficiency"), RangeFinding(0, 99.9));
  run.Keep({{"cmbAMI_OtherControlDevice", "No"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE FieldID LIKE '%Efficiency' OR FieldID LIKE 'Other%'"), 0);
  EXPECT_EQ(Stored(run, "OTH_CTRL_EFFIC_CO"), "120");
  EXPECT_EQ(Stored(run, "OTH_CTRL_EFFIC_VOC"), "99.91");
}

// ---- blank records ----

TEST(Amine, blank_in_a_month_lacks_throughput_and_hours) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", kBlankFinding}, {"Hours Operated", kBlankFinding}}));
}

TEST(Amine, blank_in_its_description_lacks_composition_destination_and_control_equipment) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdQC");
  Found expected;
  for (const Bound& one : kConcentrations) expected.emplace_back(one.tag, kBlankFinding);
  expected.emplace_back(kTotalTag, kTotalFinding);
  expected.emplace_back("Emissions Destination", kBlankFinding);
  expected.emplace_back("Installed Control Equipment", kBlankFinding);
  EXPECT_EQ(run.Findings(), expected);
}

TEST(Amine, blank_with_model_inputs_lacks_those_too_in_their_order) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep(Composition("50", "50"));
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Click("cmdQC");
  Found expected;
  const auto blank = [&](std::initializer_list<const char*> tags) {
    for (const char* tag : tags) expected.emplace_back(tag, kBlankFinding);
  };
  blank({"Amine Type", "Equipped with flash tank?", "Sour gas feed pressure", "Sour gas feed temperature",
         "Number of Absorb trays", "Lean Amine feed pressure", "Lean Amine feed temperature",
         "Lean Amine feed flowrate", "Lean Amine feed amine content", "Lean Amine feed H2S content",
         "Lean Amine feed CO2 content", "Emissions Destination", "Installed Control Equipment"});
  EXPECT_EQ(run.Findings(), expected);
  run.Set("cmbAmi_UseFlashTank", "Yes");
  run.Click("cmdQC");
  expected.clear();
  blank({"Amine Type", "Sour gas feed pressure", "Sour gas feed temperature", "Destination of Flash Gas",
         "Flash Tank Temperature", "Flash Tank  Pressure", "Number of Absorb trays", "Lean Amine feed pressure",
         "Lean Amine feed temperature", "Lean Amine feed flowrate", "Lean Amine feed amine content",
         "Lean Amine feed H2S content", "Lean Amine feed CO2 content", "Emissions Destination",
         "Installed Control Equipment"});
  EXPECT_EQ(run.Findings(), expected);
}

TEST(Amine, routed_to_the_system_lacks_no_outlet_and_no_flare) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("50", "50"));
  run.Put({{kTechnology, "None"}, {kDestination, "Flared Locally"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC"), 7);
  run.Set(kDestination, "Routed to System");
  run.TakeBoxes();
  run.Click("cmdQC");
  EXPECT_EQ(run.TakeBoxes(), Texts{"QC completed, no errors found"});
  EXPECT_EQ(run.Count("QC"), 0);
}

// ---- colours ----

TEST(Amine, looks_passed_again_once_a_required_list_is_chosen) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Put({{"cmbAmi_UseFlashTank", "Yes"}, {"cmbAMI_OtherControlDevice", "Yes"}});
  run.Click("cmdQC");
  const Values choices = {{"cmbAMI_AmineType", "DEA"},
                          {"cmbAmi_Disposition", "Vented"},
                          {kTechnology, "None"},
                          {"txtAMI_OtherControlDesc", "scrubber"}};
  for (const auto& [name, text] : choices) EXPECT_EQ(run.At(name).back, Back::kFlag) << name;
  run.Put(choices);
  run.Click("cmdQC");
  for (const auto& [name, text] : choices) EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
}

TEST(Amine, leaves_the_colour_of_an_efficiency_that_is_blank) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put({{"cmbAMI_OtherControlDevice", "Yes"},
           {"txtAMI_OtherControlEffSOx", "100"},
           {"txtAMI_OtherControlEffNOx", "100"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.At("txtAMI_OtherControlEffSOx").back, Back::kFlag);
  run.Put({{"txtAMI_OtherControlEffSOx", ""}, {"txtAMI_OtherControlEffNOx", "99.9"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.At("txtAMI_OtherControlEffSOx").back, Back::kFlag);
  EXPECT_EQ(run.At("txtAMI_OtherControlEffNOx").back, Back::kWindow);
  EXPECT_EQ(run.Finding("SOx Efficiency"), "");
}

// ---- the total of the composition ----

TEST(Amine, accepts_a_composition_of_99_8_to_100_and_no_other) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  struct {
    const char *first, *second, *total;
    bool passes;
  } const cases[] = {{"49.9", "49.9", "99.8", true},   {"50", "50", "100", true},    {"49.9", "49.89", "99.79", false},
                     {"50.01", "50", "100.01", false}, {"50", "49.9", "99.9", true}, {"0", "0", "0", false}};
  for (const auto& one : cases) {
    run.Put(Composition(one.first, one.second));
    run.Click("cmdQC");
    EXPECT_EQ(run.Text(kTotal), one.total);
    EXPECT_EQ(run.Finding(kTotalTag), one.passes ? "" : kTotalFinding) << one.total;
    EXPECT_EQ(run.At(kTotal).back, one.passes ? Back::kFace : Back::kFlag) << one.total;
  }
}

TEST(Amine, adds_up_all_twelve_concentrations) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  double number = 0.5, sum = 0;
  for (const Bound& one : kConcentrations) {
    run.Set(one.control, GeneralNumber(number));
    sum += number;
    number *= 2;
    run.Click("cmdQC");
    EXPECT_EQ(run.Text(kTotal), GeneralNumber(sum)) << one.control;
  }
}

TEST(Amine, prints_the_total_as_a_plain_number) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("0.1", "0.2"));
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "0.3");
}

TEST(Amine, counts_letters_in_the_composition_as_nothing_and_stores_nothing_for_them) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("trace", "99.9"));
  run.Set("txtAMI_ConcN2", "5 or so");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("H2S Concentration"), "");
  EXPECT_EQ(run.Finding("N2 Concentration"), "");
  EXPECT_EQ(run.Text(kTotal), "99.9");
  EXPECT_EQ(run.Finding(kTotalTag), "");
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsStoredNull(run, "Conc_NGH2S"));
  EXPECT_TRUE(IsStoredNull(run, "CONC_N2"));
  EXPECT_EQ(Stored(run, "Conc_Methane"), "99.9");
  EXPECT_EQ(run.Text("txtAMI_ConcNGH2S"), "");
}

TEST(Amine, stores_the_total_of_the_last_run_and_not_of_the_save) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Put(Composition("60", "40"));
  run.Click("cmdSaveEdits");
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  EXPECT_EQ(run.Text(kTotal), "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "100");
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "UNG_CONC_TOTAL"), "100");
  run.Set("txtAMI_ConcMethane", "30");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "Conc_Methane"), "30");
  EXPECT_EQ(Stored(run, "UNG_CONC_TOTAL"), "100");
  EXPECT_EQ(run.Text(kTotal), "100");
  run.Click("cmdSaveExit");
  EXPECT_EQ(Stored(run, "UNG_CONC_TOTAL"), "90");
  EXPECT_EQ(run.Text(kTotal), "90");
}

TEST(Amine, shows_the_total_of_a_run_in_view_without_storing_it) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep(Composition("60", "40"));
  run.Click("cmdQC");
  EXPECT_EQ(run.Text(kTotal), "100");
  EXPECT_EQ(run.At(kTotal).back, Back::kFace);
  EXPECT_TRUE(IsStoredNull(run, "UNG_CONC_TOTAL"));
  SelectAgain(run);
  EXPECT_EQ(run.Text(kTotal), "");
}

TEST(Amine, never_lets_the_total_be_typed) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
  EXPECT_EQ(run.At(kTotal).back, Back::kFace);
  run.Click("cmdCANCEL");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  EXPECT_EQ(run.WhyNotSet(kTotal), "is locked");
}

// ---- model inputs ----

TEST(Amine, shows_neither_option_without_model_inputs_and_stores_that_there_are_none) {
  TestRun run;
  run.StartWith("AMI", "A1");
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
  run.Keep({});
  EXPECT_EQ(Stored(run, "MODELINPUTS_FLG"), "False");
  SelectAgain(run);
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
  run.Click("cmdQC");
  for (const Bound& bound : kModelBounds) EXPECT_EQ(run.Finding(bound.tag), "") << bound.control;
  for (const char* tag : {"Amine Type", "Equipped with flash tank?", "Destination of Flash Gas"})
    EXPECT_EQ(run.Finding(tag), "") << tag;
}

TEST(Amine, stores_that_there_are_model_inputs_and_shows_it_again) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "MODELINPUTS_FLG"), "True");
  EXPECT_TRUE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
  run.Click("zOptAMI_EmisEdit");
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_TRUE(run.At("zOptAMI_EmisEdit").checked);
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "MODELINPUTS_FLG"), "False");
  EXPECT_FALSE(run.At("OptAMI_ModlEdit").checked);
  EXPECT_FALSE(run.At("zOptAMI_EmisEdit").checked);
}

TEST(Amine, unlocks_the_model_inputs_for_an_edit_whatever_option_is_set) {
  TestRun run;
  run.StartWith("AMI", "A1");
  const auto expect = [&](bool editable, const char* when) {
    for (const char* name : kModelFields) {
      EXPECT_EQ(run.At(name).locked, !editable) << name << " " << when;
      EXPECT_TRUE(run.At(name).enabled) << name << " " << when;
      EXPECT_EQ(run.At(name).back, editable ? Back::kWindow : Back::kFace) << name << " " << when;
    }
  };
  expect(false, "in view");
  run.Click("cmdEdit");
  expect(true, "with neither option");
  run.Click("zOptAMI_EmisEdit");
  expect(true, "with quantity emitted");
  run.Click("OptAMI_ModlEdit");
  expect(true, "with model inputs");
  run.Set("cmbAmi_UseFlashTank", "No");
  expect(true, "without a flash tank");
  run.Click("cmdCANCEL");
  expect(false, "in view again");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const char* name : kModelFields) EXPECT_TRUE(run.At(name).locked) << name << " in a month";
}

TEST(Amine, looks_editable_again_when_model_inputs_are_clicked) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Click("cmdQC");
  ASSERT_EQ(run.At("txtAMI_Nbr").back, Back::kFlag);
  run.Click("OptAMI_ModlEdit");
  for (const char* name : kModelFields) EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
}

TEST(Amine, keeps_the_model_inputs_when_quantity_emitted_is_chosen) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Keep({{"txtAMI_Nbr", "20"}, {"txtAMI_SourTemp", "90"}, {"cmbAMI_AmineType", "MDEA"}});
  run.Click("cmdEdit");
  run.Click("zOptAMI_EmisEdit");
  EXPECT_EQ(run.Text("txtAMI_Nbr"), "20");
  EXPECT_EQ(run.Text("txtAMI_SourTemp"), "90");
  EXPECT_EQ(run.Text("cmbAMI_AmineType"), "MDEA");
  run.Set("txtAMI_Nbr", "21");
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "NUM"), "21");
  EXPECT_EQ(Stored(run, "Sour_Temp"), "90");
  EXPECT_EQ(Stored(run, "AMINE_TYP"), "MDEA");
}

TEST(Amine, without_a_flash_tank_lacks_nothing_of_one) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Set("cmbAmi_UseFlashTank", "Yes");
  run.Click("cmdQC");
  ASSERT_EQ(run.Finding("Flash Tank Temperature"), kBlankFinding);
  ASSERT_EQ(run.At("txtAMI_FlashTemp").back, Back::kFlag);
  run.Set("cmbAmi_UseFlashTank", "No");
  run.Click("cmdQC");
  for (const char* tag : {"Destination of Flash Gas", "Flash Tank Temperature", "Flash Tank  Pressure"})
    EXPECT_EQ(run.Finding(tag), "") << tag;
  for (const char* name : {"cmbAmi_Disposition", "txtAMI_FlashTemp", "txtAMI_FlashPress"}) {
    EXPECT_EQ(run.At(name).back, Back::kWindow) << name;
    EXPECT_EQ(run.WhyNotSet(name), "") << name;
  }
}

TEST(Amine, without_a_flash_tank_keeps_the_findings_that_were_explained) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Click("OptAMI_ModlEdit");
  run.Set("cmbAmi_UseFlashTank", "Yes");
  run.Click("cmdQC");
  run.s.db.Execute(
      "UPDATE QC SET Comments='being fitted' WHERE FieldID IN ('Flash Tank Temperature','Number of Absorb trays')");
  run.Set("cmbAmi_UseFlashTank", "No");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Flash Tank Temperature"), kBlankFinding);
  EXPECT_EQ(run.Finding("Flash Tank  Pressure"), "");
  // without model inputs nothing runs for them, and an explained finding stands
  run.Click("zOptAMI_EmisEdit");
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Flash Tank Temperature"), kBlankFinding);
  EXPECT_EQ(run.Finding("Number of Absorb trays"), kBlankFinding);
  EXPECT_EQ(run.Finding("Amine Type"), "");
  EXPECT_EQ(run.At("txtAMI_Nbr").back, Back::kFlag) << "not even the mark is taken away";
  EXPECT_EQ(run.Count("QC WHERE Comments='being fitted'"), 2);
}

TEST(Amine, withdraws_an_explained_outlet_finding_when_the_destination_asks_for_none) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Set(kDestination, "Flared Locally");
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='being fitted'");
  run.Set(kDestination, "Flared Remotely");
  run.Click("cmdQC");
  for (const char* tag :
       {"Ventilation Outlet Height", "Ventilation Outlet Inner Diameter", "Ventilation Exit Velocity",
        "Ventilation Outlet Orientation", "Flare Feed Rate", "Flare Combustion Temperature", "Combustion Efficiency"})
    EXPECT_EQ(run.Finding(tag), "") << tag;
}

// ---- control equipment and destination on the screen ----

TEST(Amine, turns_condenser_and_sulfur_recovery_on_and_off_by_the_control_equipment) {
  struct Row {
    const char* item;
    bool condenser, recovery;
  };
  const Row rows[] = {{"None", false, false},
                      {"SR + VR/C", true, true},
                      {kRecovery, true, false},
                      {"Sulfur Recovery (SR)", false, true},
                      {kRecovery, true, false},
                      {"SR + VR/C", true, true},
                      {"Sulfur Recovery (SR)", false, true},
                      {"None", false, false}};
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  const auto expect = [&](const Row& row) {
    for (const char* name : {"txtAMI_CondenserT", "txtAMI_CondenserP"}) {
      EXPECT_EQ(run.At(name).enabled, row.condenser) << name << " " << row.item;
      EXPECT_EQ(run.At(name).back, row.condenser ? Back::kWindow : Back::kFace) << name << " " << row.item;
    }
    EXPECT_EQ(run.At("txtAMI_SRURecoveryEff").enabled, row.recovery) << row.item;
    EXPECT_EQ(run.At("txtAMI_SRURecoveryEff").back, row.recovery ? Back::kWindow : Back::kFace) << row.item;
  };
  expect({"", false, false});
  for (const Row& row : rows) {
    run.Set(kTechnology, "SR + VR/C");
    run.Put({{"txtAMI_CondenserT", "40"}, {"txtAMI_CondenserP", "14"}, {"txtAMI_SRURecoveryEff", "95"}});
    run.Set(kTechnology, row.item);
    expect(row);
    EXPECT_EQ(run.Text("txtAMI_CondenserT"), row.condenser ? "40" : "") << row.item;
    EXPECT_EQ(run.Text("txtAMI_CondenserP"), row.condenser ? "14" : "") << row.item;
    EXPECT_EQ(run.Text("txtAMI_SRURecoveryEff"), row.recovery ? "95" : "") << row.item;
  }
}

TEST(Amine, withdraws_the_findings_of_equipment_that_is_not_installed) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  run.Set(kTechnology, "SR + VR/C");
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='known'");
  const auto findings = [&] {
    return Texts{run.Finding("Condenser Temperature"), run.Finding("Condenser Pressure"),
                 run.Finding("Sulfur Recovery Efficiency")};
  };
  EXPECT_EQ(findings(), (Texts{kBlankFinding, kBlankFinding, kBlankFinding}));
  run.Set(kTechnology, kRecovery);
  run.Click("cmdQC");
  EXPECT_EQ(findings(), (Texts{kBlankFinding, kBlankFinding, ""}));
  run.Set(kTechnology, "Sulfur Recovery (SR)");
  run.Click("cmdQC");
  EXPECT_EQ(findings(), (Texts{"", "", kBlankFinding}));
  run.Set(kTechnology, "None");
  run.Click("cmdQC");
  EXPECT_EQ(findings(), (Texts{"", "", ""}));
}

TEST(Amine, turns_the_other_device_s_fields_on_with_the_device_and_keeps_their_texts) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Click("cmdEdit");
  const Values texts = {{"txtAMI_OtherControlDesc", "scrubber"}, {"txtAMI_OtherControlEffSOx", "1"},
                        {"txtAMI_OtherControlEffNOx", "2"},      {"txtAMI_OtherControlEffCO", "3"},
                        {"txtAMI_OtherControlEffVOC", "4"},      {"txtAMI_OtherControlEffPM10", "5"}};
  const auto expect = [&](bool on, const char* device) {
    for (const auto& [name, text] : texts) {
      EXPECT_EQ(run.At(name).enabled, on) << name << " " << device;
      EXPECT_EQ(run.At(name).back, on ? Back::kWindow : Back::kFace) << name << " " << device;
    }
  };
  expect(false, "");
  run.Set("cmbAMI_OtherControlDevice", "Yes");
  expect(true, "Yes");
  run.Put(texts);
  run.Set("cmbAMI_OtherControlDevice", "No");
  expect(false, "No");
  for (const auto& [name, text] : texts) EXPECT_EQ(run.Text(name), text) << name;
}

TEST(Amine, routed_to_the_system_empties_outlet_and_flare_at_once_and_for_good) {
  TestRun run;
  run.StartWith("AMI", "A1");
  for (const auto& [type, id] : Values{{"FLA", "F1"}}) {
    run.Select(run.Key());
    run.AddEquipment(type, id);
  }
  run.Select(run.Key("AMI", "A1"));
  run.Click("cmdEdit");
  run.Put({{kDestination, "Vented Locally"},
           {"txtAMI_ExhaustOutletHgt", "10"},
           {"txtAMI_ExhaustOutletInnerDiam", "4"},
           {"txtAMI_ExhaustOutletExitVel", "50"},
           {"txtAMI_ExhaustOutletT", "100"},
           {"txtAMI_ExhaustOutletAngle", "90"},
           {kDestination, "Flared Locally"},
           {"txtAMI_FlareFeedRate", "100"},
           {"txtAMI_FlareCombustionT", "1500"},
           {"txtAMI_FlareEfficiency", "98"},
           {kDestination, "Flared Remotely"},
           {"cmbAMI_VentedToID", "Flare: F1"}});
  run.Click("cmdSaveEdits");
  EXPECT_EQ(Stored(run, "EXH_OUT_TEMP"), "100");
  run.Set(kDestination, "Routed to System");
  const auto expect_empty = [&](const char* when) {
    for (const char* name : kOutletFields) EXPECT_EQ(run.Text(name), "") << name << " " << when;
    EXPECT_EQ(run.Text("cmbAMI_VentedToID"), "") << when;
    EXPECT_EQ(run.At("cmbAMI_VentedToID").index, -1) << when;
  };
  expect_empty("at once");
  for (const char* name : kOutletFields) {
    EXPECT_FALSE(run.At(name).enabled) << name;
    EXPECT_EQ(run.At(name).back, Back::kFace) << name;
  }
  EXPECT_FALSE(run.At("cmbAMI_VentedToID").enabled);
  EXPECT_EQ(run.At("cmbAMI_VentedToID").items, Texts{"Flare: F1"}) << "the list is not filled again";
  run.Click("cmdSaveEdits");
  expect_empty("after the save");
  for (const char* column : {"EXH_OUT_HGT", "EXH_OUT_INNER_DIAM", "EXH_OUT_EXIT_VEL", "EXH_OUT_TEMP", "EXH_OUT_ANGLE",
                             "FLA_FEED_RATE", "FLA_COMBUST_TEMP", "FLA_EFFIC", "SENT_TO_ID"})
    EXPECT_TRUE(IsStoredNull(run, column)) << column;
  EXPECT_EQ(Stored(run, "EMIS_DEST"), "RS");
}

// ---- the structure's throughput, and hours ----

TEST(Amine, may_not_process_more_than_its_structure) {
  struct {
    const char *total, *throughput;
    bool exceeds;
  } const cases[] = {{"NULL", "10", false}, {"0", "10", false},   {"0.4", "10", false}, {"0.6", "10", true},
                     {"10", "10", false},   {"10", "10.5", true}, {"10", "9.5", false}, {"0.6", "0.5", false}};
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  run.Set(kHours, "100");
  for (const auto& one : cases) {
    run.s.db.Execute(std::string("UPDATE PA_PLATFORM_ACTV SET THRU_NG=") + one.total);
    run.Set(kThroughput, one.throughput);
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Processed Throughput"), one.exceeds ? kExceeds : "")
        << one.throughput << " of " << one.total;
  }
}

TEST(Amine, compares_its_throughput_in_full_precision) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET THRU_NG=100");
  run.Put({{kHours, "10"}, {kThroughput, "100.000001"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Finding("Processed Throughput"), kExceeds);
}

TEST(Amine, shows_its_description_unchanged_while_a_month_is_edited) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.s.db.Execute(
      "UPDATE ED_AMI SET EMIS_DEST='RS',EXH_OUT_HGT=4,CTRL_TECH='NONE',CONDENSER_TEMP=50,SRU_RECOVERY_EFFIC=60");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const auto& [field, text] : {std::pair{"txtAMI_ExhaustOutletHgt", "4"}, std::pair{"txtAMI_CondenserT", "50"},
                                    std::pair{"txtAMI_SRURecoveryEff", "60"}}) {
    EXPECT_EQ(run.Text(field), text) << field;
    EXPECT_TRUE(run.At(field).enabled && run.At(field).locked) << field;
    EXPECT_EQ(run.At(field).back, Back::kFace) << field;
  }
}

TEST(Amine, has_one_finding_on_a_throughput_that_is_out_of_range_and_over_the_structure_s) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET THRU_NG=100");
  run.Put({{kHours, "100"}, {kThroughput, "15501"}});
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", kExceeds}}));
  run.s.db.Execute("UPDATE PA_PLATFORM_ACTV SET THRU_NG=20000");
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", RangeFinding(0, 15500)}}));
  run.Set(kThroughput, "");
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings(), (Found{{"Processed Throughput", kBlankFinding}}));
}

TEST(Amine, may_not_run_no_hours_while_it_processes_gas) {
  struct {
    const char *throughput, *hours, *finding;
  } const cases[] = {{"5", "0", kZeroHours},
                     {"5", "0.5", ""},
                     {"0", "0", ""},
                     {"", "0", ""},
                     {"-1", "0", ""},
                     {"5", "none", kZeroHours},
                     {"5", "-1", "Value not in expected range (0 to 744)"},
                     {"5", "", kBlankFinding},
                     {"5", "745", "Value not in expected range (0 to 744)"},
                     {"0.001", "0", kZeroHours}};
  TestRun run;
  run.StartWith("AMI", "A1");
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdEdit");
  for (const auto& one : cases) {
    run.Put({{kThroughput, one.throughput}, {kHours, one.hours}});
    run.Click("cmdQC");
    EXPECT_EQ(run.Finding("Hours Operated"), one.finding) << one.throughput << " in " << one.hours;
    EXPECT_EQ(run.At(kHours).back, *one.finding == '\0' ? Back::kWindow : Back::kFlag)
        << one.throughput << " in " << one.hours;
  }
}

// ---- findings that a run takes away ----

// Amine units A1 and A2, each with findings of month 1; those of A2's throughput and A1's hours explained.
void StartWithTwo(TestRun& run, const std::string& type, const std::string& throughput_tag) {
  run.StartWith(type, "A1");
  run.Select(run.Key());
  run.AddEquipment(type, "A2");
  run.GoTo(type, "A1", Mode::kActv);
  run.Click("cmdQC");
  run.GoTo(type, "A2", Mode::kActv);
  run.s.db.Execute("UPDATE QC SET Comments='meter broken' WHERE EquipID='A1'");
  run.Click("cmdQC");
  run.s.db.Execute("UPDATE QC SET Comments='meter broken' WHERE EquipID='A2' AND FieldID='" + throughput_tag + "'");
}

TEST(Amine, checked_withdraws_the_unexplained_findings_of_the_other_units) {
  TestRun run;
  StartWithTwo(run, "AMI", "Processed Throughput");
  ASSERT_EQ(run.Count("QC WHERE EquipID='A2'"), 2);
  run.GoTo("AMI", "A1", Mode::kActv);
  run.Click("cmdQC");
  EXPECT_EQ(run.Findings("EquipID='A2'"), (Found{{"Processed Throughput", kBlankFinding}}));
  EXPECT_EQ(run.Count("QC WHERE EquipID='A1' AND Comments='meter broken'"), 2)
      << "its own explained findings still hold";
}

TEST(Amine, checked_leaves_the_other_units_findings_of_the_other_mode_and_of_other_months) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Select(run.Key());
  run.AddEquipment("AMI", "A2");
  run.Click("cmdQC");
  const auto described = run.Count("QC WHERE EditMode='DESC' AND EquipID='A2'");
  EXPECT_EQ(described, 15);
  run.AddMonth();
  run.GoTo("AMI", "A2", Mode::kActv, 2);
  run.Click("cmdQC");
  run.GoTo("AMI", "A1", Mode::kActv, 1);
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE EditMode='DESC' AND EquipID='A2'"), described);
  EXPECT_EQ(run.Count("QC WHERE EditMode='ACTV' AND EquipID='A2' AND [Month]=2"), 2);
}

TEST(Amine, checked_with_its_structure_leaves_the_unexplained_findings_of_the_last_unit_only) {
  TestRun run;
  run.StartWith("AMI", "A1");
  run.Select(run.Key());
  run.AddEquipment("AMI", "A2");
  run.Select(run.Key());
  run.Click("cmdQC");
  EXPECT_EQ(run.Count("QC WHERE EquipID='A1'"), 0);
  EXPECT_EQ(run.Count("QC WHERE EquipID='A2'"), 15);
}

TEST(Amine, inactive_withdraws_explained_findings_of_all_units_where_a_dehydrator_keeps_them) {
  struct {
    const char *type, *tag;
    int left;
  } const cases[] = {{"AMI", "Processed Throughput", 0}, {"GLY", "Processed Throughput", 1}};
  for (const auto& one : cases) {
    TestRun run;
    StartWithTwo(run, one.type, one.tag);
    run.GoTo(one.type, "A1", Mode::kActv);
    run.Click("cmdEdit");
    run.Check(std::string("chk") + one.type + "_Status", true);
    run.TakeBoxes();
    run.Click("cmdQC");
    EXPECT_EQ(run.TakeBoxes(), Texts{"QC skipped for inactive Equipment"}) << one.type;
    EXPECT_EQ(run.Count("QC WHERE EquipID='A1'"), 0) << one.type;
    EXPECT_EQ(run.Count("QC WHERE EquipID='A2'"), one.left) << one.type;
  }
}

}  // namespace
}  // namespace merlu::test
