// The fields of fugitives, for their tests.
#pragma once

#include <gtest/gtest.h>

#include "rules/bounds.h"

namespace merlu::test::fugitives {

struct Component {
  const char* control;
  const char* tag;
  const char* column;
};

// In the order in which a run looks at them.
constexpr Component kComponents[] = {
    {"txtFUG_Valves", "No. Valves", "VALVES_QTY"},
    {"txtFUG_PumpSeals", "No. Pump Seals", "PUMP_SEALS_QTY"},
    {"txtFUG_Connectors", "No. Connectors", "Connectors_qty"},
    {"txtFUG_Flanges", "No. Flanges", "Flanges_qty"},
    {"txtFUG_OpenEndedLines", "No. Open Ended Lines", "Open_Ended_Lines_qty"},
    {"txtFUG_CentCompWetSeals", "No. Compressor wet seals", "CENTCOMPWET_SEALS_QTY"},
    {"txtFUG_CentCompDrySeals", "No. Compressor dry seals", "CENTCOMPDRY_SEALS_QTY"},
    {"txtFUG_RecipCompSeals", "No. Recip Compressor seals", "RECIPCOMP_SEALS_QTY"},
    {"txtFUG_OtherCompSeals", "No. Other Compressor seals", "OTH_COMP_SEALS_QTY"},
    {"txtFUG_Diaphragms", "No. Diaphragms", "Diaphragms_qty"},
    {"txtFUG_Drains", "No. Drains", "Drains_qty"},
    {"txtFUG_DumpArms", "No. Dump Arms", "Dump_Arms_qty"},
    {"txtFUG_Hatches", "No. Hatches", "Hatches_qty"},
    {"txtFUG_Instruments", "No. Instruments", "Instruments_qty"},
    {"txtFUG_Meters", "No. Meters", "Meters_qty"},
    {"txtFUG_PressureReliefValves", "No. Pressure Relief Valves", "PRES_RELIEF_VALVES_QTY"},
    {"txtFUG_PolishedRods", "No. Polished Rods", "POLISHED_RODS_QTY"},
    {"txtFUG_OtherReliefValves", "No. Other Relief Valves", "OTH_RELIEF_VALVES_QTY"},
};

constexpr const char* kSize = "cmbFUG_FacilitySize";
constexpr const char* kSmall = "Small (<=1000 components)";
constexpr const char* kMedium = "Medium (1000-10,000 components)";
constexpr const char* kLarge = "Large (>10,000 components)";
constexpr const char* kInspected = "cmbFUG_IsLDARInPlace";
constexpr const char* kMonths = "txtFUG_MonthsBetweenInspections";
constexpr const char* kMethod = "cmbFUG_MethodOfInspection";
constexpr const char* kNoMatch = "Facility Size doesn't match inventory";

// A record that no rule finds fault with.
inline Values Sound() {
  Values values = {{"cmbFUG_StreamType", "Gas"},     {kSize, kSmall},
                   {"txtFUG_WeightPercentVOC", "3"}, {"txtFUG_EquipElev", "60"},
                   {"cmbFUG_CountType", "Actual"},   {kInspected, "No"}};
  for (const Component& component : kComponents) values.emplace_back(component.control, "0");
  return values;
}

}  // namespace merlu::test::fugitives
