#include "desktop/dock_window.h"

#include <QCloseEvent>

#include "desktop/table_panel.h"

namespace merlu {

DockWindow::DockWindow(Acts& acts, Form& form, QWidget* parent)
    : QDockWidget(parent), acts_(acts), binding_(acts, form, this) {
  setObjectName(QString::fromStdString(form.name()));
  auto* place = new QWidget(this);
  FillTablePanel(*place, binding_);
  setWidget(place);
}

void DockWindow::Sync() {
  setWindowTitle(QString::fromStdString(form().caption));
  binding_.Sync();
  binding_.TakeFocus();
}

void DockWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  acts_.Do([&] { return act::Click(acts_.s.desk, *acts_.s.main, form().dock); });
}

}  // namespace merlu
