// Glycol dehydrator.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kThroughput = "txtGLY_TotalGasThru";
constexpr const char* kFlashTank = "cmbGLY_UseFlashTank";
constexpr const char* kFlashTankFields[] = {"txtGLY_FlashTankT", "txtGLY_FlashTankP"};
constexpr const char* kStripping = "cmbGLY_StrippingGas";
constexpr const char* kDestination = "cmbGLY_GasesVentOrFlare";
constexpr const char* kTechnology = "cmbGLY_ControlTechnology";
constexpr const char* kCondenser = "Vapor Recovery and/or Condenser (VR/C)";

void AddFields(SheetSpec& sheet) {
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, kThroughput, "Processed Throughput (MMscf):", "Processed Throughput", "TOT_GAS_THRUPUT",
                       "MMscf"),
            });
  sheet.Add(
      0, "Wet gas",
      {
          Number(DESC, "txtGLY_WetGasT", "Wet Gas Temperature (°F):", "Wet Gas Temperature", "WET_GAS_TEMP", "°F"),
          Number(DESC, "txtGLY_WetGasP", "Wet Gas Pressure (psig):", "Wet Gas Pressure", "WET_GAS_PRES", "psig"),
      });
  sheet.Add(0, "Flash tank",
            {
                YesNo(DESC, kFlashTank, "Equipped with a flash tank?", "Equipped with flash tank?", "FLASH_TANK_FLG"),
                Number(DESC, "txtGLY_FlashTankT", "Flash Tank Temperature (°F):", "Flash Tank Temperature",
                       "FLASH_TANK_TEMP", "°F"),
                Number(DESC, "txtGLY_FlashTankP", "Flash Tank Pressure (psig):", "Flash Tank Pressure",
                       "FLASH_TANK_PRES", "psig"),
                Coded(DESC, "cmbGLY_Disposition", "Destination of Flash Gas:", "Destination of Flash Gas",
                      "Disposition", {{"routed to system", "RS"}, {"vented to atm", "VL"}, {"burned in flare", "FL"}}),
            });
  sheet.Add(0, "Stripping gas",
            {
                Coded(DESC, kStripping, "Uses stripping gas?", "Uses stripping gas?", "STRIPPING_GAS",
                      {{"None", "NO"}, {"Dry Gas", "DG"}, {"Flash Gas", "FG"}, {"Nitrogen", "NI"}}),
                Number(DESC, "txtGLY_StrippingGasFlowRate", "Stripping Gas Flowrate (scf/min):",
                       "Stripping Gas Flowrate", "STRIPPING_GAS_FLOWRATE", "scf/min"),
            });
  using Does = Enabling::Does;
  sheet.Add({
      {.mode = DESC,
       .lists = {kFlashTank},
       .when = Reads(kFlashTank, {"Yes"}),
       .fields = {std::begin(kFlashTankFields), std::end(kFlashTankFields)},
       .does = Does::kLock},
      {.mode = DESC,
       .lists = {kStripping},
       .when = Reads(kStripping, {"Nitrogen", "Flash Gas", "Dry Gas"}),
       .fields = {"txtGLY_StrippingGasFlowRate"},
       .does = Does::kLock},
  });
}

// A load unlocks or locks the fields; in view the lock after it overrides that.
void LockFlashTank(Session&, Form& form) {
  const bool has_tank = form.At(kFlashTank).text == "Yes";
  for (const char* name : kFlashTankFields) {
    form.At(name).locked = !has_tank;
    form.At(name).back = has_tank ? Back::kWindow : Back::kFace;
  }
}

