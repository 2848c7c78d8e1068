// The widgets of fields. Each shows its control's state in one of four looks: editable, read-only, disabled, flagged.
#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "forms/control.h"

namespace merlu {

// Sets the property that the style sheet reads, and repolishes when it changed.
void SetLook(QWidget& widget, const char* property, const QVariant& value);
// "window", "face" or "flag".
const char* LookName(Back back);

// Whether a focus of this reason enters or leaves a field: not so when a menu, a list or another window takes it for a
// while and gives it back.
bool IsEntered(Qt::FocusReason reason);

// A line of text or a masked box. Its text is selected when the field is entered. A text too long for the field shows
// its beginning and an ellipsis while the field does not have the focus.
class LineField : public QLineEdit {
  Q_OBJECT
 public:
  explicit LineField(QWidget* parent) : QLineEdit(parent) {}
  void SetNumeric(bool numeric) { numeric_ = numeric; }

 signals:
  // The cells after the first one of a pasted row.
  void PastedFurther(const QStringList& cells);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void PasteCells();
  bool IsTooLong() const;

  bool entered_by_mouse_ = false, numeric_ = false;
};

// A button in the line that clears it, with a name for assistive programs.
void AddClearButton(QLineEdit& line);

// A label that never asks for more room than there is: a text that does not fit is elided in the middle and shown in
// full as a tool tip.
class ElidedLabel : public QLabel {
  Q_OBJECT
 public:
  explicit ElidedLabel(QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

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
  void SetState(bool locked, Back back, bool copied);
  bool locked() const { return locked_; }
  void showPopup() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  QSize sizeHint() const override;
  // Where the room is short its text ends in an ellipsis.
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QColor InkOfText() const;
  // Moves to the item that begins with what was typed, blanks included. False when the key types no character.
  bool Seek(const QKeyEvent& key);
  void ShowItem(int index);

  bool locked_ = false, copied_ = false;
  Back back_ = Back::kWindow;
  QString sought_;
  QElapsedTimer typed_;
};

// Several lines of text. The cursor is put after the last line when it is entered; Tab leaves it.
class NotesField : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit NotesField(QWidget* parent);

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace merlu
