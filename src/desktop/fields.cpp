#include "desktop/fields.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include "desktop/long_line.h"
#include "desktop/look.h"
#include "forms/pasted.h"

namespace merlu {

void SetLook(QWidget& widget, const char* property, const QVariant& value) {
  if (widget.property(property) == value) return;
  widget.setProperty(property, value);
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

namespace {

// No line on a screen shows more characters; the time to measure a text grows faster than the text.
constexpr int kMostMeasured = 1000;

// The background that the style sheet paints for the field.
QColor GroundOf(const QWidget& field) {
  const QPalette palette = QApplication::palette();
  const bool copied = field.property("copied").toBool();
  if (!field.isEnabled()) return FaceColour(palette);
  if (field.property("look") == "face") return copied ? CopiedFace(palette) : FaceColour(palette);
  if (field.property("look") == "flag") return kFlagBack;
  return copied ? CopiedGround(palette) : palette.color(QPalette::Base);
}

}  // namespace

const char* LookName(Back back) {
  return back == Back::kFlag ? "flag" : back == Back::kFace ? "face" : "window";
}

bool IsEntered(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

void LineField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  entered_by_mouse_ = event->reason() == Qt::MouseFocusReason;
  if (IsEntered(event->reason())) selectAll();
}

bool LineField::IsTooLong() const {
  constexpr int kAside = 9;
  return text().size() > kMostMeasured || fontMetrics().horizontalAdvance(text()) > width() - 2 * kAside;
}

// A text that was left shows its beginning.
void LineField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (IsEntered(event->reason()) && !isClearButtonEnabled() && IsTooLong()) setCursorPosition(0);
}

void LineField::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  // the press that entered the field would otherwise have put the caret into the selected text
  if (entered_by_mouse_ && !hasSelectedText()) selectAll();
  entered_by_mouse_ = false;
}

void LineField::PasteCells() {
  if (isReadOnly()) return;
  const std::string text = QApplication::clipboard()->text().toStdString();
  QStringList cells;
  for (const std::string& cell : PastedCells(text, numeric_)) cells << QString::fromStdString(cell);
  insert(numeric_ ? QString::fromStdString(PastedNumber(cells.front().toStdString())) : cells.front());
  cells.removeFirst();
  if (!cells.isEmpty()) emit PastedFurther(cells);
}

void LineField::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) return PasteCells();
  QLineEdit::keyPressEvent(event);
}

void LineField::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (auto* paste = menu->findChild<QAction*>("edit-paste")) {
    paste->disconnect(SIGNAL(triggered()));
    connect(paste, &QAction::triggered, this, &LineField::PasteCells);
  }
  menu->popup(event->globalPos());
}

void LineField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  constexpr int kFrame = 3;
  if (hasFocus() || isClearButtonEnabled() || !IsTooLong()) return;
  const QString dots = QStringLiteral("…");
  const int room = fontMetrics().horizontalAdvance(dots) + 4;
  const QRect end(width() - kFrame - room, kFrame, room, height() - 2 * kFrame);
  QPainter painter(this);
  // the ground of the field, whatever state it shows
  painter.fillRect(end, GroundOf(*this));
  painter.setPen(property("look") == "flag" ? QColor(kFlagText) : palette().color(QPalette::WindowText));
  painter.drawText(end, Qt::AlignVCenter | Qt::AlignLeft, dots);
}

void AddClearButton(QLineEdit& line) {
  line.setClearButtonEnabled(true);
  for (auto* button : line.findChildren<QAbstractButton*>()) button->setAccessibleName(QObject::tr("Clear"));
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::sizeHint() const {
  return text().size() > kMostMeasured ? QSize(0, fontMetrics().height()) : QLabel::sizeHint();
}

QString ElidedLabel::Shown() const {
  return fontMetrics().elidedText(WithoutMiddle(text()), Qt::ElideMiddle, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), Shown(),
                        foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Shown() == text()) return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), WithoutMiddle(text()), this);
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

