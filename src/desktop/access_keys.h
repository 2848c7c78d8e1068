// Access keys of menus: every entry can be pressed by a letter.
#pragma once

#include <QStringList>

namespace merlu {

// The captions of one menu, each with an access key of its own. A caption keeps the key that it has, unless
// one before it has the same; one without takes the first letter of a word that is still free, or else any free letter.
// Lines ("-") and captions for which no letter is left stay as they are.
QStringList WithAccessKeys(QStringList captions);

// The letter behind the mark, in upper case; null without one.
QChar AccessKey(const QString& caption);

}  // namespace merlu
