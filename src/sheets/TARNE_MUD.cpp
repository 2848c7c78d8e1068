// Mud degassing.
#include "rules/checks.h"
#include "session/types.h"
#include "sheets/spec.h"

namespace merlu {
namespace {

SheetSpec Mud() {
  SheetSpec sheet;
  sheet.type = "MUD";
  sheet.number = 14;
  sheet.letters = "MUD";
  sheet.title = "Mud Degassing";
  sheet.edit_title = "MUD Degassing - EDIT DATA";
  sheet.pages = {"General Information", "QC Results"};
  sheet.focus_actv = "txtMUD_DaysPerMonth";
  sheet.focus_desc = "cmbMud_MudType";
  sheet.not_found_on_load = "Equipment record not found in LoadMUDFrame";
  sheet.not_found_on_save = "Equipment record not found in SaveMUDFrame";

  FieldSpec mud = ItemText(In::kDesc, "cmbMud_MudType", "Type of mud :", "Type of Drilling Mud", "Mud_Typ",
                           {"water-based", "oil-based", "synthetic"});
  mud.fallback = 0;  // a new record shows the first, and a save then stores it
  sheet.Add(0, "Mud", {mud});
  sheet.Add(0, "Monthly activity",
            {
                Number(In::kActv, "txtMUD_DaysPerMonth", "Days per month of drilling with mud:", "Days per Month",
                       "DAYS_PER_MO"),
            });
  sheet.rules = {{"CheckMUDFields",
                  {
                      {1, In::kDesc, "cmbMud_MudType", Required(Marks::kEither)},
                      {2, In::kActv, "txtMUD_DaysPerMonth", RequiredRange(1, 31)},
                  }}};
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_MUD() {
  static const SheetSpec sheet = Mud();
  return sheet;
}

}  // namespace merlu
