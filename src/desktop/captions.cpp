#include "desktop/captions.h"

#include <QRegularExpression>

namespace merlu {
namespace {

// Keeps a unit of several words on one line.
QString WholeUnit(QString caption) {
  constexpr qsizetype kLongest = 16;
  const qsizetype open = caption.lastIndexOf('('), close = caption.indexOf(')', open);
  if (open >= 0 && close > open && close - open <= kLongest)
    for (qsizetype at = open; at < close; ++at)
      if (caption[at] == ' ') caption[at] = QChar::Nbsp;
  return caption;
}

}  // namespace

QString LabelText(const Control& control) {
  if (!control.caption.empty()) return WholeUnit(QString::fromStdString(control.caption));
  return control.tag.empty() ? QString() : QString::fromStdString(control.tag) + ":";
}

QString SpokenCaption(const Control& control) {
  static const QRegularExpression mnemonic("&(.)");
  return LabelText(control).replace(mnemonic, "\\1").replace(QChar::Nbsp, ' ');
}

QString UnitOf(const Control& control) {
  constexpr qsizetype kLongest = 24;
  const QString caption = SpokenCaption(control);
  const qsizetype open = caption.lastIndexOf('('), close = caption.indexOf(')', open);
  const bool is_unit = control.numeric && open >= 0 && close > open && close - open <= kLongest;
  return is_unit ? caption.mid(open + 1, close - open - 1) : QString();
}

}  // namespace merlu
