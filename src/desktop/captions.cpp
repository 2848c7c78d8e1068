#include "desktop/captions.h"

#include <QRegularExpression>

namespace merlu {
namespace {

constexpr QChar kWordJoiner(0x2060);

}  // namespace

QString WithWholeUnit(QString caption) {
  constexpr qsizetype kLongest = 16;
  const qsizetype open = caption.lastIndexOf('('), close = caption.indexOf(')', open);
  if (open < 0 || close < open || close - open > kLongest) return caption;
  for (qsizetype at = close - 1; at > open; --at) {
    if (caption[at] == ' ') caption[at] = QChar::Nbsp;
    if (caption[at] == '/' || caption[at] == '-') caption.insert(at + 1, kWordJoiner);
  }
  return caption;
}

QString WithoutJoints(QString caption) {
  return caption.replace(QChar::Nbsp, ' ').remove(kWordJoiner);
}

QString LabelText(const Control& control) {
  if (!control.caption.empty()) return WithWholeUnit(QString::fromStdString(control.caption));
  return control.tag.empty() ? QString() : QString::fromStdString(control.tag) + ":";
}

QString SpokenCaption(const Control& control) {
  static const QRegularExpression mnemonic("&(.)");
  return WithoutJoints(LabelText(control).replace(mnemonic, "\\1"));
}

QString UnitOf(const Control& control) {
  constexpr qsizetype kLongest = 24;
  const QString caption = SpokenCaption(control);
  const qsizetype open = caption.lastIndexOf('('), close = caption.indexOf(')', open);
  const bool is_unit = control.numeric && open >= 0 && close > open && close - open <= kLongest;
  return is_unit ? caption.mid(open + 1, close - open - 1) : QString();
}

}  // namespace merlu
