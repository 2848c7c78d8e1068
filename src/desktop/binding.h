// The widgets of a logical form, each under its control's name, kept in step with the controls.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/acts.h"
#include "desktop/bound.h"
#include "desktop/fields.h"
#include "forms/desk.h"
#include "forms/form.h"

namespace merlu {

class FormBinding : public QObject {
  Q_OBJECT
 public:
  FormBinding(Acts& acts, Form& form, QObject* parent) : QObject(parent), acts_(acts), form_(form) {}

  Form& form() { return form_; }
  // Fields that no rule looks at keep no room for a mark.
  void LeaveOutMarks() { marks_ = false; }

  // A field in its own row with its mark; with a caption label when there is room for one to its left.
  Bound& AddField(const Control& control, QWidget* parent, bool with_caption);
  Bound& AddLabel(const Control& control, QWidget* parent);
  Bound& AddButton(const Control& control, QWidget* parent);
  Bound& AddList(const Control& control, QWidget* parent);
  Bound& AddGrid(const Control& control, QWidget* parent);
  Bound& AddTab(const Control& control, QWidget* parent);
  // A widget made elsewhere that only shows the control's caption and visibility.
  Bound& AddFrame(const Control& control, QWidget* widget);

  // Draws what changed. True when a field appeared or went, so that its place must be laid out anew.
  bool Sync();
  // Gives the focus that the form asks for.
  void TakeFocus();
  // Clicks a button, unless `may_press` stops it.
  void Press(const std::string& button);
  // Asked before a button's click is done, and called when it is.
  std::function<bool(const std::string& button)> may_press;
  std::function<void(const std::string& button)> pressed;
  // A double click on a row of a list that cannot be used now.
  std::function<void(const std::string& list, int row)> open_row;
  // Called when Enter is pressed in a field; true when it has moved on from there.
  std::function<bool(QWidget* from)> enter;
  // Restores the text that the field with the focus held when it was entered; false when it is unchanged.
  bool TakeBackField();
  // From now on TakeBackField restores the field's present text.
  void KeepField();
  // The open fields, in the order of the sheet.
  std::vector<QWidget*> OpenFields() const;
  // The control of the widget, or of one around it; null when it is none of the form's.
  const Control* ControlOf(const QWidget* widget) const;
  QWidget* Find(const std::string& name) const;
  // Whether the label is the caption or note of a field and is laid out with it.
  bool IsCaptionOrNote(const std::string& label) const;
  // The row that holds a field, its mark and its note.
  QWidget* RowOf(const std::string& name) const;

 signals:
  // Another field is pointed at, or none.
  void Pointed(const Control* field);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Bound& Add(const Control& control, QWidget* widget);
  QWidget* MakeField(const Control& control, QWidget* parent);
  QWidget* MakeLine(const Control& control, QWidget* parent);
  QWidget* MakeChoice(const Control& control, QWidget* parent);
  void TypeInto(const std::string& name, QLineEdit& line);
  void PasteBehind(const Control& control, const QStringList& cells);
  bool PutInto(QWidget& field, const QString& cell);
  bool HandleKey(QWidget* widget, const QKeyEvent& key);
  void EnterField(const Control& control, QWidget* named, QWidget* widget, Qt::FocusReason reason);

  Acts& acts_;
  Form& form_;
  std::vector<std::unique_ptr<Bound>> bound_;
  bool marks_ = true;
  std::string entered_, entered_text_;  // the field that was entered last, and its text then
};

}  // namespace merlu
