// Storage tank. Shape and orientation decide which of the five dimensions exist: on the screen, in the rules and in the
// stored row, each with its own conditions.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kShape = "cmbSTO_TankShape";
constexpr const char* kOrientation = "cmbSTO_TankOrientation";
constexpr const char* kDiameter = "txtSTO_TankShellDiam";
constexpr const char* kHeight = "txtSTO_TankShellHgt";
constexpr const char* kLength = "txtSTO_TankShellLength";
constexpr const char* kWidth1 = "txtSTO_TankShellWidth1";
constexpr const char* kWidth2 = "txtSTO_TankShellWidth2";
constexpr const char* kFixedRoof = "cmbSTO_FixedRoof";
constexpr const char* kLiquidHeight = "txtSTO_TankAvgLiquidHgt";
constexpr const char* kDestination = "cmbSTO_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbSTO_ControlTechnology";
constexpr const char* kCondenser = "Vapor Recovery and/or Condenser (VR/C)";

Condition Cylindrical() {
  return Reads(kShape, {"Cylindrical"});
}
Condition Rectangular() {
  return Reads(kShape, {"Rectangular"});
}
Condition NotCylindrical() {
  return ReadsNone(kShape, {"Cylindrical"});
}
Condition Vertical() {
  return Reads(kOrientation, {"Vertical"});
}
Condition Horizontal() {
  return Reads(kOrientation, {"Horizontal"});
}
Condition Oriented() {
  return Reads(kOrientation, {"Vertical", "Horizontal"});
}
Condition HasHeight() {
  return Either(Both(Vertical(), Cylindrical()), Rectangular());
}

FieldSpec Dimension(const char* control, const char* caption, const char* tag, const char* column,
                    const Condition& kept_when) {
  FieldSpec field = Number(DESC, control, caption, tag, column, "ft");
  field.kept_when = kept_when;
  return field;
}

void AddMonth(SheetSpec& sheet) {
  sheet.Add(
      0, "Monthly activity",
      {
          Number(ACTV, "txtSTO_Throughput", "Product Throughput (bbl):", "Product Throughput", "THRUPUT", "bbl"),
          Number(ACTV, kLiquidHeight, "Average Liquid Height (ft):", "Avg Liquid Height", "TANK_AVG_LIQ_HGT", "ft"),
          Number(ACTV, "txtSTO_TankBulkLiqT", "Bulk Liquid Temperature (°F):", "Bulk Liquid Temp", "TANK_BULK_LIQ_TEMP",
                 "°F"),
          Number(ACTV, "txtSTO_APIGravity", "API Gravity (°API):", "API Gravity", "API_GRAV", "°API"),
          Number(ACTV, "txtSTO_ReidVP", "Reid Vapor Pressure (psia):", "Reid Vapor Pressure", "REID_VP", "psia"),
          Number(ACTV, "txtSTO_TankVaporWeightPercentVOC", "Average Percent by Weight of VOCs in Tank Vapor (%):",
                 "Avg Percent by Wt VOCs", "TANK_VAPWGT_PVOC", "%"),
          Number(ACTV, "txtSTO_TankVOCMolWeight", "Average Molecular Weight of VOCs in Tank Vapor (lb/lb-mol):",
                 "Avg Molecular Wt VOCs", "TANK_VOC_MOLEWGT", "lb/lb-mol"),
      });
}

