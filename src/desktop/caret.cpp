#include "desktop/caret.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace merlu {

Caret CaretOf(QWidget* field) {
  Caret caret{field};
  if (const auto* line = qobject_cast<QLineEdit*>(field)) {
    caret.to = line->cursorPosition();
    caret.from = !line->hasSelectedText()                           ? caret.to
                 : line->selectionStart() == line->cursorPosition() ? line->selectionEnd()
                                                                    : line->selectionStart();
  } else if (const auto* notes = qobject_cast<QPlainTextEdit*>(field)) {
    caret.from = notes->textCursor().anchor();
    caret.to = notes->textCursor().position();
  }
  return caret;
}

void PutBack(const Caret& caret) {
  if (caret.field == nullptr || !caret.field->isVisible() || !caret.field->isEnabled()) return;
  caret.field->setFocus(Qt::OtherFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(caret.field)) {
    line->setCursorPosition(caret.from);
    line->cursorForward(true, caret.to - caret.from);
  } else if (auto* notes = qobject_cast<QPlainTextEdit*>(caret.field)) {
    const int end = notes->document()->characterCount() - 1;
    QTextCursor cursor = notes->textCursor();
    cursor.setPosition(std::min(caret.from, end));
    cursor.setPosition(std::min(caret.to, end), QTextCursor::KeepAnchor);
    notes->setTextCursor(cursor);
  }
}

}  // namespace merlu
