// A form beside the sheet, in a window that can be put at any side of the main one, or taken off it.
#pragma once

#include <QDockWidget>

#include "desktop/binding.h"

namespace merlu {

class DockWindow : public QDockWidget {
  Q_OBJECT
 public:
  DockWindow(Acts& acts, Form& form, QWidget* parent);
  Form& form() { return binding_.form(); }
  void Sync();
  // Gives the keyboard to its list.
  void FocusTable();

 protected:
  // Its own button gives the menu command that hides it.
  void closeEvent(QCloseEvent* event) override;

 private:
  Acts& acts_;
  FormBinding binding_;
  class StripBars* bars_ = nullptr;  // in the strip's dock only
};

}  // namespace merlu
