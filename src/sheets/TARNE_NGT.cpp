// Natural gas, diesel or dual-fuel turbine. The gas set of fields is required, the diesel set is checked
// only where it is filled in.
#include "base/numbers.h"
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kEmissionControls = "cmbNGT_ExhaustEmissionControls";
constexpr const char* kOverGas = "Value exceeds N.G. usage for structure";

// As NotOver, but a blank limit counts as 0 and a blank field withdraws the finding.
CheckSpec DieselNotOver(const std::string& other, const std::string& text) {
  const auto check = [text](Judging& j) {
    const bool failed = j.MayFail() && WholeNumber(j.Text()) > WholeNumber(j.view().Text(j.Other(0)));
    j.Say(failed, text);
    if (failed) j.Mark(Mark::kFlag);
  };
  return FailsWhen(IsFilledIn(kTheField), Own("DieselNotOver " + other, text, {other}, check));
}

void AddGasFields(SheetSpec& sheet) {
  sheet.Add(
      0, "Monthly activity",
      {
          Number(ACTV, "txtNGT_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "hrs"),
          Number(ACTV, "txtNGT_TotalFuelUsed", "Total Fuel Used (Mscf):", "Total Fuel Used", "TOT_FUEL_USE", "Mscf"),
      });
  sheet.Add(0, "Turbine",
            {
                Text(DESC, "txtNGT_Mfr", "Manufacturer:", "Manufacturer", "MFG"),
                Text(DESC, "txtNGT_Model", "Model No.:", "Model No.", "model"),
                Coded(DESC, "cmbNGT_Purpose", "", "Engine Purpose", "Purpose",
                      {{"Electricity Generation", "EG"}, {"Product Pressurization", "PP"}, {"Other", "OT"}}),
            });
  sheet.Add(0, "Gas fuel",
            {
                Number(DESC, "txtNGT_MaxHP", "Max Rated Horsepower (hp):", "Max Rated Horsepower", "MAX_HP", "hp"),
                Number(DESC, "txtNGT_OperatingHP", "Operating Horsepower (hp):", "Opeating Horsepower", "OP_HP", "hp"),
                Number(DESC, "txtNGT_MaxRatedFuelUsage", "Max Rated Fuel Usage:", "Max Rated Fuel Usage",
                       "MAX_RATED_FUEL_USE"),
                Number(DESC, "txtNGT_FuelUsageRate", "Average Fuel Usage:", "Average Fuel Usage", "FUEL_USE_RATE"),
                Number(DESC, "txtNGT_FuelHeatingValue", "Fuel Heating Value (Btu/scf):", "Fuel Heating Value",
                       "FUEL_HEAT_VAL", "Btu/scf"),
                Number(DESC, "txtNGT_FuelH2SContent", "Fuel H2S Content (ppmv):", "Fuel H2S Content",
                       "FUEL_H2S_CONTENT", "ppmv"),
            });
  sheet.Add(1, "Emission controls",
            {
                OpenItemText(DESC, kEmissionControls, "", "Exhaust Emission Controls", "EMISSION_CONTROLS",
                             {"None", "Selective Catalytic Reduction (SCR)"}),
            });
}

void AddDieselFields(SheetSpec& sheet) {
  sheet.Add(0, "Monthly activity, diesel",
            {
                Number(ACTV, "txtNGT_HrsOperated_Diesel", "Hours Operated (hrs):", "Hours Operated (Diesel)",
                       "OP_HR_DIESEL", "hrs"),
                Number(ACTV, "txtNGT_TotalFuelUsed_Diesel", "Total Fuel Used (gal):", "Diesel Total Fuel Used (Diesel)",
                       "TOT_FUEL_USE_DIESEL", "gal"),
            });
  sheet.Add(0, "Diesel fuel",
            {
                Number(DESC, "txtNGT_MaxHP_Diesel", "", "Max Rated Horsepower (Diesel)", "MAX_HP_DIESEL", "hp"),
                Number(DESC, "txtNGT_OperatingHP_Diesel", "Operating Horsepower (hp):", "Operating Horsepower (Diesel)",
                       "OP_HP_DIESEL", "hp"),
                Number(DESC, "txtNGT_MaxRatedFuelUsage_Diesel",
                       "Max Rated Fuel Usage:", "Max Rated Fuel Usage (Diesel)", "MAX_RATED_FUEL_USE_DIESEL"),
                Number(DESC, "txtNGT_FuelUsageRate_Diesel", "", "Average Fuel Usage (Diesel)", "AVG_FUEL_USAGE_DIESEL"),
                Number(DESC, "txtNGT_FuelHeatingValue_Diesel",
                       "Fuel Heating Value (Btu/lb):", "Fuel Heating Value (Diesel)", "FUEL_HEAT_VAL_DIESEL", "Btu/lb"),
                Number(DESC, "txtNGT_FuelSulfurContent_Diesel", "Fuel Sulfur Content (% by mass):",
                       "Fuel Sulfur Content (Diesel)", "FUEL_SULFUR_CONTENT_DIESEL", "% by mass"),
            });
}

std::vector<Rule> FieldRules() {
  std::vector<Rule> rules = {
      {1, ACTV, "txtNGT_HrsOperated", RequiredRange(0, 744)},
      {2, ACTV, "txtNGT_TotalFuelUsed", RequiredRangeWithinTotal(0, 500000, Total::kFuelGas, kOverGas)},
      {3, ACTV, "txtNGT_HrsOperated_Diesel", RequiredRangeIfFilled(0, 744)},
      // gallons of diesel are held against the structure's natural gas
      {4, ACTV, "txtNGT_TotalFuelUsed_Diesel", RangeWithinTotalIfFilled(0, 2400000, Total::kFuelGas, kOverGas)},
  };
  for (const char* set : {"", "_Diesel"})
    for (const char* field : {"OperatingHP", "MaxHP", "FuelUsageRate", "MaxRatedFuelUsage"})
      rules.push_back({5, DESC, std::string("txtNGT_") + field + set, EmptyUnlessNumeric()});
  const std::vector<Rule> description = {
      {6, DESC, "txtNGT_OperatingHP", RequiredRange(0, 30000)},
      {7, DESC, "txtNGT_FuelUsageRate", RequiredRange(0, 11000)},
      {8, DESC, "txtNGT_MaxHP", RequiredRange(500, 30000)},
      {9, DESC, "txtNGT_FuelHeatingValue", RequiredRange(500, 1500)},
      {10, DESC, "txtNGT_FuelH2SContent", RequiredRange(0, 10000)},
      {11, DESC, "cmbNGT_Purpose", Required()},
      {12, DESC, "txtNGT_MaxRatedFuelUsage", RequiredRange(5000, 15000)},
      {13, DESC, "txtNGT_OperatingHP_Diesel", RequiredRangeIfFilled(0, 30000)},
      {14, DESC, "txtNGT_FuelUsageRate_Diesel", RequiredRangeIfFilled(0, 11000)},
      {15, DESC, "txtNGT_MaxHP_Diesel", RequiredRangeIfFilled(500, 30000)},
      {16, DESC, "txtNGT_FuelHeatingValue_Diesel", RequiredRangeIfFilled(500, 1500)},
      {17, DESC, "txtNGT_FuelSulfurContent_Diesel", RequiredRangeIfFilled(0, 10000)},
      {18, DESC, "txtNGT_MaxRatedFuelUsage_Diesel", RequiredRangeIfFilled(5000, 15000)},
      {19, DESC, "txtNGT_OperatingHP", NotOver("txtNGT_MaxHP", "Operating Horsepower exceeds Max Rated Horsepower")},
      {20, DESC, "txtNGT_FuelUsageRate",
       NotOver("txtNGT_MaxRatedFuelUsage", "Average Fuel Usage exceeds Max Rated Fuel Usage")},
      {21, DESC, "txtNGT_OperatingHP_Diesel",
       DieselNotOver("txtNGT_MaxHP_Diesel", "Diesel Operating Horsepower exceeds Max Rated Horsepower")},
      {22, DESC, "txtNGT_FuelUsageRate_Diesel",
       DieselNotOver("txtNGT_MaxRatedFuelUsage_Diesel", "Diesel Average Fuel Usage exceeds Max Rated Fuel Usage")},
  };
  rules.insert(rules.end(), description.begin(), description.end());
  return rules;
}

SheetSpec Turbine() {
  SheetSpec sheet;
  sheet.type = "NGT";
  sheet.number = 10;
  sheet.letters = "NGT";
  sheet.title = "Natural Gas, Diesel, or Dual-Fuel Turbine";
  sheet.edit_title = sheet.title + " - EDIT DATA";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Information", "Exhaust System", "Control Equipment", "QC Results"};
  sheet.focus_actv = "txtNGT_HrsOperated";
  sheet.focus_desc = "txtNGT_Mfr";
  AddGasFields(sheet);
  AddDieselFields(sheet);
  const Exhaust exhaust{.letters = "NGT",
                        .temperature_control = "txtNGT_ExhaustOutletExitT",
                        .height = {-30, 300},
                        .diameter = {1, 96},
                        .velocity = {0, 1100},
                        .temperature = {350, 1500}};
  AddExhaust(sheet, exhaust);
  std::vector<Rule> exhaust_rules = ExhaustRules(exhaust);
  exhaust_rules.push_back({6, DESC, kEmissionControls, Required()});
  sheet.rules = {{"CheckNGTFields", FieldRules()}, {"CheckNGTExhaust", exhaust_rules}};
  AddOtherControl(sheet, {.letters = "NGT", .page = 2});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_NGT() {
  static const SheetSpec sheet = Turbine();
  return sheet;
}

}  // namespace merlu
