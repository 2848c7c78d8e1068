#include "sheets/sheet_form.h"

#include <algorithm>

#include "qc/comment_dialog.h"

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
  Control field = Make(spec.kind, spec.control, spec.caption, sheet.tab(), spec.page);
  field.tag = spec.tag;
  field.block = spec.block;
  field.label = spec.label;
  field.numeric = spec.stored == Stored::kNumber || spec.stored == Stored::kComputed;
  for (const Item& item : spec.items) field.items.push_back(item.text);
  if (!spec.label.empty()) {
    Control label = MakeLabel(spec.label, spec.caption, sheet.tab(), spec.page);
    label.block = spec.block;
    form.Add(std::move(label));
  }
  form.Add(std::move(field));
}

void AddStatusAndComments(Form& form, const SheetSpec& sheet) {
  form.Add(Make(Kind::kFrame, "Frame1", "", sheet.tab()));
  form.Add(Make(Kind::kCheck, sheet.status_box(), "No Emissions to Report", "Frame1"));
  form.Add(MakeLabel(sheet.comments_label(), sheet.comments_caption, sheet.tab()));
  Control comments = Make(Kind::kText, sheet.comments(), sheet.comments_caption, sheet.tab());
  comments.tag = sheet.comments_tag;
  comments.label = sheet.comments_label();
  comments.lines = true;
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

void ConnectEvents(Session& s, Form& form, const SheetSpec& sheet) {
  form.On(sheet.tab(), Event::kClick, [&s, &form, &sheet] {
    PageMemory& memory = s.InActv() ? s.last_page_actv : s.last_page_desc;
    memory.at(static_cast<std::size_t>(sheet.number)) = static_cast<std::uint8_t>(form.At(sheet.tab()).index);
  });
  for (const Enabling& enabling : sheet.enablings) {
    if (enabling.at == Enabling::At::kUnlock || form.Handles(enabling.list, Event::kClick)) continue;
    form.On(enabling.list, Event::kClick, [&s, &form, &sheet, list = enabling.list] {
      if (s.editing) ApplyEnablings(s, form, sheet, Enabling::At::kClick, list);
    });
  }
  const auto comment = [&s, &form, list = sheet.list()] { EditQCComment(s, form, list); };
  form.On(sheet.comment_button(), Event::kClick, comment);
  form.On(sheet.list(), Event::kDoubleClick, comment);
}

Form& MakeForm(Session& s, const SheetSpec& sheet) {
  Form& form = s.desk.Own(std::make_unique<Form>(sheet.form(), sheet.title));
  form.Add(Make(Kind::kFrame, sheet.frame(), sheet.title, ""));
  Control tab = Make(Kind::kTab, sheet.tab(), "", sheet.frame());
  tab.items = sheet.pages;
  form.Add(std::move(tab));
  const auto add = [&](bool monthly) {
    for (const FieldSpec& field : sheet.fields)
      if ((field.mode == In::kActv) == monthly) AddField(form, sheet, field);
  };
  add(true);
  AddStatusAndComments(form, sheet);
  add(false);
  form.Add(MakeLabel("lblNoEmissions", "No Emissions to Report", sheet.frame()));
  form.Add(MakeLabel(sheet.date_label(), "Date of Last QC:  0/0/00", sheet.frame()));
  AddResultsPage(form, sheet);
  form.At("lblNoEmissions").visible = false;
  form.At("Frame1").visible = false;
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

void SetField(Control& field, bool on, const Enabling& how) {
  field.enabled = on;
  if (how.locks) field.locked = !on;
  if (on || !how.keeps_colour) field.back = on ? Back::kWindow : Back::kFace;
}

void ApplyEnablings(Session& s, Form& form, const SheetSpec& sheet, Enabling::At at, const std::string& list) {
  for (const Enabling& row : sheet.enablings) {
    if (row.at != Enabling::At::kBoth && row.at != at) continue;
    if (row.mode != In::kBoth && (row.mode == In::kActv) != s.InActv()) continue;
    if (!list.empty() && row.list != list) continue;
    const bool reads = std::find(row.texts.begin(), row.texts.end(), form.At(row.list).text) != row.texts.end();
    const bool on = reads == row.reads;
    if (on && row.only_off) continue;
    for (const std::string& name : row.fields) {
      Control& field = form.At(name);
      SetField(field, on, row);
      if (!on && row.empties && at == Enabling::At::kClick) field.text.clear();
    }
  }
}

}  // namespace merlu
