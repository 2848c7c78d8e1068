#include "desktop/dock_window.h"

#include <QAbstractItemView>
#include <QCloseEvent>

#include "desktop/look.h"
#include "desktop/strip_bars.h"
#include "desktop/table_panel.h"
#include "shell/strip_dock.h"

namespace merlu {

DockWindow::DockWindow(Acts& acts, Form& form, QWidget* parent)
    : QDockWidget(parent), acts_(acts), binding_(acts, form, this) {
  setObjectName(QString::fromStdString(form.name()));
  binding_.LeaveOutMarks();
  auto* place = new QWidget(this);
  if (form.name() == strip_dock::kForm)
    bars_ = FillStripPanel(*place, binding_, acts_);
  else
    FillTablePanel(*place, binding_);
  setWidget(place);
  if (bars_ != nullptr && IsLowScreen(*this)) setTitleBarWidget(new QWidget(this));  // its line is the sheet's
}

void DockWindow::Sync() {
  setWindowTitle(QString::fromStdString(form().caption));
  binding_.Sync();
  if (bars_ != nullptr) bars_->Sync();
  binding_.TakeFocus();
}

void DockWindow::FocusTable() {
  if (auto* table = findChild<QAbstractItemView*>()) table->setFocus(Qt::TabFocusReason);
}

void DockWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  acts_.Do([&] { return act::Click(acts_.s.desk, *acts_.s.main, form().dock); });
}

}  // namespace merlu
