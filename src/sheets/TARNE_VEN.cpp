// Cold vent.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kControl = "cmbVEN_ControlTechnology";

SheetSpec Vent() {
  SheetSpec sheet;
  sheet.type = "VEN";
  sheet.number = 12;
  sheet.letters = "VEN";
  sheet.title = "Cold Vent";
  sheet.edit_title = "Vent - EDIT DATA";
  sheet.cleared_title_actv = "Vents - ACTIVITY EDIT MODE";
  sheet.cleared_title_desc = "Vents - DESCRIPTION EDIT MODE";
  sheet.comments_caption = "Comments:";
  sheet.pages = {"General Information", "Control Equipment", "QC Results"};
  sheet.comments_unlock_in_desc = true;
  sheet.focus_actv = "txtVEN_HrsOperated";
  sheet.focus_desc = "cmbVEN_VentType";

  sheet.Add(0, "Vent",
            {
                Coded(DESC, "cmbVEN_VentType", "Vent Type:", "Vent Type", "VENT_TYP",
                      {{"High Pressure", "H"}, {"Low Pressure", "L"}}),
            });
  AddControlTechnology(
      sheet, {.letters = "VEN", .items = {{"Condenser", "CND"}, {"None", "NONE"}}, .with_condenser = {"Condenser"}});
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, "txtVEN_HrsOperated",
                       "Hours Operated (hrs), including upsets:", "Hours Operated, excl upsets", "OP_HR", "hrs"),
                Number(ACTV, "txtVEN_VolVented",
                       "Volume Vented (Mscf), including upsets:", "Volume Vented, incl upsets", "VOL_VENTED", "Mscf"),
                Number(ACTV, "txtVEN_ConcH2S", "Vent Gas H2S Concentration (ppmv):", "Vent Gas H2S Concentration",
                       "CONC_H2S", "ppmv"),
                Number(ACTV, "txtVEN_ConcVOC", "Vent Gas VOC Concentration (ppmv):", "Vent Gas VOC Concentration",
                       "CONC_VOC", "ppmv"),
                Number(ACTV, "txtVEN_VOCMolWeight", "Avg Molecular Weight of VOCs (lb/lb-mol):",
                       "Avg Molecular Weight of VOCs", "VOC_MOLE_WGT", "lb/lb-mol"),
            });
  AddStack(sheet, 0,
           {.letters = "VEN",
            .temperature_control = "txtVEN_StackT",
            .temperature_caption = "Avg. Exit Temperature (°F):",
            .velocity_tag = "Exit Velocity",
            .temperature_tag = "Exit Temperature"});

  sheet.rules = {{"CheckVENFields",
                  {
                      {1, DESC, "cmbVEN_VentType", Required()},
                      {2, DESC, "txtVEN_StackOutletElev", RequiredRange(-30, 300)},
                      {3, DESC, "txtVEN_StackAngle", RequiredRange(0, 180)},
                      {4, DESC, "txtVEN_StackInnerDiam", RequiredRange(4, 42)},
                      {5, DESC, "txtVEN_StackExitVel", RequiredRange(0, 1100)},
                      {6, DESC, "txtVEN_StackT", RequiredRange(0, 200)},
                      {7, ACTV, "txtVEN_HrsOperated", RequiredRange(0, 744)},
                      {8, ACTV, "txtVEN_VolVented", RequiredRange(0, 20000)},
                      {9, DESC, kControl, Required()},
                      {10, DESC, "txtVEN_CondenserT", RequiredRangeIfFilled(32, 212), Reads(kControl, {"Condenser"})},
                      {11, DESC, "txtVEN_CondenserP", RequiredRangeIfFilled(0.5, 1000), Reads(kControl, {"Condenser"})},
                      {12, ACTV, "txtVEN_ConcH2S", RequiredRange(0, 120000)},
                      {13, ACTV, "txtVEN_ConcVOC", RequiredRange(0, 1000000)},
                      {14, ACTV, "txtVEN_VOCMolWeight", RequiredRange(0, 200)},
                  }}};
  AddOtherControl(sheet, {.letters = "VEN", .description_label = "lblVEN_OtherControlDesc", .efficiencies = {"VOC"}});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_VEN() {
  static const SheetSpec sheet = Vent();
  return sheet;
}

}  // namespace merlu