std::vector<Rule> FieldRules() {
  return {
      {1, DESC, "cmbGLY_Disposition", Required(Marks::kEither)},
      {2, ACTV, kThroughput,
       RequiredRangeWithinTotal(0, 15500, Total::kThroughputGas, "Value exceeds N.G. throughput for structure")},
      {3, DESC, "txtGLY_WetGasT", RequiredRange(32, 200)},
      {4, DESC, "txtGLY_WetGasP", RequiredRange(1, 5000)},
      {5, DESC, kFlashTank, Required(Marks::kEither)},
      {6, DESC, "txtGLY_FlashTankT", RequiredRange(32, 350), Reads(kFlashTank, {"Yes"})},
      {7, DESC, "txtGLY_FlashTankP", RequiredRange(5, 1000), Reads(kFlashTank, {"Yes"})},
      {8, DESC, kStripping, Required(Marks::kEither)},
      {9, DESC, "txtGLY_StrippingGasFlowRate", RequiredRange(0, 10000), ReadsNone(kStripping, {"", "None"})},
  };
}

std::vector<Rule> VentilationRules() {
  const Condition local = Local(kDestination), flared = FlaredLocally(kDestination);
  // the first of the two is not offered by this sheet's list
  const Condition condenser = Reads(kTechnology, {"SR + VR/C", kCondenser});
  return {
      {1, DESC, kDestination, RequiredMarked()},
      {2, DESC, "cmbGLY_VentedToID", RequiredRemoteID(kDestination, Fallback::kTextAndIndex), Remote(kDestination)},
      {3, DESC, "txtGLY_ExhaustOutletHgt", RequiredRange(-30, 100), local},
      {4, DESC, "txtGLY_ExhaustOutletInnerDiam", RequiredRange(1, 24), local},
      {5, DESC, "txtGLY_ExhaustOutletExitVel", RequiredRange(0, 1100), local},
      {6, DESC, "txtGLY_ExhaustOutletExitT", RequiredRange(70, 2000), VentedLocally(kDestination)},
      {7, DESC, "txtGLY_ExhaustOutletAngle", RequiredRange(0, 180), local},
      {8, DESC, "txtGLY_FlareFeedRate", RequiredRange(0, 20000), flared},
      {9, DESC, "txtGLY_FlareCombustionT", RequiredRange(1400, 2000), flared},
      {10, DESC, "txtGLY_FlareEfficiency", RequiredRange(50, 99.9), flared},
      {11, DESC, kTechnology, Required(Marks::kEither)},
      {12, DESC, "txtGLY_CondenserT", RequiredRange(32, 212), condenser},
      {13, DESC, "txtGLY_CondenserP", RequiredRange(0.5, 1000), condenser},
  };
}

SheetSpec Glycol() {
  SheetSpec sheet;
  sheet.type = "GLY";
  sheet.number = 6;
  sheet.letters = "GLY";
  sheet.title = "Glycol Dehydrator";
  sheet.edit_title = "Glycol Dehydrator - EDIT DATA";
  sheet.pages = {"General Information", "Ventilation System", "Control Equipment", "QC Results"};
  sheet.focus_actv = kThroughput;
  sheet.focus_desc = "txtGLY_WetGasT";
  sheet.after_load = LockFlashTank;
  AddFields(sheet);
  AddRouting(sheet, {.letters = "GLY",
                     .flare_tags = {"Flare Feed Rate", "Flare Combustion Temperature", "Flare Combustion Efficiency"}});
  AddControlTechnology(
      sheet,
      {.letters = "GLY", .page = 2, .items = {{kCondenser, "VR/C"}, {"None", "NONE"}}, .with_condenser = {kCondenser}});
  sheet.rules = {{"CheckGLYFields", FieldRules()}, {"CheckGLYVentilation", VentilationRules()}};
  AddOtherControl(
      sheet,
      {.letters = "GLY", .page = 2, .description_tag = "Other Control Equipment Descript.", .marks_passes = true});
  ApplyTogether(sheet, {kDestination, kTechnology, "cmbGLY_OtherControlDevice"});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_GLY() {
  static const SheetSpec sheet = Glycol();
  return sheet;
}

}  // namespace merlu
