// Drilling equipment: the type is DRI, but its form and controls are named JAC.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr const char* kOver = "Value exceeds total fuel used for structure";

SheetSpec Drilling() {
  SheetSpec sheet;
  sheet.type = "DRI";
  sheet.number = 7;
  sheet.letters = "JAC";
  sheet.title = "Drilling Equipment";
  sheet.edit_title = "Drilling Equipment - EDIT DATA";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Information", "Exhaust System", "Control Equipment", "QC Results"};
  sheet.focus_actv = "txtJAC_HrsOperated";

  FieldSpec rig = Text(ACTV, "txtJAC_DrillingEquipment", "Mobile Platform Drilling Rig Name:", "Drilling Equipment",
                       "DRILLING_EQUIPMENT");
  rig.note_label = "lblJAC_DrillingRigIfApplicable";
  rig.note = "(if applicable)";
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, "txtJAC_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "hrs"),
                Number(ACTV, "txtJAC_DieselUsage", "Total Diesel Fuel Usage (gal):", "Total Diesel Fuel Usage",
                       "DIESEL_USE", "gal"),
                Number(ACTV, "txtJAC_GasolineUsage", "Total Gasoline Fuel Usage (gal):", "Total Gasoline Fuel Usage",
                       "GASOLINE_USE", "gal"),
                Number(ACTV, "txtJAC_NGUsage", "Total Natural Gas Usage (Mscf):", "Total Natural Gas Usage", "NG_USE",
                       "Mscf"),
                rig,
            });
  const Exhaust exhaust{.letters = "JAC",
                        .temperature_control = "txtJAC_ExhaustOutletExitT",
                        .height = {-30, 100},
                        .diameter = {2, 42},
                        .velocity = {0, 350},
                        .temperature = {300, 1100}};
  AddExhaust(sheet, exhaust);
  sheet.rules = {{"CheckJACFields",
                  {
                      {1, ACTV, "txtJAC_HrsOperated", RequiredRange(0, 744)},
                      {2, ACTV, "txtJAC_DieselUsage", RequiredMarked()},
                      {3, ACTV, "txtJAC_GasolineUsage", RequiredMarked()},
                      {4, ACTV, "txtJAC_NGUsage", RequiredMarked()},
                      {5, ACTV, "txtJAC_DieselUsage", WithinStructureTotal(kOver, Total::kFuelDiesel)},
                      {6, ACTV, "txtJAC_GasolineUsage", WithinStructureTotal(kOver, Total::kFuelGasoline)},
                      {7, ACTV, "txtJAC_NGUsage", WithinStructureTotal(kOver, Total::kFuelGas)},
                  }},
                 {"CheckJACExhaust", ExhaustRules(exhaust)}};
  AddOtherControl(sheet, {.letters = "JAC", .page = 2, .description_tag = "Other Control Equipment Descript."});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_JAC() {
  static const SheetSpec sheet = Drilling();
  return sheet;
}

}  // namespace merlu
