#include "sheets/build.h"

namespace merlu {

namespace {

Control Make(Kind kind, const std::string& name, const std::string& caption, const ControlPlace& place) {
  Control control;
  control.kind = kind;
  control.name = name;
  control.caption = caption;
  control.parent = place.parent;
  control.page = place.page;
  control.block = place.block;
  return control;
}

}  // namespace

Control& Put(Form& form, Kind kind, const std::string& name, const std::string& caption, const ControlPlace& place) {
  return form.Add(Make(kind, name, caption, place));
}

void PutTab(Form& form, const std::string& name, std::vector<std::string> pages, const ControlPlace& place) {
  Control tab = Make(Kind::kTab, name, "", place);
  tab.items = std::move(pages);
  form.Add(std::move(tab));
}

Control& PutLabel(Form& form, const std::string& name, const std::string& text, const ControlPlace& place) {
  Control& label = Put(form, Kind::kLabel, name, text, place);
  label.text = text;
  return label;
}

void PutField(Form& form, const FieldSpec& spec, const std::string& parent) {
  const bool off_page = spec.page == kOffPage;
  const ControlPlace place{spec.frame.empty() ? parent : spec.frame, off_page ? 0 : spec.page, spec.block};
  if (!spec.label.empty()) PutLabel(form, spec.label, spec.caption, place);
  Control& field = Put(form, spec.kind, spec.control, spec.caption, place);
  field.tag = spec.tag;
  field.label = spec.label;
  field.note = spec.note_label;
  field.free_text = spec.free_text;
  field.visible = !off_page;
  field.numeric = spec.stored == Stored::kNumber || spec.stored == Stored::kComputed;
  field.unit = spec.unit;
  for (const Item& item : spec.items) field.items.push_back(item.text);
  field.mask = spec.mask;
  if (!spec.mask.empty()) field.text = Masked(spec.mask, "");
  if (!spec.note_label.empty()) PutLabel(form, spec.note_label, spec.note, place);
}

void PutResults(Form& form, const std::string& list, const std::string& button, const std::string& first_column,
                const ControlPlace& place) {
  Put(form, Kind::kListView, list, "QC Results", place).columns = {first_column, "Error Description",
                                                                   "Operator Comment"};
  Put(form, Kind::kButton, button, "Edit QC Comment", place);
}

void SetLocked(Control& field, bool locked) {
  field.locked = locked;
  field.back = locked ? Back::kFace : Back::kWindow;
}

void SetFrameTitle(Form& form, const std::string& frame, const std::string& title, bool editing) {
  form.At(frame).caption = title;
  form.At(frame).emphasis = editing;
}

void SetCaption(Form& form, const std::string& label, const std::string& text) {
  form.At(label).caption = form.At(label).text = text;
}

}  // namespace merlu
