#include "desktop/access_keys.h"

namespace merlu {
namespace {

// The place for the mark: -1 when no letter is free.
qsizetype PlaceFor(const QString& caption, const QString& taken) {
  const auto is_free = [&](qsizetype at) { return caption[at].isLetter() && !taken.contains(caption[at].toUpper()); };
  for (qsizetype at = 0; at < caption.size(); ++at)
    if ((at == 0 || caption[at - 1] == ' ') && is_free(at)) return at;
  for (qsizetype at = 0; at < caption.size(); ++at)
    if (is_free(at)) return at;
  return -1;
}

// The place of the mark, -1 without one.
qsizetype MarkOf(const QString& caption) {
  for (qsizetype at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != '&') continue;
    if (caption[at + 1] != '&') return at;
    ++at;  // two of them are a plain one
  }
  return -1;
}

}  // namespace

QChar AccessKey(const QString& caption) {
  const qsizetype mark = MarkOf(caption);
  return mark < 0 ? QChar() : caption[mark + 1].toUpper();
}

QStringList WithAccessKeys(QStringList captions) {
  QString taken;
  for (QString& caption : captions) {
    const QChar key = AccessKey(caption);
    if (key.isNull()) continue;
    if (!taken.contains(key))
      taken += key;
    else
      caption.remove(MarkOf(caption), 1);  // it takes another below
  }
  for (QString& caption : captions) {
    if (caption == "-" || !AccessKey(caption).isNull()) continue;
    const qsizetype place = PlaceFor(caption, taken);
    if (place < 0) continue;
    taken += caption[place].toUpper();
    caption.insert(place, '&');
  }
  return captions;
}

}  // namespace merlu
