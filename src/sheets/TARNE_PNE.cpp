// Pneumatic pump. Make and model come from the look-up table listPNE, which grows with what is typed.
#include "session/types.h"
#include "sheets/blocks/blocks.h"
#include "sheets/blocks/lookup.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr In BOTH = In::kBoth;
constexpr const char* kMake = "cmbPNE_Mfr";
constexpr const char* kModel = "cmbPNE_Model";
constexpr const char* kHours = "txtPNE_HrsOperated";
constexpr const char* kRate = "txtPNE_FuelUsageRate";
constexpr const char* kDestination = "cmbPNE_GasesVentOrFlare";

void FillPNEMfr(Session& s, Form& form) {
  FillLookupList(s, form, kMake, "listPNE", "Mfr", {});
}

void FillPNEModel(Session& s, Form& form) {
  const std::string& make = form.At(kMake).text;
  if (!make.empty()) FillLookupList(s, form, kModel, "listPNE", "Model", {{"MFR", make}});
}

void FillLists(Session& s, Form& form) {
  FillPNEMfr(s, form);
  FillPNEModel(s, form);
}

void LoadMakeAndModel(Session& s, Form& form) {
  Cursor& row = s.At("ED_PNE");
  FillPNEMfr(s, form);
  SelectText(form, kMake, NullToEmpty(row.Field("MFG")));
  FillPNEModel(s, form);
  SelectText(form, kModel, NullToEmpty(row.Field("model")));
}

void LeaveLookup(Session& s, Form& form) {
  const std::string &make = form.At(kMake).text, &model = form.At(kModel).text;
  if (form.At(kMake).locked || make.empty() || model.empty()) return;
  AddToLookup(s, "listPNE", {{"Mfr", make}, {"Model", model}});
}

void Connect(Session& s, Form& form) {
  form.On(kMake, Event::kClick, [&] { FillPNEModel(s, form); });
  for (const char* list : {kMake, kModel}) form.On(list, Event::kLostFocus, [&] { LeaveLookup(s, form); });
}

constexpr const char* kNotOverZero = "Value should be greater than 0";

// A pump that ran. While it did not, only this finding is withdrawn: a blank rate stays with its explanation.
Condition Ran() {
  return Both(IsOff("chkPNE_Status"), IsOverZero(kHours));
}

CheckSpec GreaterThanZero() {
  return FailsWhen(IsFilledIn(kTheField), Own("GreaterThanZero", kNotOverZero, {}, [](Judging& j) {
                     const bool failed = j.MayFail() && !(j.Number() > 0);
                     j.Say(failed, kNotOverZero);
                     j.MarkEither(failed);
                   }));
}

FieldSpec Lookup(const char* control, const char* caption, const char* tag, const char* column) {
  FieldSpec field = ItemText(DESC, control, caption, tag, column, {});
  field.free_text = true;
  field.loads = false;
  field.loads_last = true;  // LoadMakeAndModel shows it
  return field;
}

SheetSpec Pump() {
  SheetSpec sheet;
  sheet.type = "PNE";
  sheet.number = 15;
  sheet.letters = "PNE";
  sheet.title = "Pneumatic Pumps";
  sheet.edit_title = "Pneumatic Pumps - EDIT DATA";
  sheet.pages = {"General Information", "Ventilation System", "QC Results"};
  sheet.focus_actv = kHours;
  sheet.focus_desc = kMake;
  sheet.not_found_on_load = "Equipment record not found in LoadPNEFrame";
  sheet.not_found_on_save = "Equipment record not found in SavePNEFrame";
  sheet.after_clear = FillLists;
  sheet.after_load = LoadMakeAndModel;
  sheet.connect = Connect;
  sheet.Add(0, "Pump",
            {
                Lookup(kMake, "Manufacturer :", "Equipment Manufacturer", "MFG"),
                Lookup(kModel, "Model :", "Equipment Model ", "model"),
            });
  sheet.Add(
      0, "Monthly activity",
      {
          Number(ACTV, kHours, "Hours Operated (hrs):", "Hours per day operated", "OP_HR", "hrs"),
          Number(ACTV, kRate, "Fuel Gas Usage Rate (SCF/hr):", "Fuel Usage Rate (SCF/hr)", "FUEL_USE_RATE", "SCF/hr"),
      });
  AddRouting(sheet, {.letters = "PNE",
                     .kind = Routing::Kind::kByLocked,
                     .to_system = true,
                     .has_flare = false,
                     .destination_tag = "Vents to Atm",
                     .outlet_tags = {"Exhaust Outlet Height", "Exhaust Outlet Inner Diameter", "Exhaust Exit Velocity",
                                     "Exhaust Exit Temperature", "Exhaust Outlet Orientation"}});
  sheet.rules = {
      {"CheckPNEFields",
       {
           {1, DESC, kMake, Required(Marks::kEither)},
           {2, DESC, kModel, Required(Marks::kEither)},
           {3, ACTV, kHours, RequiredRange(0, 744)},
           {4, ACTV, kRate, GreaterThanZero(), Ran(), Otherwise::kWithdrawOwn},
           {5, ACTV, kRate, Required(Marks::kEither)},
       }},
      {"CheckPNEVentilation",
       {
           {1, BOTH, "cmbPNE_VentedToID", RequiredRemoteID(kDestination, Fallback::kText), Remote(kDestination)},
       }}};
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_PNE() {
  static const SheetSpec sheet = Pump();
  return sheet;
}

}  // namespace merlu
