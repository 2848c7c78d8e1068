// The position of the text cursor, kept over something that moves the focus.
#pragma once

#include <QPointer>
#include <QWidget>

namespace merlu {

struct Caret {
  QPointer<QWidget> field;
  int from = 0, to = 0;  // the selection: its fixed end, and the cursor
};

// Of a line or a text of several lines; of any other widget only the focus.
Caret CaretOf(QWidget* field);
// Gives the focus back to the field, if it can still be used, and restores the selection.
void PutBack(const Caret& caret);

}  // namespace merlu
