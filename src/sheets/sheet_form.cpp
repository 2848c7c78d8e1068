#include "sheets/sheet_form.h"

#include <algorithm>

#include "session/main_names.h"
#include "sheets/blocks/blocks.h"
#include "sheets/build.h"

namespace merlu {
namespace {

// They come after the last fields of the month.
std::string MonthlyBlock(const SheetSpec& sheet) {
  std::string block = "Comments";
  for (const FieldSpec& field : sheet.fields)
    if (field.mode == In::kActv) block = field.block;
  return block;
}

void PutStatusAndComments(Form& form, const SheetSpec& sheet) {
  const std::string block = MonthlyBlock(sheet);
  if (sheet.has_activity) {
    Put(form, Kind::kFrame, names::Frame1, "", {sheet.tab()}).visible = false;
    Put(form, Kind::kCheck, sheet.status_box(), "No Emissions to Report", {names::Frame1, 0, block});
  }
  const ControlPlace place{sheet.tab(), 0, block};
  PutLabel(form, sheet.comments_label(), sheet.comments_caption, place);
  Control& comments = Put(form, Kind::kText, sheet.comments(), sheet.comments_caption, place);
  comments.tag = sheet.comments_tag;
  comments.label = sheet.comments_label();
  comments.lines = true;
}

void PutResultsPage(Form& form, const SheetSpec& sheet) {
  const int page = static_cast<int>(sheet.pages.size()) - 1;
  PutLabel(form, "lbl" + sheet.letters + "_QCResults", "QC Results", {sheet.tab(), page});
  PutResults(form, sheet.list(), sheet.comment_button(), "Field Name", {sheet.tab(), page});
}

// What a click on a list does: refills the list of remote vents and flares when it is the destination, and
// applies the rows of the table.
void ClickList(Session& s, Form& form, const SheetSpec& sheet, const std::string& list) {
  if (s.editing && list == sheet.destination && sheet.RefillsFor(form.At(list).text))
    LoadVentFlareList(s, form, sheet.destination, sheet.sent_to);
  ApplyEnablings(s, form, sheet, Enabling::At::kClick, list);
}

void ConnectEvents(Session& s, Form& form, const SheetSpec& sheet) {
  form.On(sheet.tab(), Event::kClick, [&s, &form, &sheet] {
    PageMemory& memory = s.InActv() ? s.last_page_actv : s.last_page_desc;
    memory.at(static_cast<std::size_t>(sheet.number)) = static_cast<std::uint8_t>(form.At(sheet.tab()).index);
  });
  for (const Enabling& enabling : sheet.enablings)
    for (const std::string& list : enabling.lists)
      if (!form.Handles(list, Event::kClick))
        form.On(list, Event::kClick, [&s, &form, &sheet, list] { ClickList(s, form, sheet, list); });
  if (sheet.connect) sheet.connect(s, form);
}

Form& MakeForm(Session& s, const SheetSpec& sheet) {
  Form& form = s.desk.Own(std::make_unique<Form>(sheet.form(), sheet.title));
  Put(form, Kind::kFrame, sheet.frame(), sheet.title, {});
  PutTab(form, sheet.tab(), sheet.pages, {sheet.frame()});
  for (const Control& control : sheet.extra) form.Add(control);
  const auto put = [&](bool monthly) {
    for (const FieldSpec& field : sheet.fields)
      if ((field.mode == In::kActv) == monthly) PutField(form, field, sheet.tab());
  };
  // the month comes first, comments without a month last
  put(true);
  if (sheet.has_activity) PutStatusAndComments(form, sheet);
  put(false);
  if (!sheet.has_activity) PutStatusAndComments(form, sheet);
  PutLabel(form, names::lblNoEmissions, "No Emissions to Report", {sheet.frame()}).visible = false;
  PutLabel(form, sheet.date_label(), "Date of Last QC:  0/0/00", {sheet.frame()});
  PutResultsPage(form, sheet);
  form.KeepDesign();
  ConnectEvents(s, form, sheet);
  return form;
}

}  // namespace

Form& SheetForm(Session& s, const SheetSpec& sheet) {
  if (!sheet.has_form()) return *s.main;
  Form* found = s.desk.Find(sheet.form());
  Form& form = found != nullptr ? *found : MakeForm(s, sheet);
  if (!form.loaded) {
    form.RestoreDesign();
    form.loaded = true;
  }
  return form;
}

void UnloadSheet(Session& s, const SheetSpec& sheet) {
  if (Form* form = s.desk.Find(sheet.form())) {
    s.desk.Hide(*form);
    form->loaded = false;
  }
}

bool IsShowing(Session& s, const SheetSpec& sheet) {
  const Form* form = s.desk.Find(sheet.form());
  return form != nullptr && form->visible;
}

namespace {

bool Applies(const Session& s, const Enabling& row, Enabling::At at, const std::string& list) {
  if (row.at != Enabling::At::kBoth && row.at != at) return false;
  if (row.mode != In::kBoth && (row.mode == In::kActv) != s.InActv()) return false;
  if (at == Enabling::At::kUnlock) return true;
  return (s.editing || row.in_view_too) && std::find(row.lists.begin(), row.lists.end(), list) != row.lists.end();
}

void Turn(Control& field, bool on, const Enabling& how, Enabling::At at) {
  if (how.does != Enabling::Does::kLock) field.enabled = on;
  if (how.does != Enabling::Does::kEnable) field.locked = !on;
  if (on || !how.keeps_colour) field.back = on ? Back::kWindow : Back::kFace;
  const bool empties = how.empties == Enabling::Empties::kAlways ||
                       (how.empties == Enabling::Empties::kAtClick && at == Enabling::At::kClick);
  if (on || !empties) return;
  field.text.clear();
  field.hint.clear();
  field.copied = false;
  field.index = -1;
}

}  // namespace

void ApplyEnablings(Session& s, Form& form, const SheetSpec& sheet, Enabling::At at, const std::string& list) {
  for (const Enabling& row : sheet.enablings) {
    if (!Applies(s, row, at, list)) continue;
    const bool on = row.when.holds(form);
    if (on ? row.only_off : row.only_on) continue;
    for (const std::string& name : row.fields) Turn(form.At(name), on, row, at);
  }
}

}  // namespace merlu
