#include "desktop/table_panel.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

#include "desktop/fields.h"

namespace merlu {
namespace {

constexpr int kTableWidth = 480, kTableHeight = 140;

bool IsTable(const Control& control) {
  return control.kind == Kind::kListView || control.kind == Kind::kGrid;
}

bool IsField(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList || kind == Kind::kCheck;
}

void AddField(const Control& control, QWidget& place, FormBinding& binding, QHBoxLayout& row) {
  Bound& bound = binding.AddField(control, &place, control.kind != Kind::kCheck);
  if (bound.caption != nullptr) {
    bound.caption->setWordWrap(false);
    row.addWidget(bound.caption);
    row.addSpacing(2);
  }
  if (auto* line = qobject_cast<QLineEdit*>(bound.widget)) AddClearButton(*line);
  row.addWidget(bound.row, control.kind == Kind::kText ? 1 : 0);
  row.addSpacing(8);
}

}  // namespace

bool IsTablePanel(const Form& form) {
  return !form.dock.empty() || std::any_of(form.controls().begin(), form.controls().end(),
                                           [](const Control& control) { return control.kind == Kind::kGrid; });
}

void FillTablePanel(QWidget& place, FormBinding& binding) {
  const Form& form = binding.form();
  auto* column = new QVBoxLayout(&place);
  column->setSpacing(8);
  auto* fields = new QHBoxLayout;
  auto* below = new QHBoxLayout;
  fields->setSpacing(4);
  below->setSpacing(8);
  QWidget* main = nullptr;
  bool has_fields = false;
  for (const Control& control : form.controls()) {
    if (IsField(control.kind)) {
      AddField(control, place, binding, *fields);
      has_fields = true;
    } else if (control.kind == Kind::kLabel && !binding.IsCaptionOrNote(control.name)) {
      below->addWidget(binding.AddLabel(control, &place).widget, 1);
    } else if (control.kind == Kind::kButton) {
      QWidget* button = binding.AddButton(control, &place).widget;
      if (control.name == form.default_button)
        main = button;
      else
        below->addWidget(button);
    }
  }
  if (has_fields) {
    fields->addStretch(0);
    column->addLayout(fields);
  }
  for (const Control& control : form.controls()) {
    if (!IsTable(control)) continue;
    QWidget* table =
        control.kind == Kind::kGrid ? binding.AddGrid(control, &place).widget : binding.AddList(control, &place).widget;
    table->setMinimumSize(kTableWidth, kTableHeight);
    column->addWidget(table, 1);
  }
  if (main != nullptr) below->addWidget(main);
  column->addLayout(below);
}

}  // namespace merlu
