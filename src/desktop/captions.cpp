#include "desktop/captions.h"

#include <QRegularExpression>

namespace merlu {
namespace {

constexpr QChar kWordJoiner(0x2060);

}  // namespace

QString WithWholeUnit(QString caption, const std::string& unit) {
  constexpr qsizetype kLongest = 16;
  static const QRegularExpression choice("\\([A-Z]/[A-Z]\\)");
  const QString shown = unit.empty() ? choice.match(caption).captured() : "(" + QString::fromStdString(unit) + ")";
  const qsizetype open = caption.indexOf(shown);
  if (shown.isEmpty() || open < 0 || shown.size() > kLongest) return caption;
  for (qsizetype at = open + shown.size() - 2; at > open; --at) {
    if (caption[at] == ' ') caption[at] = QChar::Nbsp;
    if (caption[at] == '/' || caption[at] == '-') caption.insert(at + 1, kWordJoiner);
  }
  return caption;
}

QString WithoutJoints(QString caption) {
  return caption.replace(QChar::Nbsp, ' ').remove(kWordJoiner);
}

QString LabelText(const Control& control) {
  if (!control.caption.empty()) return WithWholeUnit(QString::fromStdString(control.caption), control.unit);
  return control.tag.empty() ? QString() : QString::fromStdString(control.tag) + ":";
}

QString SpokenCaption(const Control& control) {
  static const QRegularExpression mnemonic("&(.)");
  return WithoutJoints(LabelText(control).replace(mnemonic, "\\1"));
}

}  // namespace merlu
