#include "desktop/form_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace merlu {
namespace {

bool IsField(Kind kind) {
  return kind == Kind::kText || kind == Kind::kMasked || kind == Kind::kList;
}

}  // namespace

DialogWindow::DialogWindow(Acts& acts, Form& form, QWidget* parent)
    : QDialog(parent), acts_(acts), binding_(acts, form, this) {
  setObjectName(QString::fromStdString(form.name()));
  setModal(true);
}

FormDialog::FormDialog(Acts& acts, Form& form, QWidget* parent) : DialogWindow(acts, form, parent) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 16, 16, 16);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(8);
  grid->setColumnMinimumWidth(1, 300);
  grid->setColumnStretch(1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch(1);
  int row = 0;
  QPushButton* main = nullptr;
  for (const Control& control : form.controls()) {
    if (IsField(control.kind)) {
      Bound& bound = binding_.AddField(control, this, true);
      bound.caption->setWordWrap(false);
      grid->addWidget(bound.caption, row, 0,
                      control.lines ? Qt::AlignRight | Qt::AlignTop : Qt::AlignRight | Qt::AlignVCenter);
      grid->addWidget(bound.row, row, 1);
      if (!control.tip.empty()) grid->addWidget(new QLabel(QString::fromStdString(control.tip), this), row, 2);
      ++row;
    } else if (control.kind == Kind::kLabel) {
      QWidget* label = binding_.AddLabel(control, this).widget;
      QFont font = label->font();
      font.setBold(row == 0);
      label->setFont(font);
      grid->addWidget(label, row++, 0, 1, 3);
    } else if (control.kind == Kind::kButton) {
      auto* button = static_cast<QPushButton*>(binding_.AddButton(control, this).widget);
      if (control.name == form.default_button)
        main = button;
      else
        buttons->addWidget(button);
    }
  }
  if (main != nullptr) {
    main->setDefault(true);
    SetLook(*main, "main", true);
    buttons->addWidget(main);
  }
  grid->addLayout(buttons, row, 0, 1, 3);
  grid->setRowMinimumHeight(row, 46);
}

void DialogWindow::Sync() {
  setWindowTitle(QString::fromStdString(binding_.form().caption));
  binding_.Sync();
  binding_.TakeFocus();
}

void DialogWindow::reject() {
  Form& form = binding_.form();
  acts_.Do([&] { return act::Click(acts_.s.desk, form, form.cancel_button); });
}

}  // namespace merlu
