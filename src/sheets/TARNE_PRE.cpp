// Pneumatic controllers. Service type, make and model come from the look-up table listPRE, each list from
// the choice before it; the table grows with what is typed.
#include "session/types.h"
#include "sheets/blocks/blocks.h"
#include "sheets/blocks/lookup.h"

namespace merlu {
namespace {

constexpr In ACTV = In::kActv;
constexpr In DESC = In::kDesc;
constexpr const char* kService = "cmbPRE_ServiceType";
constexpr const char* kMake = "cmbPRE_Mfr";
constexpr const char* kModel = "cmbPRE_Model";
constexpr const char* kHours = "txtPRE_HrsOperated";
constexpr const char* kRate = "txtPRE_FuelUsageRate";

void FillPREMfr(Session& s, Form& form) {
  const std::string& service = form.At(kService).text;
  if (!service.empty()) FillLookupList(s, form, kMake, "listPRE", "Mfr", {{"SERVICETYPE", service}});
}

void FillPREModel(Session& s, Form& form) {
  const std::string& make = form.At(kMake).text;
  if (!make.empty())
    FillLookupList(s, form, kModel, "listPRE", "Model", {{"SERVICETYPE", form.At(kService).text}, {"MFR", make}});
}

void ChooseService(Session& s, Form& form) {
  for (const char* list : {kMake, kModel}) {
    form.At(list).items.clear();
    form.At(list).index = -1;
  }
  FillPREMfr(s, form);
}

void LoadMakeAndModel(Session& s, Form& form) {
  Cursor& row = s.At("ED_PRE");
  FillPREMfr(s, form);
  SelectText(form, kMake, NullToEmpty(row.Field("MFG")));
  FillPREModel(s, form);
  SelectText(form, kModel, NullToEmpty(row.Field("model")));
}

void LeaveLookup(Session& s, Form& form) {
  const std::string &service = form.At(kService).text, &make = form.At(kMake).text, &model = form.At(kModel).text;
  if (form.At(kMake).locked || service.empty() || make.empty() || model.empty()) return;
  AddToLookup(s, "listPRE", {{"ServiceType", service}, {"Mfr", make}, {"Model", model}});
}

void Connect(Session& s, Form& form) {
  form.On(kService, Event::kClick, [&] { ChooseService(s, form); });
  form.On(kMake, Event::kClick, [&] { FillPREModel(s, form); });
  for (const char* list : {kMake, kModel}) form.On(list, Event::kLostFocus, [&] { LeaveLookup(s, form); });
}

constexpr const char* kNotOverZero = "Required value should be greater than 0";

// Controllers that ran need a rate; the others' look passed.
CheckSpec GreaterThanZero() {
  const Condition ran = Both(IsOff("chkPRE_Status"), IsOverZero(kHours));
  const auto check = [](Judging& j) {
    const bool failed = j.MayFail() && (!j.IsFilled() || !(j.Number() > 0));
    j.Say(failed, kNotOverZero);
    j.MarkEither(failed);
  };
  return FailsWhen(ran, Own("GreaterThanZero", kNotOverZero, {}, check));
}

FieldSpec Lookup(const char* control, const char* caption, const char* tag, const char* column) {
  FieldSpec field = ItemText(DESC, control, caption, tag, column, {});
  field.free_text = true;
  field.loads = false;
  field.loads_last = true;  // LoadMakeAndModel shows it
  return field;
}

// On no page, yet loaded and saved.
void AddUnseenFields(SheetSpec& sheet) {
  SheetSpec block;
  AddExhaust(block, {.letters = "PRE", .temperature_control = "txtPRE_ExhaustOutletExitT"});
  for (FieldSpec& field : block.fields) {
    field.page = kOffPage;
    sheet.fields.push_back(field);
  }
}

SheetSpec Controllers() {
  SheetSpec sheet;
  sheet.type = "PRE";
  sheet.number = 16;
  sheet.letters = "PRE";
  sheet.title = "Pneumatic Controllers";
  sheet.edit_title = "Pneumatic Controllers - EDIT DATA";
  sheet.pages = {"General Information", "QC Results"};
  sheet.focus_actv = kHours;
  sheet.focus_desc = kService;
  sheet.after_load = LoadMakeAndModel;
  sheet.connect = Connect;

  FieldSpec service =
      ItemText(DESC, kService, "Service Type:", "Service Type", "SERVICE_TYP", {"PC", "LC", "FC", "Other"});
  service.known_items = 2;  // a load knows the first two and shows the first for all else
  service.fallback = 0;
  sheet.Add(0, "Controllers",
            {
                service,
                Lookup(kMake, "Manufacturer:", "Equipment Manufacturer", "MFG"),
                Lookup(kModel, "Model:", "Equipment Model", "model"),
                OpenItemText(DESC, "cmbPRE_BleedRate", "Bleed Rate:", "Bleed Rate", "BLEED_RATE",
                             {"High-bleed (>6 scfh)", "Low-bleed (<6 scfh)", "Intermittent", "Zero-bleed"}),
                Number(DESC, "txtPRE_Quantity", "Number of this Make-Model:", "Number of Units", "QTY"),
                Number(DESC, "txtPRE_EquipElev", "Equipment Elevation (ft above msl):", "Engine Elevation",
                       "EQUIP_ELEV", "ft above msl"),
            });
  sheet.Add(0, "Monthly activity",
            {
                Number(ACTV, kHours, "Hours Operated (hrs)", "Hours Operated", "OP_HR", "hrs"),
                Number(ACTV, kRate, " Fuel Gas Usage Rate (SCF/hr):", "Fuel Usage Rate", "FUEL_USE_RATE", "SCF/hr"),
            });
  AddUnseenFields(sheet);
  sheet.rules = {{"CheckPREFields",
                  {
                      {1, DESC, kService, Required(Marks::kEither)},
                      {2, DESC, kMake, Required(Marks::kEither)},
                      {3, DESC, kModel, Required(Marks::kEither)},
                      {4, DESC, "cmbPRE_BleedRate", Required(Marks::kEither)},
                      {5, DESC, "txtPRE_Quantity", RequiredMarked()},
                      {6, ACTV, kRate, GreaterThanZero()},
                  }}};
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_PRE() {
  static const SheetSpec sheet = Controllers();
  return sheet;
}

}  // namespace merlu
