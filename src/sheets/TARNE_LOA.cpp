// Loading operation.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr In BOTH = In::kBoth;
constexpr const char* kDestination = "cmbLOA_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbLOA_ControlTechnology";
constexpr const char* kCondenser = "Vapor Recovery and/or Condenser (VR/C)";

void AddFields(SheetSpec& sheet) {
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, "txtLOA_VolLoaded", "Volume Loaded (bbl):", "Volume Loaded", "VOL_LOADED", "bbl"),
                Number(ACTV, "txtLOA_TankBulkLiqT", "Bulk Liquid Temperature (°F):", "Bulk Liquid Temperature",
                       "TANK_BULK_LIQ_TEMP", "°F"),
            });
  sheet.Add(0, "Loading",
            {
                Number(DESC, "txtLOA_EquipElev", "Average Elevation (ft above msl):", "Average Elevation", "EQUIP_ELEV",
                       "ft above msl"),
                Coded(DESC, "cmbLOA_TankPaintColor", "Storage Tank Paint Color:", "Storage Tank Paint Color",
                      "TANK_PAINT_COLOR",
                      {{"Aluminum/Specular", "AS"},
                       {"Aluminum/Diffuse", "AD"},
                       {"Grey/Light", "GL"},
                       {"Grey/Med", "GM"},
                       {"Red/Primer", "RP"},
                       {"White/NA", "WN"}}),
                Coded(DESC, "cmbLOA_TankPaintCondition", "Storage Tank Paint Condition:",
                      "Storage Tank Paint Condition", "TANK_PAINT_COND", {{"Good", "G"}, {"Poor", "P"}}),
            });
  sheet.Add(0, "Product",
            {
                Number(DESC, "txtLOA_ReidVP", "Product Reid Vapor Pressure (psia):", "Product Reid Vapor Pressure",
                       "REID_VP", "psia"),
                Number(DESC, "txtLOA_TankVaporWeightPercentVOC", "Avg. Percent by Weight of VOCs in Tank Vapor (%):",
                       "Avg. % by Weight VOCs", "TANK_VAPWGT_PVOC", "%"),
                Number(DESC, "txtLOA_TankVOCMolWeight", "Avg. Molecular Weight of VOCs in Tank Vapor (lb/lb-mol):",
                       "Avg. Molecular Weight of VOCs", "TANK_VOC_MOLEWGT", "lb/lb-mol"),
            });
}

// The rules of the description run in both modes; a finding belongs to the mode of its run.
std::vector<Rule> FieldRules() {
  return {
      {1, ACTV, "txtLOA_VolLoaded",
       RequiredRangeWithinTotal(0, 5000000, Total::kThroughputOil, "Value exceeds crude oil throughput for structure")},
      {2, BOTH, "txtLOA_EquipElev", RequiredRange(10, 350)},
      {3, BOTH, "cmbLOA_TankPaintColor", Required(Marks::kEither)},
      {4, BOTH, "cmbLOA_TankPaintCondition", Required(Marks::kEither)},
      {5, ACTV, "txtLOA_TankBulkLiqT", RequiredRange(0, 120)},
      {6, BOTH, "txtLOA_ReidVP", RequiredRange(0.1, 20)},
      {7, BOTH, "txtLOA_TankVaporWeightPercentVOC", RequiredRange(0, 100)},
      {8, BOTH, "txtLOA_TankVOCMolWeight", RequiredRange(16, 254)},
  };
}

// The destination itself is not required, and a missing remote one changes nothing.
std::vector<Rule> VentilationRules() {
  const Condition local = Local(kDestination), flared = FlaredLocally(kDestination);
  const Condition condenser = Reads(kTechnology, {kCondenser});
  return {
      {1, DESC, "cmbLOA_VentedToID", RequiredRemoteID(kDestination, Fallback::kNone), Remote(kDestination)},
      {2, DESC, kDestination, Required(Marks::kEither), local},
      {3, DESC, "txtLOA_ExhaustOutletHgt", RequiredRange(-30, 100), local},
      {4, DESC, "txtLOA_ExhaustOutletInnerDiam", RequiredRange(2, 24), local},
      {5, DESC, "txtLOA_ExhaustOutletExitVel", RequiredRange(5, 1100), local},
      {6, DESC, "txtLOA_ExhaustOutletExitT", RequiredRange(70, 2000), VentedLocally(kDestination)},
      {7, DESC, "txtLOA_ExhaustOutletAngle", RequiredRange(0, 180), local},
      {8, DESC, "txtLOA_FlareFeedRate", RequiredRange(0, 20000), flared},
      {9, DESC, "txtLOA_FlareCombustionT", RequiredRange(1400, 2000), flared},
      {10, DESC, "txtLOA_FlareEfficiency", RequiredRange(50, 99.9), flared},
      {11, DESC, kTechnology, Required(Marks::kEither)},
      {12, DESC, "txtLOA_CondenserT", RequiredRange(32, 212), condenser},
      {13, DESC, "txtLOA_CondenserP", RequiredRange(0.5, 1000), condenser},
  };
}

SheetSpec Loading() {
  SheetSpec sheet;
  sheet.type = "LOA";
  sheet.number = 8;
  sheet.letters = "LOA";
  sheet.title = "Loading Operations";
  sheet.edit_title = "Loading Operations - EDIT DATA";
  sheet.pages = {"General Information", "Ventilation System", "Control Equipment", "QC Results"};
  sheet.focus_actv = "txtLOA_VolLoaded";
  sheet.focus_desc = "txtLOA_EquipElev";
  AddFields(sheet);
  AddRouting(sheet, {.letters = "LOA",
                     .destination_tag = "Gases Vented/Flared?",
                     .flare_tags = {"Flare Feed Rate", "Flare Combustion Temperature", "Flare Combustion Efficiency"},
                     .unlocks_remote = true});
  AddControlTechnology(
      sheet,
      {.letters = "LOA", .page = 2, .items = {{kCondenser, "VR/C"}, {"None", "NONE"}}, .with_condenser = {kCondenser}});
  sheet.rules = {{"CheckLOAFields", FieldRules()}, {"CheckLOAVentilation", VentilationRules()}};
  AddOtherControl(sheet, {.letters = "LOA",
                          .page = 2,
                          .description_tag = "Other Control Equipment Descript.",
                          .efficiencies = {"VOC"},
                          .marks_passes = true});
  ApplyTogether(sheet, {kDestination, kTechnology, "cmbLOA_OtherControlDevice"});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_LOA() {
  static const SheetSpec sheet = Loading();
  return sheet;
}

}  // namespace merlu