void ListField::SetState(bool locked, Back back, bool copied) {
  constexpr int kAside = 6;  // the same distance from the border as in a field
  locked_ = locked;
  back_ = back;
  copied_ = copied;
  if (lineEdit() != nullptr) {
    lineEdit()->setReadOnly(locked);
    lineEdit()->setTextMargins(std::max(0, kAside - lineEdit()->x()), 0, 0, 0);
    // the list paints its background itself, so that the state looks the same in all lists
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
  if (event->type() == QEvent::KeyPress && watched == view() && lineEdit() == nullptr &&
      Seek(*static_cast<QKeyEvent*>(event)))
    return true;
  const bool escapes =
      event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (escapes) event->accept();
  return escapes || QComboBox::eventFilter(watched, event);
}

QSize ListField::sizeHint() const {
  int widest = fontMetrics().horizontalAdvance(QString(11, '0'));
  for (int i = 0; i < count(); ++i)
    widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(i).left(kMostMeasured)));
  return {widest + 42, fontMetrics().height() + 10};
}

QSize ListField::minimumSizeHint() const {
  const QSize wanted = sizeHint();
  return {std::min(wanted.width(), fontMetrics().horizontalAdvance(QString(20, '0')) + 42), wanted.height()};
}

void ListField::wheelEvent(QWheelEvent* event) {
  // a list under the pointer must not change while the page is scrolled
  event->ignore();
}

void ListField::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return QApplication::clipboard()->setText(currentText());
  if (locked_) return event->ignore();
  if (lineEdit() == nullptr && Seek(*event)) return;
  QComboBox::keyPressEvent(event);
}

bool ListField::Seek(const QKeyEvent& key) {
  constexpr int kPause = 1000;  // milliseconds after which a name begins anew
  const QString text = key.text();
  const bool plain = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  if (!plain || text.isEmpty() || !text[0].isPrint()) return false;
  const bool goes_on = typed_.isValid() && typed_.elapsed() < kPause && !sought_.isEmpty();
  if (!goes_on && text == " ") return false;
  typed_.start();
  const bool same_letter = goes_on && sought_.compare(text, Qt::CaseInsensitive) == 0;
  sought_ = goes_on && !same_letter ? sought_ + text : text;
  // the same letter again moves on to the next item that begins with it
  const int now = view()->isVisible() ? view()->currentIndex().row() : currentIndex();
  const int from = std::max(0, now + (same_letter || !goes_on ? 1 : 0));
  for (int step = 0; step < count(); ++step) {
    const int index = (from + step) % count();
    if (!itemText(index).startsWith(sought_, Qt::CaseInsensitive)) continue;
    ShowItem(index);
    break;
  }
  return true;
}

void ListField::ShowItem(int index) {
  if (view()->isVisible()) {
    view()->setCurrentIndex(model()->index(index, modelColumn(), rootModelIndex()));
  } else if (index != currentIndex()) {
    setCurrentIndex(index);
    emit activated(index);
  }
}

void ListField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool flagged = isEnabled() && back_ == Back::kFlag;
  const bool plain = isEnabled() && back_ == Back::kWindow;
  const QColor ground = flagged                  ? QColor(kFlagBack)
                        : plain && copied_       ? CopiedGround(palette())
                        : plain                  ? palette().color(QPalette::Base)
                        : isEnabled() && copied_ ? CopiedFace(palette())
                                                 : FaceColour(palette());
  const QColor ink = InkOfText();
  const bool focused = hasFocus() || (lineEdit() != nullptr && lineEdit()->hasFocus());
  const QColor border = focused ? Accent(palette()) : plain ? Border(palette()) : Line(palette());
  painter.setBrush(ground);
  // where all grounds have the same colour the border shows what cannot be chosen
  const bool dashed = !focused && (locked_ || !isEnabled()) && IsHighContrast(palette());
  painter.setPen(QPen(border, focused ? 2 : 1, dashed ? Qt::DashLine : Qt::SolidLine));
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
  if (event->reason() != Qt::MouseFocusReason && IsEntered(event->reason())) moveCursor(QTextCursor::End);
}

}  // namespace merlu
