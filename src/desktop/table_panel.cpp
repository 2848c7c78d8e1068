#include "desktop/table_panel.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

#include "desktop/fields.h"
#include "desktop/flow_row.h"
#include "desktop/look.h"

namespace merlu {
namespace {

constexpr int kTableWidth = 480, kTableLines = 5, kFewLines = 3, kFilterWidth = 160;

bool IsTable(const Control& control) {
  return control.kind == Kind::kListView || control.kind == Kind::kGrid;
}

bool IsField(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList || kind == Kind::kCheck;
}

// A field after its caption; both are visible when the field is.
void AddField(const Control& control, QWidget& place, FormBinding& binding, FlowRow& row) {
  Bound& bound = binding.AddField(control, &place, control.kind != Kind::kCheck);
  if (auto* line = qobject_cast<QLineEdit*>(bound.widget)) AddClearButton(*line);
  if (control.kind == Kind::kText) bound.widget->setMinimumWidth(kFilterWidth);
  if (bound.caption != nullptr) {
    bound.caption->setWordWrap(false);
    auto* inside = static_cast<QHBoxLayout*>(bound.row->layout());
    inside->insertWidget(0, bound.caption);
  }
  if (control.kind == Kind::kText)
    row.AddWide(bound.row);
  else
    row.addWidget(bound.row);
}

}  // namespace

bool IsTablePanel(const Form& form) {
  return !form.dock.empty() || std::any_of(form.controls().begin(), form.controls().end(),
                                           [](const Control& control) { return control.kind == Kind::kGrid; });
}

void FillTablePanel(QWidget& place, FormBinding& binding) {
  const Form& form = binding.form();
  auto* column = new QVBoxLayout(&place);
  const bool low = IsLowScreen(place) && !form.dock.empty();  // beside a sheet
  column->setSpacing(low ? 4 : 8);
  if (low) column->setContentsMargins(8, 2, 8, 2);
  auto* fields = new FlowRow(16, low ? 2 : 6);
  auto* below = new QHBoxLayout;
  below->setSpacing(8);
  std::vector<QWidget*> buttons, said;
  QWidget* way_out = nullptr;
  for (const Control& control : form.controls()) {
    if (IsField(control.kind)) {
      AddField(control, place, binding, *fields);
    } else if (control.kind == Kind::kLabel && !binding.IsCaptionOrNote(control.name)) {
      said.push_back(binding.AddLabel(control, &place).widget);
    } else if (control.kind == Kind::kButton) {
      QWidget* button = binding.AddButton(control, &place).widget;
      if (control.name == form.cancel_button)
        way_out = button;
      else
        buttons.push_back(button);
    }
  }
  if (fields->count() > 0)
    column->addLayout(fields);
  else
    delete fields;
  for (const Control& control : form.controls()) {
    if (!IsTable(control)) continue;
    QWidget* table =
        control.kind == Kind::kGrid ? binding.AddGrid(control, &place).widget : binding.AddList(control, &place).widget;
    table->setMinimumSize(kTableWidth, (low ? kFewLines : kTableLines) * table->fontMetrics().height());
    column->addWidget(table, 1);
  }
  // the last text is beside the buttons
  for (QWidget* label : said)
    if (label == said.back())
      below->addWidget(label, 1);
    else
      column->addWidget(label);
  // as in every dialog Cancel comes before the main button, which is the last
  for (QWidget* button : buttons) {
    if (way_out != nullptr && button == buttons.back()) {
      below->addWidget(way_out);
      SetLook(*button, "main", true);
    }
    below->addWidget(button);
  }
  column->addLayout(below);
}

}  // namespace merlu
