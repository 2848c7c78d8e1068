// Losses from flashing: the pressures that a vessel may have depend on its type.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kVessel = "cmbLOS_VesselType";
constexpr const char* kDestination = "cmbLOS_GasesVentOrFlare";

struct PressureLimit {
  const char* vessel;
  double high;  // psig
};
constexpr PressureLimit kLimits[] = {
    {"Separator", 1500}, {"Heater Treater", 100}, {"Surge Tank", 40}, {"Storage Tank", 0.25}, {"Other", 1500}};

void AddFields(SheetSpec& sheet) {
  sheet.Add(0, "Vessel",
            {
                ItemText(DESC, kVessel, "Type of Vessel:", "Type of Vessel", "VESSEL_TYP",
                         {"Separator", "Heater Treater", "Surge Tank", "Storage Tank", "Other"}),
                Number(DESC, "txtLOS_APISpGrav", "API gravity of stored oil:", "API gravity", "API_SPGRAV"),
            });
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, "txtLOS_Throughput", "Oil/Condensate Throughput (bbls):", "Oil/Condensate Throughput",
                       "THRUPUT", "bbls"),
                Number(ACTV, "txtLOS_SCFperBarrel", "SCF of flash per bbl of oil:", "SCF per bbl Flash", "SCF_PER_BBL"),
                Number(ACTV, "txtLOS_DSOpPressure", "Operating Pressure of Vessel  (psig):", "Op pressure of Vessel",
                       "DS_OP_PRES", "psig"),
                Number(ACTV, "txtLOS_DSOpTemperature", "Operating Temperature of Vessel (F):", "Op temp of Vessel",
                       "DS_OP_TEMP", "F"),
                Number(ACTV, "txtLOS_USOpPressure",
                       "Op Press upstream of Vessel  (psig):", "Op Press upstream of Vessel", "US_OP_PRES", "psig"),
                Number(ACTV, "txtLOS_USOpTemperature", "Op Temp upstream of Vessel (F):", "Op Temp upstream of Vessel",
                       "US_OP_TEMP", "F"),
            });
}

std::vector<Rule> FieldRules() {
  std::vector<Rule> rules = {
      {1, DESC, kVessel, Required(Marks::kEither)},
      {2, DESC, "txtLOS_APISpGrav", RequiredRange(1, 75)},
      {3, ACTV, "txtLOS_Throughput", RequiredRange(0, 30000)},
      {4, ACTV, "txtLOS_DSOpTemperature", RequiredRange(32, 250)},
      {5, ACTV, "txtLOS_USOpTemperature", RequiredRange(32, 250)},
  };
  // one row a vessel; without a vessel type neither pressure is checked
  int order = 6;
  for (const char* pressure : {"txtLOS_DSOpPressure", "txtLOS_USOpPressure"}) {
    for (const PressureLimit& limit : kLimits)
      rules.push_back(
          {order, ACTV, pressure, RequiredRange(0, limit.high), Reads(kVessel, {limit.vessel}), Otherwise::kNothing});
    ++order;
  }
  return rules;
}

std::vector<Rule> VentilationRules() {
  constexpr Otherwise kStays = Otherwise::kNothing;
  const Condition local = Local(kDestination);
  return {
      {1, DESC, kDestination, RequiredMarked()},
      {2, DESC, "cmbLOS_VentedToID", RequiredRemoteID(kDestination, Fallback::kTextAndIndex), Remote(kDestination)},
      {3, DESC, "txtLOS_ExhaustOutletHgt", RequiredRange(30, 100), local, kStays},
      {4, DESC, "txtLOS_ExhaustOutletInnerDiam", RequiredRange(2, 36), local, kStays},
      {5, DESC, "txtLOS_ExhaustOutletExitVel", RequiredRange(0, 1100), local, kStays},
      {6, DESC, "txtLOS_ExhaustOutletExitT", RequiredRange(32, 200), local, kStays},
      {7, DESC, "txtLOS_ExhaustOutletAngle", RequiredRange(0, 180), local, kStays},
  };
}

SheetSpec Losses() {
  SheetSpec sheet;
  sheet.type = "LOS";
  sheet.number = 13;
  sheet.letters = "LOS";
  sheet.title = "Losses from Flashing";
  sheet.edit_title = "Losses from Flashing - EDIT DATA";
  sheet.pages = {"General Information", "Ventilation System", "QC Results"};
  sheet.comments_caption = "Comments;";
  sheet.focus_actv = "txtLOS_Throughput";
  sheet.focus_desc = kVessel;
  sheet.not_found_on_load = "Equipment record not found in LoadLOSFrame";
  sheet.not_found_on_save = "Equipment record not found in SaveLOSFrame";
  AddFields(sheet);
  AddRouting(sheet, {.letters = "LOS",
                     .kind = Routing::Kind::kByLocked,
                     .to_system = true,
                     .has_flare = false,
                     .outlet_tags = {"Outlet Height", "Outlet Diameter", "Exhaust Exit Velocity",
                                     "Exhaust Exit Temperature", "Exhaust Outlet Orientation"}});
  sheet.rules = {{"CheckLOSFields", FieldRules()}, {"CheckLOSVentilation", VentilationRules()}};
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_LOS() {
  static const SheetSpec sheet = Losses();
  return sheet;
}

}  // namespace merlu
