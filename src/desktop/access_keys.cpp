#include "desktop/access_keys.h"

namespace merlu {
namespace {

// Where the mark goes: -1 when no letter is free.
qsizetype PlaceFor(const QString& caption, const QString& taken) {
  const auto is_free = [&](qsizetype at) { return caption[at].isLetter() && !taken.contains(caption[at].toUpper()); };
  for (qsizetype at = 0; at < caption.size(); ++at)
    if ((at == 0 || caption[at - 1] == ' ') && is_free(at)) return at;
  for (qsizetype at = 0; at < caption.size(); ++at)
    if (is_free(at)) return at;
  return -1;
}

}  // namespace

QChar AccessKey(const QString& caption) {
  for (qsizetype at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != '&') continue;
    if (caption[at + 1] != '&') return caption[at + 1].toUpper();
    ++at;  // two of them are a plain one
  }
  return {};
}

QStringList WithAccessKeys(QStringList captions) {
  QString taken;
  for (const QString& caption : captions)
    if (const QChar key = AccessKey(caption); !key.isNull()) taken += key;
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