void AddTank(SheetSpec& sheet) {
  sheet.Add(
      0, "Tank",
      {
          Coded(DESC, kShape, "Tank Shape:", "Tank Shape", "TANK_SHAPE", {{"Cylindrical", "C"}, {"Rectangular", "R"}}),
          Coded(DESC, kOrientation, "Tank Orientation:", "Tank Orientation", "TANK_ORIENTATION",
                {{"Vertical", "V"}, {"Horizontal", "H"}}),
          Dimension(kDiameter, "Tank Shell Diameter (ft):", "Tank Shell Diameter", "TANK_SHELL_DIAM", Cylindrical()),
          Dimension(kHeight, "Tank Shell Height (ft):", "Tank Shell Height", "TANK_SHELL_HGT", HasHeight()),
          Dimension(kLength, "Tank Shell Length (ft):", "Tank Shell Length", "TANK_SHELL_LENGTH", Horizontal()),
          Dimension(kWidth1, "Tank Shell Width (ft):", "Tank Shell Width", "TANK_SHELL_WIDTH1", NotCylindrical()),
          Dimension(kWidth2, "2nd Tank Shell Width (ft):", "2nd Tank Shell Width", "TANK_SHELL_WIDTH2",
                    Both(NotCylindrical(), Vertical())),
      });
  sheet.Add(
      0, "Roof and paint",
      {
          YesNo(DESC, kFixedRoof, "Is the roof fixed (not floating)?", "Fixed (not floating)?", "FIXED_ROOF"),
          Coded(DESC, "cmbSTO_TankRoofType", "Roof Shape:", "Roof Shape", "TANK_ROOF_TYP",
                {{"Cone", "C"}, {"Dome", "D"}, {"Flat", "F"}, {"Peaked", "P"}}),
          Number(DESC, "txtSTO_TankRoofHgt", "Roof Height Above Shell (ft):", "Roof Height", "TANK_ROOF_HGT", "ft"),
          Coded(DESC, "cmbSTO_TankPaintColor", "Paint Color:", "Paint Color", "TANK_PAINT_COLOR",
                {{"Aluminum/Specular", "AS"},
                 {"Aluminum/Diffuse", "AD"},
                 {"Grey/Light", "GL"},
                 {"Grey/Med", "GM"},
                 {"Red/Primer", "RP"},
                 {"White/NA", "WN"}}),
          Coded(DESC, "cmbSTO_TankPaintCondition", "Paint Condition:", "Paint Condition", "TANK_PAINT_CND",
                {{"Good", "G"}, {"Poor", "P"}}),
      });
  FieldSpec flash_tank = OpenItemText(DESC, "cboEquippedWithFlashTank", "Equipped with a flash tank?",
                                      "Equipped with flash tank", "IS_EQUIPPED_WITH_FLASH_TANK", {"No", "Yes"});
  sheet.Add(0, "Vents and product",
            {
                Number(DESC, "txtSTO_BreatherVentPressure",
                       "Breather Vent Pressure Setting (psig):", "Breather Vent Pressure", "BREATH_VEN_PRES", "psig"),
                Number(DESC, "txtSTO_BreatherVentVacuum",
                       "Breather Vent Vacuum Setting (psig):", "Breather Vent Vacuum", "BREATH_VEN_VAC", "psig"),
                Coded(DESC, "cmbSTO_ProductType", "Product Type:", "Product Type", "PROD_TYP",
                      {{"Crude", "CR"}, {"Condensate", "CO"}}),
                flash_tank,
            });
}

void AddEnablings(SheetSpec& sheet) {
  const std::vector<std::string> geometry = {kShape, kOrientation, kDestination};
  const auto while_ = [&](const Condition& when, const char* field) {
    return Enabling{.mode = DESC, .lists = geometry, .when = when, .fields = {field}};
  };
  sheet.Add({
      while_(Both(Cylindrical(), Oriented()), kDiameter),
      while_(Either(Both(Cylindrical(), Vertical()), Both(Rectangular(), Oriented())), kHeight),
      while_(Both(Reads(kShape, {"Cylindrical", "Rectangular"}), Horizontal()), kLength),
      while_(Both(Rectangular(), Oriented()), kWidth1),
      while_(Both(Rectangular(), Vertical()), kWidth2),
      {.mode = DESC, .lists = {kFixedRoof}, .when = Reads(kFixedRoof, {"Yes"}), .fields = {"txtSTO_TankRoofHgt"}},
  });
}

// The liquid cannot be higher than the tank: the diameter of a horizontal tank, the height of an upright one.
CheckSpec LiquidHeight() {
  const auto check = [lying = Both(Cylindrical(), Horizontal()).holds](Judging& j) {
    j.WithoutTip();
    const bool lies = lying(j.view());
    if (j.Number() > j.view().Number(j.Other(lies ? 2 : 3)))
      j.Say(true, lies ? "Avg. Liquid Height > Shell Diameter" : "Avg. Liquid Height > Shell Height");
    else
      j.WithdrawAny();
  };
  return Own("LiquidHeight", "Avg. Liquid Height > Shell Diameter, or > Shell Height",
             {kShape, kOrientation, kDiameter, kHeight}, check);
}

