#include "forms/dialog.h"

namespace merlu {
namespace {

Control& Add(Form& form, Kind kind, const std::string& name, const std::string& caption) {
  Control control;
  control.kind = kind;
  control.name = name;
  control.caption = caption;
  return form.Add(std::move(control));
}

}  // namespace

Control& AddText(Form& form, const std::string& name, const std::string& caption, int limit) {
  Control& control = Add(form, Kind::kText, name, caption);
  control.limit = limit;
  return control;
}

Control& AddList(Form& form, const std::string& name, const std::string& caption, std::vector<std::string> items) {
  Control& control = Add(form, Kind::kList, name, caption);
  control.items = std::move(items);
  return control;
}

Control& AddListView(Form& form, const std::string& name, const std::string& caption,
                     std::vector<std::string> columns) {
  Control& control = Add(form, Kind::kListView, name, caption);
  control.columns = std::move(columns);
  control.many = true;
  return control;
}

Control& AddListView(Form& form, const std::string& name, const std::string& caption, std::vector<std::string> columns,
                     std::shared_ptr<ListModel> model) {
  Control& control = AddListView(form, name, caption, std::move(columns));
  control.model = std::move(model);
  return control;
}

Control& AddGrid(Form& form, const std::string& name, const std::string& caption, std::shared_ptr<GridModel> model) {
  Control& control = Add(form, Kind::kGrid, name, caption);
  control.grid = std::move(model);
  control.many = true;
  return control;
}

Control& AddLabel(Form& form, const std::string& name, const std::string& text) {
  Control& control = Add(form, Kind::kLabel, name, text);
  control.text = text;
  return control;
}

Control& AddButton(Form& form, const std::string& name, const std::string& caption) {
  return Add(form, Kind::kButton, name, caption);
}

void AddDialogButtons(Form& form, const std::string& ok, const std::string& cancel) {
  AddButton(form, ok, "OK");
  AddButton(form, cancel, "Cancel");
  form.default_button = ok;
  form.cancel_button = cancel;
}

}  // namespace merlu
