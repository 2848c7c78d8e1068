// Boiler, heater or burner. It has two parallel sets of fuel fields, one for gas fuels and one for oil
// fuels; the fuel type chooses which set is live. The two sets share their tags, so the set that the fuel
// does not choose is neither checked nor withdrawn: that would wipe the findings of the other.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kFuel = "cmbBOI_FuelType";
constexpr const char* kTotalGas = "txtBOI_TotalFuelUsed";

const std::vector<std::string> kOilFuels = {"Diesel", "Waste Oil"};
const std::vector<std::string> kGasSet = {"txtBOI_FuelH2SContent", "txtBOI_FuelHeatingValue",
                                          "txtBOI_MaxRatedFuelUsage", "txtBOI_FuelUsageRate"};
const std::vector<std::string> kOilSet = {"txtBOI_FuelH2SContentOil", "txtBOI_FuelHeatingValueOil",
                                          "txtBOI_MaxRatedFuelUsageOil"};
const std::vector<std::string> kMonthlyOilSet = {"txtBOI_FuelUsageRateOil", "txtBOI_TotalFuelUsedOil"};

Condition OilFuel() {
  return Reads(kFuel, kOilFuels);
}
Condition GasFuel() {
  return ReadsNone(kFuel, kOilFuels);
}

// What the structure's month counts the fuel in; gas fuels other than natural gas have none.
CheckSpec WithinFuelTotal() {
  return WithinStructureTotal("Value exceeds total fuel used for structure", kFuel,
                              {{"Natural Gas", Total::kFuelGas}, {"Diesel", Total::kFuelDiesel}});
}

// The month's values of the other set are not shown, and the next save writes Null over them.
FieldSpec While(const Condition& fuel, FieldSpec field) {
  field.shown_when = fuel;
  return field;
}

void AddFields(SheetSpec& sheet) {
  sheet.Add(0, "Fuel",
            {
                Coded(DESC, kFuel, "Fuel Type:", "Fuel Type", "FUEL_TYP",
                      {{"Natural Gas", "NG"},
                       {"Process Gas", "PG"},
                       {"Waste Gas", "WG"},
                       {"Waste Oil", "WO"},
                       {"Diesel", "D"}}),
            });
  sheet.Add(1, "Emission controls",
            {
                Coded(DESC, "cmbBOI_EmissionControls", "Emission Controls:", "Emissions Controls", "EMIS_CTRL",
                      {{"None", "N"}, {"Low NOx Burner", "L"}, {"Flu Gas Recirc", "F"}}),
            });
  sheet.Add(0, "Heat input",
            {
                Number(DESC, "txtBOI_MaxRatedHeatInputRate", "Max Rated Heat Input (MMBtu/hr):", "Max Rated Heat Input",
                       "MAX_RATED_HI_RATE", "MMBtu/hr"),
                Number(DESC, "txtBOI_HeatInputRate", "Average Heat Input (MMBtu/hr):", "Average Heat Input",
                       "HEAT_INPUT_RATE", "MMBtu/hr"),
            });
  sheet.Add(0, "Gas fuel",
            {
                Number(DESC, "txtBOI_MaxRatedFuelUsage", "Max Rated Fuel Usage (scf/hr):", "Max Rated Fuel Usage",
                       "MAX_RATED_FUEL_USE", "scf/hr"),
                Number(DESC, "txtBOI_FuelUsageRate", "Average Fuel Usage (scf/hr):", "Average Fuel Usage",
                       "FUEL_USE_RATE", "scf/hr"),
                Number(DESC, "txtBOI_FuelHeatingValue", "Fuel Heating Value (Btu/scf):", "Fuel Heating Value",
                       "FUEL_HEAT_VAL", "Btu/scf"),
                Number(DESC, "txtBOI_FuelH2SContent", "Fuel H2S Content (ppmv):", "Fuel H2S Content",
                       "FUEL_H2S_CONTENT", "ppmv"),
            });
  sheet.Add(0, "Oil fuel",
            {
                Number(DESC, "txtBOI_MaxRatedFuelUsageOil", "Max Rated Fuel Usage (lb/hr):", "Max Rated Fuel Usage",
                       "MAX_RATED_FUEL_USE_OIL", "lb/hr"),
                Number(DESC, "txtBOI_FuelHeatingValueOil", "Fuel Heating Value (Btu/lb):", "Fuel Heating Value",
                       "FUEL_HEAT_VAL_OIL", "Btu/lb"),
                Number(DESC, "txtBOI_FuelH2SContentOil", "Fuel Sulfur Content (% by mass):", "Fuel H2S Content",
                       "FUEL_H2S_CONTENT_OIL", "% by mass"),
            });
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, "txtBOI_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "hrs"),
                While(GasFuel(),
                      Number(ACTV, kTotalGas, "Total Fuel Used (Mscf):", "Total Fuel Used", "TOT_FUEL_USE", "Mscf")),
                While(OilFuel(), Number(ACTV, "txtBOI_FuelUsageRateOil", "Average Fuel Usage Oil (lb/hr):",
                                        "Average Fuel Usage", "FUEL_USE_RATE_OIL", "lb/hr")),
                While(OilFuel(), Number(ACTV, "txtBOI_TotalFuelUsedOil", "Total Fuel Used Oil (lb):", "Total Fuel Used",
                                        "TOT_FUEL_USE_OIL", "lb")),
            });
}

