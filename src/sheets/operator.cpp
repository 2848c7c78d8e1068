#include "sheets/operator.h"

#include <array>
#include <charconv>
#include <functional>

#include "base/text.h"
#include "rules/checks.h"
#include "session/find_rows.h"
#include "session/main_names.h"
#include "session/notices.h"
#include "sheets/build.h"
#include "sheets/operator_names.h"

namespace merlu {
namespace {

struct OperatorField {
  const char* control;
  const char* caption;
  const char* column;
  const char* mask;  // empty for a plain text
  bool required;     // its caption shows a star in the first-run dialog
};

constexpr std::array<OperatorField, 10> kFields = {{
    {"txtUSER_Company", "Company Name", "CO_NAME", "", true},
    {"txtUSER_Address1", "Address 1", "ADDR1", "", true},
    {"txtUSER_Address2", "Address 2", "ADDR2", "", false},
    {"txtUSER_City", "City", "City", "", true},
    {"txtUSER_State", "State", "State", "", true},
    {"txtUSER_Zip", "Zip Code", "Zip", "", true},
    {"txtUSER_Contact", "Contact Name", "Contact", "", true},
    {"txtUSER_Phone", "Phone", "Phone", kPhoneMask, true},
    {"txtUSER_Fax", "Fax", "Fax", kFaxMask, false},
    {"txtUSER_Email", "Email", "Email", "", true},
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

std::optional<Unmet> FirstUnmet(const Form& form, const std::vector<Requirement>& requirements) {
  for (const Requirement& requirement : requirements)
    if (requirement.fails(form)) return Unmet{requirement.message, requirement.focus};
  return std::nullopt;
}

FieldSpec FieldOf(const OperatorField& field, const char* end_of_caption) {
  FieldSpec spec = Text(In::kBoth, field.control, std::string(field.caption) + end_of_caption, "", field.column);
  spec.mask = field.mask;
  if (!spec.mask.empty()) spec.kind = Kind::kMasked;
  return spec;
}

SheetSpec Operator() {
  SheetSpec sheet;
  sheet.level = level::kUser;
  sheet.letters = "USER";
  sheet.frame_name = names::fraUserInfo;
  sheet.title = "Operator";
  sheet.edit_title = "Operator - EDIT DATA";
  sheet.pages = {"General Information"};
  sheet.focus_actv = sheet.focus_desc = kFields.front().control;
  sheet.not_found_on_load = sheet.not_found_on_save = "record not found";
  sheet.has_activity = sheet.has_findings = false;
  sheet.plain_faults = true;
  for (const OperatorField& field : kFields) sheet.fields.push_back(FieldOf(field, ":"));
  sheet.after_clear = [](Session& s, Form& form) {
    NotingFaults(s.notices, [&] {
      if (!FindOperatorRecord(s)) Note(s.notices, "User record not found");
    });
    form.At(names::cmdUSER_AddSurvey).visible = s.InActv();
  };
  return sheet;
}

}  // namespace

const SheetSpec& OperatorSheet() {
  static const SheetSpec sheet = Operator();
  return sheet;
}

void PutOperatorSheet(Form& main) {
  const SheetSpec& sheet = OperatorSheet();
  Put(main, Kind::kFrame, sheet.frame(), sheet.title, {});
  PutTab(main, sheet.tab(), sheet.pages, {sheet.frame()});
  PutLabel(main, "lblUSER_Heading", "MERLU-2017 Registered User", {sheet.tab()});
  for (const FieldSpec& field : sheet.fields) PutField(main, field, sheet.tab());
  Put(main, Kind::kButton, names::cmdUSER_AddStructure, "New Structure", {sheet.tab()});
  Put(main, Kind::kButton, names::cmdUSER_AddSurvey, "Add Next Monthly Survey", {sheet.tab()});
}

void PutNewOperatorFields(Form& dialog) {
  for (const OperatorField& field : kFields) PutField(dialog, FieldOf(field, field.required ? "*:" : ":"), "");
}

std::optional<Unmet> UnmetOfOperator(const Form& form) {
  return FirstUnmet(form, {Filled("txtUSER_Contact", "Please enter your Contact Name"),
                           {NoWayToReach, "Please enter your Phone, Fax, or Email", "txtUSER_Phone"},
                           Filled("txtUSER_Email", "Please enter Email address"),
                           Filled("txtUSER_Company", "Please enter your Company Name"),
                           {NoAddress, "Please enter your Address", "txtUSER_Address1"},
                           Filled("txtUSER_City", "Please enter your City"),
                           Filled("txtUSER_Zip", "Please enter your Zip Code"),
                           Filled("txtUSER_State", "Please enter your State")});
}

std::optional<Unmet> UnmetOfNewOperator(const Form& dialog) {
  const auto not_whole = [](const char* field) { return [field](const Form& each) { return NotWhole(each, field); }; };
  return FirstUnmet(dialog, {Filled(names::txtUserID, "Please enter your User ID"),
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
                             {[](const Form& each) { return YearOf(each) == 0; },
                              "Please enter the Inventory Year with four digits", names::txtUSER_InvYr}});
}

NewOperator ReadNewOperator(const Form& dialog) {
  NewOperator made{Trim(dialog.At(names::txtUserID).text), YearOf(dialog), {}};
  for (const OperatorField& field : kFields) made.values.emplace_back(field.column, dialog.At(field.control).text);
  return made;
}

}  // namespace merlu
