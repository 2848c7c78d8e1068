#include "records/operator_record.h"

#include <array>
#include <charconv>
#include <functional>

#include "base/text.h"
#include "records/build.h"
#include "records/operator_names.h"
#include "rules/checks.h"
#include "session/main_names.h"
#include "session/notices.h"
#include "session/records.h"
#include "sheets/conversions.h"

namespace merlu {
namespace {

struct OperatorField {
  const char* control;
  const char* caption;
  const char* column;
  const char* mask;  // null for a plain text
  bool required;     // its caption shows a star in the first-run dialog
};

constexpr std::array<OperatorField, 10> kFields = {{
    {"txtUSER_Company", "Company Name", "CO_NAME", nullptr, true},
    {"txtUSER_Address1", "Address 1", "ADDR1", nullptr, true},
    {"txtUSER_Address2", "Address 2", "ADDR2", nullptr, false},
    {"txtUSER_City", "City", "City", nullptr, true},
    {"txtUSER_State", "State", "State", nullptr, true},
    {"txtUSER_Zip", "Zip Code", "Zip", nullptr, true},
    {"txtUSER_Contact", "Contact Name", "Contact", nullptr, true},
    {"txtUSER_Phone", "Phone", "Phone", kPhoneMask, true},
    {"txtUSER_Fax", "Fax", "Fax", kFaxMask, false},
    {"txtUSER_Email", "Email", "Email", nullptr, true},
}};

bool IsBlank(const Form& form, const char* field) {
  return !IsFilled(form.At(field).text);
}

bool ShowsEmptyMask(const Form& form, const char* field) {
  const Control& control = form.At(field);
  return control.text == Masked(control.mask, "");
}

bool NoWayToReach(const Form& form) {
  return ShowsEmptyMask(form, "txtUSER_Phone") && ShowsEmptyMask(form, "txtUSER_Fax") &&
         form.At("txtUSER_Email").text.empty();
}

bool NotWhole(const Form& form, const char* field) {
  return !ShowsEmptyMask(form, field) && HasTooFewDigits(form.At(field).text);
}

bool NoAddress(const Form& form) {
  return form.At("txtUSER_Address1").text.empty() && form.At("txtUSER_Address2").text.empty();
}

// A stored number that does not fit the mask shows as it is, until the user types there.
std::string ShownText(const OperatorField& field, const std::string& stored) {
  if (field.mask == nullptr || (!stored.empty() && !FitsMask(field.mask, stored))) return stored;
  return Masked(field.mask, stored);
}

// The inventory year: four digits, since node keys hold four. 0 for any other text.
int YearOf(const Form& form) {
  const std::string text = Trim(form.At(names::txtUSER_InvYr).text);
  int year = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), year);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && year >= 1000 && year <= 9999 ? year : 0;
}

struct Requirement {
  std::function<bool(const Form&)> fails;
  const char* message;
  const char* focus;
};

Requirement Filled(const char* field, const char* message) {
  return {[field](const Form& form) { return IsBlank(form, field); }, message, field};
}

bool MeetsAll(Session& s, Form& form, const std::vector<Requirement>& requirements) {
  for (const Requirement& requirement : requirements) {
    if (!requirement.fails(form)) continue;
    Note(s.notices, requirement.message, Icon::kWarning);
    form.focus = requirement.focus;
    return false;
  }
  return true;
}

}  // namespace

void PutOperatorFields(Form& form, const std::string& parent) {
  const bool in_dialog = parent.empty();
  for (const OperatorField& field : kFields) {
    const std::string caption = std::string(field.caption) + (in_dialog && field.required ? "*:" : ":");
    Control& control = Put(form, field.mask ? Kind::kMasked : Kind::kText, field.control, caption, {parent, 0, ""});
    if (!field.mask) continue;
    control.mask = field.mask;
    control.text = Masked(field.mask, "");
  }
}

void PutOperatorSheet(Form& main) {
  Put(main, Kind::kFrame, names::fraUserInfo, "Operator", {});
  Put(main, Kind::kTab, "tabUSER", "", {names::fraUserInfo}).items = {"General Information"};
  main.At("tabUSER").page_available = {true};
  PutLabel(main, "lblUSER_Heading", "MERLU-2017 Registered User", {"tabUSER"});
  PutOperatorFields(main, "tabUSER");
  Put(main, Kind::kButton, names::cmdUSER_AddStructure, "New Structure", {"tabUSER"});
  Put(main, Kind::kButton, names::cmdUSER_AddSurvey, "Add Next Monthly Survey", {"tabUSER"});
}

void ClearOperator(Session& s) {
  NotingFaults(s.notices, [&] {
    if (!FindOperatorRecord(s)) Note(s.notices, "User record not found");
  });
  for (const OperatorField& field : kFields) s.main->At(field.control).text = field.mask ? Masked(field.mask, "") : "";
  s.main->At(names::cmdUSER_AddSurvey).visible = s.InActv();
}