std::vector<Rule> FieldRules() {
  return {
      {1, DESC, kShape, RequiredMarked()},
      {2, DESC, kOrientation, RequiredMarked()},
      {3, DESC, kDiameter, RequiredRange(0, 50), Cylindrical()},
      {4, DESC, kHeight, RequiredRange(2, 50), HasHeight()},
      {5, DESC, kLength, RequiredRange(2, 50), Horizontal()},
      {6, DESC, kWidth1, RequiredRange(2, 50), Rectangular()},
      {7, DESC, kWidth2, RequiredRange(2, 50), Both(Vertical(), Rectangular())},
      {8, DESC, kFixedRoof, Required(Marks::kEither)},
      {9, DESC, "cmbSTO_TankRoofType", Required(Marks::kEither)},
      {10, DESC, "txtSTO_TankRoofHgt", RequiredRange(0, 20), Reads(kFixedRoof, {"Yes"})},
      {11, DESC, "cmbSTO_TankPaintColor", Required(Marks::kEither)},
      {12, DESC, "cmbSTO_TankPaintCondition", Required(Marks::kEither)},
      {13, DESC, "txtSTO_BreatherVentPressure", RequiredRange(0.01, 5)},
      {14, DESC, "txtSTO_BreatherVentVacuum", RequiredRange(-5, -0.01)},
      {15, ACTV, kLiquidHeight, LiquidHeight()},
      {16, ACTV, kLiquidHeight, RequiredRange(1, 50)},
      {17, ACTV, "txtSTO_TankBulkLiqT", RequiredRange(50, 150)},
      {18, DESC, "cmbSTO_ProductType", Required(Marks::kEither)},
      {19, ACTV, "txtSTO_APIGravity", RequiredRange(1, 75)},
      {20, ACTV, "txtSTO_ReidVP", RequiredRange(0.5, 20)},
      {21, ACTV, "txtSTO_Throughput",
       RequiredRangeWithinTotal(0, 5000000, Total::kThroughputOil, "Value exceeds crude oil throughput for structure")},
      {22, ACTV, "txtSTO_TankVOCMolWeight", RequiredRange(0, 200)},
      {23, ACTV, "txtSTO_TankVaporWeightPercentVOC", RequiredRange(0, 98)},
  };
}

std::vector<Rule> VentilationRules() {
  const Condition local = Local(kDestination), flared = FlaredLocally(kDestination);
  return {
      {1, DESC, kDestination, RequiredMarked()},
      {2, DESC, "cmbSTO_VentedToID", RequiredRemoteID(kDestination, Fallback::kText), Remote(kDestination)},
      {3, DESC, "txtSTO_ExhaustOutletHgt", RequiredRange(-30, 100), local},
      {4, DESC, "txtSTO_ExhaustOutletInnerDiam", RequiredRange(2, 36), local},
      {5, DESC, "txtSTO_ExhaustOutletExitVel", RequiredRange(0, 1100), local},
      {6, DESC, "txtSTO_ExhaustOutletAngle", RequiredRange(0, 180), local},
      {7, DESC, "txtSTO_ExhaustOutletExitT", RequiredRange(50, 1100), VentedLocally(kDestination)},
      {8, DESC, "txtSTO_FlareFeedRate", RequiredRange(0, 10000), flared},
      {9, DESC, "txtSTO_FlareCombustionT", RequiredRange(1400, 2000), flared},
      {10, DESC, "txtSTO_FlareEfficiency", RequiredRange(50, 99.9), flared},
      {11, DESC, kTechnology, Required(Marks::kEither)},
      {12, DESC, "txtSTO_CondenserP", OnlyWithdraws(), Reads(kTechnology, {kCondenser})},
      {12, DESC, "txtSTO_CondenserT", OnlyWithdraws(), Reads(kTechnology, {kCondenser})},
  };
}

SheetSpec Tank() {
  SheetSpec sheet;
  sheet.type = "STO";
  sheet.number = 11;
  sheet.letters = "STO";
  sheet.title = "Storage Tank";
  sheet.edit_title = "Storage Tank - EDIT DATA";
  sheet.pages = {"General Info.", "Ventilation System", "Control Equipment", "QC Results"};
  sheet.comments_tag = "Comments";
  sheet.focus_actv = "txtSTO_Throughput";
  sheet.focus_desc = kShape;
  AddMonth(sheet);
  AddTank(sheet);
  AddRouting(sheet, {.letters = "STO",
                     .flare_tags = {"Flare Feed Rate", "Combustion Temperature", "Combustion Efficiency"},
                     .drops_remote = true,
                     .mode = DESC});
  AddEnablings(sheet);
  AddControlTechnology(sheet, {.letters = "STO",
                               .page = 2,
                               .items = {{kCondenser, "VR/C"}, {"None", "NONE"}},
                               .with_condenser = {kCondenser},
                               .mode = DESC});
  sheet.rules = {{"CheckSTOFields", FieldRules()}, {"CheckSTOVentilation", VentilationRules()}};
  AddOtherControl(sheet, {.letters = "STO",
                          .page = 2,
                          .device_tag = "Other Control Device",
                          .efficiencies = {"VOC"},
                          .efficiency_tag = " Efficiency",
                          .mode = DESC,
                          .marks_passes = true});
  ApplyTogether(sheet, {kDestination, kTechnology, "cmbSTO_OtherControlDevice"});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_STO() {
  static const SheetSpec sheet = Tank();
  return sheet;
}

}  // namespace merlu
