#include "desktop/long_line.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <limits>

namespace merlu {
namespace {

constexpr int kLongestOfToolkit = 32767;  // what a line takes unless told otherwise
constexpr const char* kName = "long line";

bool IsLong(const QString& text) {
  return text.size() > kMostShown;
}

void Put(QLineEdit& line, const QString& text) {
  const QSignalBlocker quiet(line);
  line.setText(text);
  line.setCursorPosition(0);
}

// Keeps the whole text of a line that shows its beginning, and gives it back before anything can change it.
class LongLine : public QObject {
 public:
  explicit LongLine(QLineEdit& line) : QObject(&line), line_(line) {
    setObjectName(kName);
    line.installEventFilter(this);
  }
  const QString& whole() const { return whole_; }

  void Keep(const QString& text) {
    whole_ = text;
    Put(line_, Beginning(text));
  }
  void Forget() { whole_.clear(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // a line that is being destroyed loses the focus, too, and is no line any more
    if (qobject_cast<QLineEdit*>(watched) == nullptr) return false;
    switch (event->type()) {
      case QEvent::FocusIn:
      case QEvent::KeyPress:
      case QEvent::InputMethod:
      case QEvent::MouseButtonPress:
      case QEvent::ContextMenu:
      case QEvent::Drop:
        if (!whole_.isEmpty() && !line_.isReadOnly()) {
          Put(line_, whole_);
          whole_.clear();
        }
        break;
      case QEvent::FocusOut: {
        // a menu over the line may still change it
        const Qt::FocusReason why = static_cast<QFocusEvent*>(event)->reason();
        const bool stays = why == Qt::PopupFocusReason || why == Qt::ActiveWindowFocusReason;
        if (!stays && whole_.isEmpty() && IsLong(line_.text())) Keep(line_.text());
        break;
      }
      default: break;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QLineEdit& line_;
  QString whole_;  // empty while the line shows all of it
};

LongLine* Find(const QLineEdit& line) {
  return static_cast<LongLine*>(line.findChild<QObject*>(kName, Qt::FindDirectChildrenOnly));
}

}  // namespace

QString Beginning(const QString& text, qsizetype most) {
  return text.size() > most ? text.left(most) + QStringLiteral("…") : text;
}

QString WithoutMiddle(const QString& text) {
  constexpr qsizetype kHalf = kMostShown / 2;
  return IsLong(text) ? text.left(kHalf) + QStringLiteral("…") + text.right(kHalf) : text;
}

void ShowLine(QLineEdit& line, const QString& text) {
  if (WholeText(line) == text) return;
  LongLine* kept = Find(line);
  if (kept == nullptr && IsLong(text)) kept = new LongLine(line);
  if (line.maxLength() == kLongestOfToolkit && IsLong(text)) line.setMaxLength(std::numeric_limits<int>::max());
  const bool whole = !IsLong(text) || (line.hasFocus() && !line.isReadOnly());
  if (kept != nullptr && !whole) return kept->Keep(text);
  if (kept != nullptr) kept->Forget();
  line.setText(text);
}

QString WholeText(const QLineEdit& line) {
  const LongLine* kept = Find(line);
  return kept == nullptr || kept->whole().isEmpty() ? line.text() : kept->whole();
}

}  // namespace merlu
