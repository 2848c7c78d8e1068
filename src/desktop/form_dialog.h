// A logical form shown as a dialog: fields in a grid, the buttons below.
#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include "desktop/binding.h"

namespace merlu {

// What every dialog of a form does.
class DialogWindow : public QDialog {
  Q_OBJECT
 public:
  DialogWindow(Acts& acts, Form& form, QWidget* parent);
  virtual void Sync();

  // From a line of text the arrow keys go through the rows of the list below it.
  void keyPressEvent(QKeyEvent* event) override;

  // Closing the window and Escape press the form's cancel button.
  void reject() override;

 protected:
  Acts& acts_;
  FormBinding binding_;

 private:
  // Help for the dialog, at the field that has the focus.
  void ShowHelpHere();
  // Ctrl+Return, and in a table Ctrl+S.
  void PressMainAct();
};

class FormDialog : public DialogWindow {
  Q_OBJECT
 public:
  FormDialog(Acts& acts, Form& form, QWidget* parent);
  void Sync() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void FillGrid();
  void AddField(const Control& control);
  void AddLabel(const Control& control);
  void AddList(const Control& control);
  // Places it beside its field, or in the row at the bottom, where the main button comes last.
  void AddButton(const Control& control);

  QGridLayout* grid_ = nullptr;
  QHBoxLayout* buttons_ = nullptr;
  QPushButton *main_ = nullptr, *cancel_ = nullptr, *last_ = nullptr;
  int row_ = 0, columns_ = 3;
};

}  // namespace merlu
