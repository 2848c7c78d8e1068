#include "sheets/sheet_form.h"

#include <algorithm>

#include "session/main_names.h"
#include "sheets/blocks/blocks.h"

namespace merlu {
namespace {

Control Make(Kind kind, std::string name, std::string caption, std::string parent, int page = 0) {
  Control control;
  control.kind = kind;
  control.name = std::move(name);
  control.caption = std::move(caption);
  control.parent = std::move(parent);
  control.page = page;
  return control;
}

Control MakeLabel(std::string name, std::string text, std::string parent, int page = 0) {
  Control label = Make(Kind::kLabel, std::move(name), text, std::move(parent), page);
  label.text = std::move(text);
  return label;
}

void AddField(Form& form, const SheetSpec& sheet, const FieldSpec& spec) {
  const bool off_page = spec.page == kOffPage;
  const std::string parent = spec.frame.empty() ? sheet.tab() : spec.frame;
  const int page = off_page ? 0 : spec.page;
  const auto add_label = [&](const std::string& name, const std::string& text) {
    if (name.empty()) return;
    Control label = MakeLabel(name, text, parent, page);
    label.block = spec.block;
    form.Add(std::move(label));
  };
  Control field = Make(spec.kind, spec.control, spec.caption, parent, page);
  field.tag = spec.tag;
  field.block = spec.block;
  field.label = spec.label;
  field.note = spec.note_label;
  field.free_text = spec.free_text;
  field.visible = !off_page;
  field.numeric = spec.stored == Stored::kNumber || spec.stored == Stored::kComputed;
  for (const Item& item : spec.items) field.items.push_back(item.text);
  add_label(spec.label, spec.caption);
  form.Add(std::move(field));
  add_label(spec.note_label, spec.note);
}

// They come after the last fields of the month.
std::string MonthlyBlock(const SheetSpec& sheet) {
  std::string block = "Comments";
  for (const FieldSpec& field : sheet.fields)
    if (field.mode == In::kActv) block = field.block;
  return block;
}

void AddStatusAndComments(Form& form, const SheetSpec& sheet) {
  const std::string block = MonthlyBlock(sheet);
  if (sheet.has_activity) {
    form.Add(Make(Kind::kFrame, names::Frame1, "", sheet.tab()));
    Control status = Make(Kind::kCheck, sheet.status_box(), "No Emissions to Report", names::Frame1);
    status.block = block;
    form.Add(std::move(status));
    form.At(names::Frame1).visible = false;
  }
  Control label = MakeLabel(sheet.comments_label(), sheet.comments_caption, sheet.tab());
  label.block = block;
  form.Add(std::move(label));
  Control comments = Make(Kind::kText, sheet.comments(), sheet.comments_caption, sheet.tab());
  comments.tag = sheet.comments_tag;
  comments.label = sheet.comments_label();
  comments.lines = true;
  comments.block = block;
  form.Add(std::move(comments));
}

void AddResultsPage(Form& form, const SheetSpec& sheet) {
  const int page = static_cast<int>(sheet.pages.size()) - 1;
  form.Add(MakeLabel("lbl" + sheet.letters + "_QCResults", "QC Results", sheet.tab(), page));
  Control list = Make(Kind::kListView, sheet.list(), "QC Results", sheet.tab(), page);
  list.columns = {"Field Name", "Error Description", "Operator Comment"};
  form.Add(std::move(list));
  form.Add(Make(Kind::kButton, sheet.comment_button(), "Edit QC Comment", sheet.tab(), page));
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
  form.Add(Make(Kind::kFrame, sheet.frame(), sheet.title, ""));
  Control tab = Make(Kind::kTab, sheet.tab(), "", sheet.frame());
  tab.items = sheet.pages;
  form.Add(std::move(tab));
  for (const Control& control : sheet.extra) form.Add(control);
  const auto add = [&](bool monthly) {
    for (const FieldSpec& field : sheet.fields)
      if ((field.mode == In::kActv) == monthly) AddField(form, sheet, field);
  };
  // the month comes first, comments without a month last
  add(true);
  if (sheet.has_activity) AddStatusAndComments(form, sheet);
  add(false);
  if (!sheet.has_activity) AddStatusAndComments(form, sheet);
  form.Add(MakeLabel(names::lblNoEmissions, "No Emissions to Report", sheet.frame()));
  form.Add(MakeLabel(sheet.date_label(), "Date of Last QC:  0/0/00", sheet.frame()));
  AddResultsPage(form, sheet);
  form.At(names::lblNoEmissions).visible = false;
  form.KeepDesign();
  ConnectEvents(s, form, sheet);
  return form;
}

}  // namespace

Form& SheetForm(Session& s, const SheetSpec& sheet) {
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
