// Combustion flare.
#include "session/types.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kPilot = "cmbFLA_HasContFlarePilot";

SheetSpec Flare() {
  SheetSpec sheet;
  sheet.type = "FLA";
  sheet.number = 4;
  sheet.letters = "FLA";
  sheet.title = "Combustion Flare";
  sheet.edit_title = "Flare - EDIT DATA";
  sheet.pages = {"General Information", "Control Equipment", "QC Results"};
  sheet.comments_caption = "Comments;";
  sheet.comments_tag = "Comments";
  sheet.focus_actv = "txtFLA_HrsOperated";
  sheet.focus_desc = "txtFLA_ConcH2S";

  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, "txtFLA_HrsOperated",
                       "Hours Operated (hrs), including upsets:", "Hours Operated, excl. upsets", "OP_HR", "hrs"),
                Number(ACTV, "txtFLA_VolFlared",
                       "Volume Flared (Mscf), including upsets:", "Volume Flared, incl. upsets", "VOL_FLARED", "Mscf"),
                OpenItemText(ACTV, "cmbFLA_PilotIncludedInVolume", "Pilot Feed Rate Included in Volume Flared?",
                             "Pilot Included in Volume", "PILOT_INCLUDED_IN_VOLUME", {"Yes", "No"}),
            });
  sheet.Add(0, "Flare",
            {
                Number(DESC, "txtFLA_ConcH2S", "Flare Gas H2S Concentration (ppmv):", "Flare Gas H2S Concentration",
                       "CONC_H2S", "ppmv"),
                // this tag ends in a blank
                Number(DESC, "txtFLA_FlareEfficiency",
                       "Flare Combustion Efficiency (%):", "Flare Combustion Efficiency ", "FLA_EFFIC", "%"),
                Coded(DESC, "cmbFLA_FlareSmoke", "Smoking Condition:", "Smoking Condition", "FLA_SMOKE_FLG",
                      {{"None", "N"}, {"Light", "L"}, {"Medium", "M"}, {"Heavy", "H"}}),
                YesNo(DESC, kPilot, "Is there a continuous pilot?", "Continuous pilot? y/n", "CTRL_FLA_PILOT_FLG"),
                Number(DESC, "txtFLA_PilotFuelFeedRate", "Pilot Fuel Feed Rate (Mscf/day):", "Pilot Feed Rate",
                       "PILOT_FUEL_FEED_RATE", "Mscf/day"),
            });
  AddStack(sheet, 0,
           {.letters = "FLA",
            .temperature_control = "txtFLA_StackExitT",
            .temperature_caption = "Avg. Combustion Temp. (°F):",
            .velocity_tag = "Avg. Exit Velocity",
            .temperature_tag = "Avg. Combustion Temperature"});

  using At = Enabling::At;
  sheet.Add({
      {.at = At::kUnlock,
       .mode = ACTV,
       .lists = {kPilot},
       .when = Reads(kPilot, {"Yes"}),
       .fields = {"cmbFLA_PilotIncludedInVolume"},
       .does = Enabling::Does::kEnableAndLock},
      {.at = At::kUnlock,
       .mode = DESC,
       .lists = {kPilot},
       .when = Reads(kPilot, {"Yes"}),
       .fields = {"txtFLA_PilotFuelFeedRate"}},
      {.at = At::kClick,
       .lists = {kPilot},
       .when = Reads(kPilot, {"Yes"}),
       .fields = {"txtFLA_PilotFuelFeedRate"},
       .empties = Enabling::Empties::kAtClick},
  });

  sheet.rules = {{"CheckFLAFields",
                  {
                      {1, ACTV, "txtFLA_HrsOperated", RequiredRange(0, 744)},
                      {2, ACTV, "txtFLA_VolFlared", RequiredRange(0, 20000)},
                      {3, ACTV, "cmbFLA_PilotIncludedInVolume", Required(), Reads(kPilot, {"Yes"})},
                      {4, DESC, "txtFLA_FlareEfficiency", RequiredRange(50, 99.9)},
                      {5, DESC, "txtFLA_ConcH2S", RequiredRange(0, 120000)},
                      {6, DESC, "cmbFLA_FlareSmoke", Required()},
                      {7, DESC, kPilot, Required()},
                      {8, DESC, "txtFLA_PilotFuelFeedRate", RequiredRange(0, 100), Reads(kPilot, {"Yes"})},
                      {9, DESC, "txtFLA_StackOutletElev", RequiredRange(-1000, 350)},
                      {10, DESC, "txtFLA_StackInnerDiam", RequiredRange(4, 42)},
                      {11, DESC, "txtFLA_StackExitVel", RequiredRange(0, 1100)},
                      {12, DESC, "txtFLA_StackExitT", RequiredRange(1100, 2000)},
                      {13, DESC, "txtFLA_StackAngle", RequiredRange(0, 180)},
                  }}};
  AddOtherControl(sheet, {.letters = "FLA", .description_label = "lblFLA_OtherConstrolDesc"});
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_FLA() {
  static const SheetSpec sheet = Flare();
  return sheet;
}

}  // namespace merlu
