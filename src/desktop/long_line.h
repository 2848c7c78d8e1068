// Texts of any length in lines: laying out a megabyte takes a second each time.
#pragma once

#include <QString>

class QLineEdit;

namespace merlu {

inline constexpr qsizetype kMostShown = 2000;  // characters
// As much of a text as a label or an idle line shows, with an ellipsis when that is not all.
QString Beginning(const QString& text, qsizetype most = kMostShown);
// A text of which the middle is elided, before the rest of it is measured.
QString WithoutMiddle(const QString& text);

// Shows the text in the line: of a long one the beginning, and all of it from the moment the user can change it.
void ShowLine(QLineEdit& line, const QString& text);
// All of what the line holds, shown or not.
QString WholeText(const QLineEdit& line);

}  // namespace merlu
