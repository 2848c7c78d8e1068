// The widgets of fields. Each shows a control's state and tells its four looks apart: editable, read only,
// disabled, flagged.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "forms/control.h"

namespace merlu {

// Sets the property that the style sheet reads, and repolishes when it changed.
void SetLook(QWidget& widget, const char* property, const QVariant& value);
// "window", "face" or "flag".
const char* LookName(Back back);

// A line of text, or a masked box: the text is selected when the field is entered.
class LineField : public QLineEdit {
  Q_OBJECT
 public:
  explicit LineField(QWidget* parent) : QLineEdit(parent) {}

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool entered_by_mouse_ = false;
};

// A label that never asks for more room than there is: what does not fit is left out of its middle, and told
// when it is pointed at.
class ElidedLabel : public QLabel {
  Q_OBJECT
 public:
  explicit ElidedLabel(QWidget* parent);
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QString Shown() const;
};

// The title of a sheet: as large as its text allows in the room there is, down to the size of plain text. Its height
// is always that of the largest.
class TitleLabel : public ElidedLabel {
  Q_OBJECT
 public:
  explicit TitleLabel(QWidget* parent) : ElidedLabel(parent) {}
  void ShowTitle(const QString& text, bool bold);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();

  bool bold_ = false;
};

// A list of fixed items, or of items and free text. While locked it shows its text and does not open.
class ListField : public QComboBox {
  Q_OBJECT
 public:
  explicit ListField(QWidget* parent);
  void SetState(bool locked, Back back);
  bool locked() const { return locked_; }
  void showPopup() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QColor InkOfText() const;

  bool locked_ = false;
  Back back_ = Back::kWindow;
};

// Several lines of text; Tab leaves it.
class NotesField : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit NotesField(QWidget* parent);

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace merlu
