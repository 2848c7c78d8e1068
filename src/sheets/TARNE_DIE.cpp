// Diesel or gasoline engine.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kFuel = "cmbDIE_FuelType";
constexpr const char* kTotal = "txtDIE_TotalFuelUsed";

Condition Gasoline() {
  return Reads(kFuel, {"Gasoline"});
}
Condition OtherFuel() {
  return ReadsNone(kFuel, {"Gasoline"});
}

// What the structure's month counts the fuel in; waste oil has none.
CheckSpec WithinFuelTotal() {
  return WithinStructureTotal("Value exceeds total fuel used for structure", kFuel,
                              {{"Gasoline", Total::kFuelGasoline}, {"Diesel", Total::kFuelDiesel}});
}

void AddFields(SheetSpec& sheet) {
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, "txtDIE_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "hrs"),
                Number(ACTV, kTotal, "Total Fuel Used (gal):", "Total Fuel Used", "TOT_FUEL_USE", "gal"),
            });
  sheet.Add(0, "Engine",
            {
                Coded(DESC, kFuel, "", "Fuel Type", "FUEL_TYP",
                      {{"Diesel", "D"}, {"Gasoline", "G"}, {"Waste Oil/Solvent", "W"}}),
                Number(DESC, "txtDIE_MaxHP", "Max Rated Horsepower (hp):", "Max Rated Horsepower", "MAX_HP", "hp"),
                Number(DESC, "txtDIE_OperatingHP", "Operating Horsepower (hp):", "Operating Horsepower", "OP_HP", "hp"),
            });
  sheet.Add(0, "Fuel",
            {
                Number(DESC, "txtDIE_MaxRatedFuelUsage", "Max Rated Fuel Usage (Btu/hp-hr):", "Max Rated Fuel Usage",
                       "MAX_RATED_FUEL_USE", "Btu/hp-hr"),
                Number(DESC, "txtDIE_FuelUsageRate", "Average Fuel Usage (Btu/hp-hr):", "Average Fuel Usage",
                       "FUEL_USE_RATE", "Btu/hp-hr"),
                Number(DESC, "txtDIE_FuelHeatingValue", "Fuel Heating Value (Btu/lb):", "Fuel Heating Value",
                       "FUEL_HEAT_VAL", "Btu/lb"),
                Number(DESC, "txtDIE_FuelSulfurContent", "Fuel Sulfur Content (% by mass):", "Fuel Sulfur Content",
                       "FUEL_SULFUR_CONTENT", "% by mass"),
            });
}

std::vector<Rule> FieldRules() {
  constexpr Otherwise kStays = Otherwise::kNothing;  // the other fuel's row judges the field
  return {
      {1, DESC, "txtDIE_OperatingHP", EmptyUnlessNumeric()},
      {1, DESC, "txtDIE_MaxHP", EmptyUnlessNumeric()},
      {1, DESC, "txtDIE_FuelUsageRate", EmptyUnlessNumeric()},
      {1, DESC, "txtDIE_MaxRatedFuelUsage", EmptyUnlessNumeric()},
      {2, DESC, "txtDIE_OperatingHP", RequiredRange(5, 3000)},
      {3, DESC, "txtDIE_FuelUsageRate", RequiredRange(0, 8500)},
      {4, DESC, kFuel, Required()},
      {5, DESC, "txtDIE_MaxHP", RequiredRange(10, 3000)},
      {6, DESC, "txtDIE_FuelHeatingValue", RequiredRange(19000, 22000), Gasoline(), kStays},
      {6, DESC, "txtDIE_FuelHeatingValue", RequiredRange(18000, 21000), OtherFuel(), kStays},
      {7, DESC, "txtDIE_FuelSulfurContent", RequiredRange(0, 5)},
      {8, DESC, "txtDIE_MaxRatedFuelUsage", RequiredRange(0, 20000)},
      {9, DESC, "txtDIE_OperatingHP", NotOver("txtDIE_MaxHP", "Operating Horsepower exceeds Max Rated Horsepower")},
      {10, DESC, "txtDIE_FuelUsageRate",
       NotOver("txtDIE_MaxRatedFuelUsage", "Average Fuel Usage exceeds Max Rated Fuel Usage")},
      {11, ACTV, "txtDIE_HrsOperated", RequiredRange(0, 744)},
      {12, ACTV, kTotal, RequiredRange(0, 10000), Gasoline(), kStays},
      {12, ACTV, kTotal, RequiredRange(0, 350000), OtherFuel(), kStays},
      {13, ACTV, kTotal, WithinFuelTotal()},
  };
}

SheetSpec Engine() {
  SheetSpec sheet;
  sheet.type = "DIE";
  sheet.number = 3;
  sheet.letters = "DIE";
  sheet.title = "Diesel or Gasoline Engine";
  sheet.edit_title = "Diesel or Gasoline Engine - EDIT DATA";
  sheet.cleared_title_actv = "Diesel or Gasoline Engine - ACTIVITY EDIT MODE";
  sheet.cleared_title_desc = "Diesel or Gasoline Engine - DESCRIPTION EDIT MODE";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Information", "Exhaust System", "Control Equipment", "QC Results"};
  sheet.focus_actv = kTotal;
  sheet.focus_desc = "txtDIE_OperatingHP";
  sheet.month_row_first = true;
  AddFields(sheet);
  const Exhaust exhaust{.letters = "DIE",
                        .temperature_control = "txtDIE_ExhaustOutletExitT",
                        .height = {-30, 300},
                        .diameter = {1, 48},
                        .velocity = {0, 1100},
                        .temperature = {300, 1100}};
  AddExhaust(sheet, exhaust);
  sheet.rules = {{"CheckDIEFields", FieldRules()}, {"CheckDIEExhaust", ExhaustRules(exhaust)}};
  AddOtherControl(sheet, {.letters = "DIE", .page = 2});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_DIE() {
  static const SheetSpec sheet = Engine();
  return sheet;
}

}  // namespace merlu
