// A logical form shown as a dialog: fields in a grid, the buttons below.
#pragma once

#include <QDialog>

#include "desktop/binding.h"

namespace merlu {

class FormDialog : public QDialog {
  Q_OBJECT
 public:
  FormDialog(Acts& acts, Form& form, QWidget* parent);
  void Sync();

  // Closing the window and Escape press the form's cancel button.
  void reject() override;

 private:
  void FillGrid();

  Acts& acts_;
  FormBinding binding_;
};

}  // namespace merlu