void AddEnablings(SheetSpec& sheet) {
  using At = Enabling::At;
  using Does = Enabling::Does;
  sheet.Add({
      {.at = At::kUnlock, .mode = ACTV, .when = OilFuel(), .fields = kMonthlyOilSet, .does = Does::kEnableAndLock},
      {.at = At::kUnlock, .mode = ACTV, .when = GasFuel(), .fields = {kTotalGas}, .does = Does::kEnableAndLock},
      {.at = At::kClick, .mode = DESC, .lists = {kFuel}, .when = GasFuel(), .fields = kGasSet},
      {.at = At::kClick, .mode = DESC, .lists = {kFuel}, .when = OilFuel(), .fields = kOilSet},
      {.at = At::kClick,
       .mode = DESC,
       .lists = {kFuel},
       .when = OilFuel(),
       .fields = kMonthlyOilSet,
       .keeps_colour = true},
      {.at = At::kClick, .mode = ACTV, .lists = {kFuel}, .when = GasFuel(), .fields = {kTotalGas}},
      // in activity mode a gas fuel turns the oil fields off, and an oil fuel turns nothing on
      {.at = At::kClick, .mode = ACTV, .lists = {kFuel}, .when = OilFuel(), .fields = kMonthlyOilSet, .only_off = true},
  });
}

std::vector<Rule> FieldRules() {
  constexpr Otherwise kStays = Otherwise::kNothing;
  return {
      {1, DESC, "txtBOI_HeatInputRate", EmptyUnlessNumeric()},
      {1, DESC, "txtBOI_MaxRatedHeatInputRate", EmptyUnlessNumeric()},
      {1, DESC, "txtBOI_FuelUsageRate", EmptyUnlessNumeric()},
      {1, DESC, "txtBOI_MaxRatedFuelUsage", EmptyUnlessNumeric()},
      {2, DESC, kFuel, Required()},
      {3, DESC, "txtBOI_MaxRatedFuelUsageOil", RequiredRange(5000, 20000), OilFuel(), kStays},
      {4, DESC, "txtBOI_FuelHeatingValueOil", RequiredRange(0, 25000), OilFuel(), kStays},
      {5, DESC, "txtBOI_FuelH2SContentOil", RequiredRange(0, 5), OilFuel(), kStays},
      {6, ACTV, "txtBOI_FuelUsageRateOil", RequiredRange(0, 20000), OilFuel(), kStays},
      {7, ACTV, "txtBOI_TotalFuelUsedOil", RequiredRange(0, 15000000), OilFuel(), kStays},
      {8, DESC, "txtBOI_MaxRatedFuelUsage", RequiredRange(100, 400000), GasFuel(), kStays},
      {9, DESC, "txtBOI_FuelHeatingValue", RequiredRange(500, 1500), GasFuel(), kStays},
      {10, DESC, "txtBOI_FuelH2SContent", RequiredRange(0, 2000), GasFuel(), kStays},
      {11, DESC, "txtBOI_FuelUsageRate", RequiredRange(0, 400000), GasFuel(), kStays},
      {12, ACTV, kTotalGas, RequiredRange(0, 300000000), GasFuel(), kStays},
      {13, ACTV, kTotalGas, WithinFuelTotal()},
      {14, ACTV, "txtBOI_HrsOperated", RequiredRange(0, 744)},
      {15, DESC, "txtBOI_HeatInputRate", RequiredRange(0, 600)},
      {16, DESC, "txtBOI_MaxRatedHeatInputRate", RequiredRange(0.1, 600)},
      {17, DESC, "txtBOI_HeatInputRate",
       NotOver("txtBOI_MaxRatedHeatInputRate", "Average Heat Input exceeds Max Rated Heat Input")},
      {18, DESC, "txtBOI_FuelUsageRate",
       NotOver("txtBOI_MaxRatedFuelUsage", "Average Fuel Usage exceeds Max Rated Fuel Usage")},
  };
}

SheetSpec Boiler() {
  SheetSpec sheet;
  sheet.type = "BOI";
  sheet.number = 2;
  sheet.letters = "BOI";
  sheet.title = "Boiler/Heater/Burner";
  sheet.edit_title = "Boiler/Heater/Burner - EDIT DATA";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Information", "Exhaust System", "Control Equipment", "QC Results"};
  sheet.focus_actv = "txtBOI_HrsOperated";
  sheet.focus_desc = "txtBOI_HeatInputRate";
  AddFields(sheet);
  AddEnablings(sheet);

  const Exhaust exhaust{.letters = "BOI",
                        .page = 1,
                        .temperature_control = "txtBOI_ExhaustOutletT",
                        .height = {-30, 100},
                        .diameter = {2, 42},
                        .velocity = {0, 1100},
                        .temperature = {300, 1100}};
  AddExhaust(sheet, exhaust);
  std::vector<Rule> exhaust_rules = ExhaustRules(exhaust);
  exhaust_rules.push_back({6, DESC, "cmbBOI_EmissionControls", RequiredMarked()});
  sheet.rules = {{"CheckBOIFields", FieldRules()}, {"CheckBOIExhaust", exhaust_rules}};
  AddOtherControl(sheet, {.letters = "BOI",
                          .page = 2,
                          .device_tag = "Other Control Device",
                          .description_tag = "Other Control Device Descrip.",
                          .description_label = "lblBOI_OtherConstrolDesc"});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_BOI() {
  static const SheetSpec sheet = Boiler();
  return sheet;
}

}  // namespace merlu
