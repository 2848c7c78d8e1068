// Access keys of menus: every entry can be pressed by a letter.
#pragma once

#include <QStringList>

namespace merlu {

// Gives each caption of one menu its own access key. A caption keeps the key that it has, unless an earlier one has the
// same; a caption without a key gets the first free initial of its words, or else any free letter. Separators ("-") and
// captions for which no letter is left are returned unchanged.
QStringList WithAccessKeys(QStringList captions);

// The access key of a caption in upper case; null when it has none.
QChar AccessKey(const QString& caption);

}  // namespace merlu
