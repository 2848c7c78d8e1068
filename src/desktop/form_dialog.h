// A logical form shown as a dialog: fields in a grid, the buttons below.
#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

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
  void AddField(const Control& control);
  void AddLabel(const Control& control);
  void AddList(const Control& control);
  // Beside its field, or in the row at the bottom, the main one last.
  void AddButton(const Control& control);

  Acts& acts_;
  FormBinding binding_;
  QGridLayout* grid_ = nullptr;
  QHBoxLayout* buttons_ = nullptr;
  QPushButton* main_ = nullptr;
  int row_ = 0;
};

}  // namespace merlu
