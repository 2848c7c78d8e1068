#include "desktop/fields.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include "desktop/look.h"

namespace merlu {

void SetLook(QWidget& widget, const char* property, const QVariant& value) {
  if (widget.property(property) == value) return;
  widget.setProperty(property, value);
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

const char* LookName(Back back) {
  return back == Back::kFlag ? "flag" : back == Back::kFace ? "face" : "window";
}

void LineField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  entered_by_mouse_ = event->reason() == Qt::MouseFocusReason;
  selectAll();
}

void LineField::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  // the press that entered the field would otherwise have put the caret into the selected text
  if (entered_by_mouse_ && !hasSelectedText()) selectAll();
  entered_by_mouse_ = false;
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  setTextFormat(Qt::PlainText);
}

QString ElidedLabel::Shown() const {
  return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), Shown(),
                        foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Shown() == text()) return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
  return true;
}

void TitleLabel::ShowTitle(const QString& text, bool bold) {
  setText(text);
  bold_ = bold;
  Fit();
}

void TitleLabel::resizeEvent(QResizeEvent* event) {
  ElidedLabel::resizeEvent(event);
  Fit();
}

void TitleLabel::Fit() {
  constexpr int kLargest = 145, kPlain = 100, kStep = 5;  // percent of plain text
  const qreal plain = parentWidget()->font().pointSizeF();
  QFont fitting = font();
  fitting.setBold(true);
  fitting.setPointSizeF(plain * kLargest / 100);
  setFixedHeight(QFontMetrics(fitting).height());
  fitting.setBold(bold_);
  for (int size = kLargest; size >= kPlain; size -= kStep) {
    fitting.setPointSizeF(plain * size / 100);
    if (QFontMetrics(fitting).horizontalAdvance(text()) <= contentsRect().width()) break;
  }
  if (font() != fitting) setFont(fitting);
}

ListField::ListField(QWidget* parent) : QComboBox(parent) {
  setSizeAdjustPolicy(QComboBox::AdjustToContents);
  setFocusPolicy(Qt::StrongFocus);
}

void ListField::SetState(bool locked, Back back) {
  locked_ = locked;
  back_ = back;
  if (lineEdit() != nullptr) {
    lineEdit()->setReadOnly(locked);
    // the list paints the ground, so that all lists tell their state in the same way
    QPalette colours = lineEdit()->palette();
    colours.setColor(QPalette::Base, Qt::transparent);
    colours.setColor(QPalette::Text, InkOfText());
    lineEdit()->setPalette(colours);
  }
  update();
}

QColor ListField::InkOfText() const {
  if (!isEnabled()) return Quiet(palette());
  return back_ == Back::kFlag ? QColor(kFlagText) : palette().color(QPalette::WindowText);
}

void ListField::showPopup() {
  if (locked_) return;
  view()->installEventFilter(this);
  QComboBox::showPopup();
}

// Escape closes the list that is open, and is no command of the window.
bool ListField::eventFilter(QObject* watched, QEvent* event) {
  const bool escapes =
      event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (escapes) event->accept();
  return escapes || QComboBox::eventFilter(watched, event);
}

QSize ListField::sizeHint() const {
  int widest = fontMetrics().horizontalAdvance(QString(11, '0'));
  for (int i = 0; i < count(); ++i) widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(i)));
  return {widest + 42, fontMetrics().height() + 10};
}

void ListField::wheelEvent(QWheelEvent* event) {
  // a list under the pointer must not change while the page is scrolled
  event->ignore();
}

void ListField::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return QApplication::clipboard()->setText(currentText());
  if (locked_) return event->ignore();
  QComboBox::keyPressEvent(event);
}

void ListField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool flagged = isEnabled() && back_ == Back::kFlag;
  const bool plain = isEnabled() && back_ == Back::kWindow;
  const QColor ground = flagged ? kFlagBack : plain ? palette().color(QPalette::Base) : FaceColour(palette());
  const QColor ink = InkOfText();
  const bool focused = hasFocus() || (lineEdit() != nullptr && lineEdit()->hasFocus());
  const QColor border = focused ? Accent(palette()) : plain ? Border(palette()) : Line(palette());
  painter.setBrush(ground);
  painter.setPen(QPen(border, focused ? 2 : 1));
  const qreal inset = focused ? 1 : 0.5;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3, 3);
  if (lineEdit() == nullptr) {
    painter.setPen(ink);
    const QRect room = rect().adjusted(8, 0, -26, 0);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width()));
  }
  if (locked_) return;
  const QPointF tip(width() - 14, height() / 2.0 + 2);
  painter.setPen(QPen(isEnabled() ? ink : Line(palette()), 1.5));
  painter.drawPolyline(QPolygonF({tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)}));
}

NotesField::NotesField(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
}

void NotesField::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason) selectAll();
}

}  // namespace merlu