bool LoadOperator(Session& s) {
  return NotingFaults(s.notices, [&] {
    if (!FindOperatorRecord(s)) return Note(s.notices, "record not found");
    for (const OperatorField& field : kFields) {
      Control& control = s.main->At(field.control);
      control.text = ShownText(field, NullToEmpty(s.At("CO_COMPANY").Field(field.column)));
      control.touched = false;
    }
  });
}

void LockOperator(Session& s) {
  SetFrameTitle(*s.main, names::fraUserInfo, "Operator", false);
  for (const OperatorField& field : kFields) SetLocked(s.main->At(field.control), true);
}

void UnlockOperator(Session& s) {
  SetFrameTitle(*s.main, names::fraUserInfo, "Operator - EDIT DATA", true);
  for (const OperatorField& field : kFields) SetLocked(s.main->At(field.control), false);
  s.main->focus = kFields.front().control;
}

void SaveOperator(Session& s) {
  const bool saved = NotingFaults(s.notices, [&] {
    if (!FindOperatorRecord(s)) {
      Note(s.notices, "record not found");
      s.save_failed = true;
      return;
    }
    Cursor& company = s.At("CO_COMPANY");
    company.Edit();
    for (const OperatorField& field : kFields)
      company.SetField(field.column, FieldText(s.main->At(field.control).text));
    company.Update();
  });
  if (!saved) s.save_failed = true;
}

bool ValidateOperator(Session& s) {
  return MeetsAll(s, *s.main,
                  {Filled("txtUSER_Contact", "Please enter your Contact Name"),
                   {NoWayToReach, "Please enter your Phone, Fax, or Email", "txtUSER_Phone"},
                   Filled("txtUSER_Email", "Please enter Email address"),
                   Filled("txtUSER_Company", "Please enter your Company Name"),
                   {NoAddress, "Please enter your Address", "txtUSER_Address1"},
                   Filled("txtUSER_City", "Please enter your City"),
                   Filled("txtUSER_Zip", "Please enter your Zip Code"),
                   Filled("txtUSER_State", "Please enter your State")});
}

bool ValidateNewOperator(Session& s, Form& dialog) {
  const auto not_whole = [](const char* field) { return [field](const Form& form) { return NotWhole(form, field); }; };
  const bool met = MeetsAll(s, dialog,
                            {Filled(names::txtUserID, "Please enter your User ID"),
                             Filled("txtUSER_Contact", "Please enter your Contact Name"),
                             {NoWayToReach, "Please enter your Phone, Fax, or Email", "txtUSER_Phone"},
                             {not_whole("txtUSER_Phone"), "Not a valid phone number", "txtUSER_Phone"},
                             {not_whole("txtUSER_Fax"), "Not a valid fax number", "txtUSER_Fax"},
                             Filled("txtUSER_Email", "Please enter your Email address"),
                             Filled("txtUSER_Company", "Please enter your Company Name"),
                             {NoAddress, "Please enter your Address", "txtUSER_Address1"},
                             Filled("txtUSER_City", "Please enter your City"),
                             Filled("txtUSER_State", "Please enter your State"),
                             Filled("txtUSER_Zip", "Please enter your Zip Code"),
                             {[](const Form& form) { return YearOf(form) == 0; },
                              "Please enter the Inventory Year with four digits", names::txtUSER_InvYr}});
  if (met) return true;
  // a number that is not whole is cleared, so that it can be typed again
  if (NotWhole(dialog, "txtUSER_Phone") && dialog.focus == "txtUSER_Phone")
    dialog.At("txtUSER_Phone").text = Masked(kPhoneMask, "");
  if (NotWhole(dialog, "txtUSER_Fax") && dialog.focus == "txtUSER_Fax")
    dialog.At("txtUSER_Fax").text = Masked(kFaxMask, "");
  return false;
}

void NewOperatorRow(Session& s, const Form& dialog) {
  WriteBatch batch(s.db);
  Cursor& company = s.At("CO_COMPANY");
  company.AddNew();
  company.SetField("RIMA_CO_NUM", FieldText(Trim(dialog.At(names::txtUserID).text)));
  for (const OperatorField& field : kFields) company.SetField(field.column, FieldText(dialog.At(field.control).text));
  company.Update();
  company.MoveFirst();

  const int year = YearOf(dialog);
  Cursor& config = s.At("SYS_CONFIG");
  config.MoveFirst();
  config.Edit();
  config.SetField("sys_yr", std::int64_t{year});
  config.SetField("SYS_MAX_MO", std::int64_t{1});
  config.Update();
  s.year = year;
  s.last_month = 1;
  batch.Commit();
}

}  // namespace merlu
