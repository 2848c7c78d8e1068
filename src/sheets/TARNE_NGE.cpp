// Natural gas engine.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kEmissionControls = "cmbNGE_ExhaustEmissionControls";

void AddFields(SheetSpec& sheet) {
  sheet.Add(
      0, "Monthly activity",
      {
          Number(ACTV, "txtNGE_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "hrs"),
          Number(ACTV, "txtNGE_TotalFuelUsed", "Total Fuel Used (Mscf):", "Total Fuel Used", "TOT_FUEL_USE", "Mscf"),
      });
  sheet.Add(0, "Engine",
            {
                Text(DESC, "txtNGE_Mfr", "Manufacturer:", "Manufacturer", "MFG"),
                Text(DESC, "txtNGE_Model", "Model No.:", "Model No.", "model"),
                // both lists carry the same tag
                Coded(DESC, "cmbNGE_EngineStrokeCycle", "", "Engine Burn", "ENGINE_STROKE_CYCLE",
                      {{"2-Cycle", "2"}, {"4-Cycle", "4"}}),
                Coded(DESC, "cmbNGE_EngineBurnType", "", "Engine Burn", "ENGINE_BURN_TYP",
                      {{"Lean", "L"}, {"Clean", "C"}, {"Rich", "R"}}),
                Number(DESC, "txtNGE_MaxHP", "Max Rated Horsepower (hp):", "Max Rated Horsepower", "MAX_HP", "hp"),
                Number(DESC, "txtNGE_OperatingHP", "Operating Horsepower (hp):", "Operating Horsepower", "OP_HP", "hp"),
            });
  sheet.Add(0, "Fuel",
            {
                Number(DESC, "txtNGE_MaxRatedFuelUsage", "Max Rated Fuel Usage (Btu/hp-hr):", "Max Rated Fuel Usage",
                       "MAX_RATED_FUEL_USE", "Btu/hp-hr"),
                Number(DESC, "txtNGE_FuelUsageRate", "Average Fuel Usage (Btu/hp-hr):", "Average Fuel Usage",
                       "FUEL_USE_RATE", "Btu/hp-hr"),
                Number(DESC, "txtNGE_FuelHeatingValue", "Fuel Heating Value (Btu/scf):", "Fuel Heating Value",
                       "FUEL_HEAT_VAL", "Btu/scf"),
                Number(DESC, "txtNGE_FuelH2SContent", "Fuel H2S Content (ppmv):", "Fuel H2S Content",
                       "FUEL_H2S_CONTENT", "ppmv"),
            });
  sheet.Add(1, "Emission controls",
            {
                OpenItemText(DESC, kEmissionControls, "", "Exhaust Emission Controls", "EMISSION_CONTROLS",
                             {"None", "Selective Catalytic Reduction (SCR)"}),
            });
}

std::vector<Rule> FieldRules() {
  return {
      {1, ACTV, "txtNGE_HrsOperated", RequiredRange(0, 744)},
      {2, DESC, "txtNGE_OperatingHP", EmptyUnlessNumeric()},
      {2, DESC, "txtNGE_MaxHP", EmptyUnlessNumeric()},
      {2, DESC, "txtNGE_FuelUsageRate", EmptyUnlessNumeric()},
      {2, DESC, "txtNGE_MaxRatedFuelUsage", EmptyUnlessNumeric()},
      {3, DESC, "txtNGE_OperatingHP", RequiredRange(0, 10000)},
      {4, DESC, "txtNGE_FuelUsageRate", RequiredRange(0, 8000)},
      {5, DESC, "txtNGE_MaxHP", RequiredRange(10, 10000)},
      {6, DESC, "txtNGE_FuelHeatingValue", RequiredRange(500, 1500)},
      {7, DESC, "txtNGE_FuelH2SContent", RequiredRange(0, 10000)},
      {8, DESC, "cmbNGE_EngineStrokeCycle", Required()},
      {9, DESC, "cmbNGE_EngineBurnType", Required()},
      {10, DESC, "txtNGE_MaxRatedFuelUsage", RequiredRange(3000, 10000)},
      {11, DESC, "txtNGE_OperatingHP", NotOver("txtNGE_MaxHP", "Operating Horsepower exceeds Max Rated Horsepower")},
      {12, DESC, "txtNGE_FuelUsageRate",
       NotOver("txtNGE_MaxRatedFuelUsage", "Average Fuel Usage exceeds Max Rated Fuel Usage")},
      {13, ACTV, "txtNGE_TotalFuelUsed",
       RequiredRangeWithinTotal(0, 120000, Total::kFuelGas, "Value exceeds N.G. usage for structure")},
  };
}

SheetSpec Engine() {
  SheetSpec sheet;
  sheet.type = "NGE";
  sheet.number = 9;
  sheet.letters = "NGE";
  sheet.title = "Natural Gas Engine";
  sheet.edit_title = "Natural Gas Engine - EDIT DATA";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Information", "Exhaust System", "Control Equipment", "QC Results"};
  sheet.focus_actv = "txtNGE_HrsOperated";
  sheet.focus_desc = "txtNGE_OperatingHP";
  AddFields(sheet);
  const Exhaust exhaust{.letters = "NGE",
                        .temperature_control = "txtNGE_ExhaustOutletExitT",
                        .height = {-30, 300},
                        .diameter = {1, 48},
                        .velocity = {0, 1100},
                        .temperature = {250, 1100},
                        .orientation_has_rule = false};
  AddExhaust(sheet, exhaust);
  std::vector<Rule> exhaust_rules = ExhaustRules(exhaust);
  exhaust_rules.push_back({5, DESC, kEmissionControls, Required()});
  sheet.rules = {{"CheckNGEFields", FieldRules()}, {"CheckNGEExhaust", exhaust_rules}};
  AddOtherControl(sheet, {.letters = "NGE", .page = 2});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_NGE() {
  static const SheetSpec sheet = Engine();
  return sheet;
}

}  // namespace merlu
