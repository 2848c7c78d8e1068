#include "host/pdf_text.h"

#include <QPageLayout>

#include <algorithm>

#include "base/text.h"

namespace merlu::pdf {
namespace {

constexpr qsizetype kMostInHead = 300;  // of texts that repeat on every page

}  // namespace

QString Q(const std::string& text) {
  QString line = QString::fromStdString(text);
  for (QChar& c : line)
    if (c.category() == QChar::Other_Control || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) c = ' ';
  return line;
}

QString Head(const std::string& text) {
  // of a long text no more is looked at than is shown: heads are made anew for every page
  const QString line = Q(FirstCharacters(text, kMostInHead + 1));
  return line.size() > kMostInHead ? line.left(kMostInHead) + QChar(0x2026) : line;
}

Style::Style(qreal points, bool bold, const QPdfWriter& device) {
  font_.setFamilies({"DejaVu Sans", "Noto Sans", "sans-serif"});
  font_.setPointSizeF(points);
  font_.setBold(bold);
  // a trace of spacing keeps letters apart that a font would join, so that copied texts are what was written
  font_.setLetterSpacing(QFont::AbsoluteSpacing, 0.25);
  metrics_ = std::make_unique<QFontMetricsF>(font_, const_cast<QPdfWriter*>(&device));
}

const QStringList& Style::Lines(const QString& text, qreal width) {
  QHash<QString, QStringList>& broken = broken_[qRound64(width)];
  const auto found = broken.constFind(text);
  if (found != broken.constEnd()) return *found;
  return *broken.insert(text, Break(text, width));
}

// Costs in proportion to the text, whatever it holds: nothing longer than a line can be is ever measured.
QStringList Style::Break(const QString& text, qreal width) const {
  QStringList lines;
  QString line;
  for (QStringView word : QStringView(text).split(' ')) {
    if (word.size() <= kMostInLine) {
      const QString longer = line.isEmpty() ? word.toString() : line + ' ' + word.toString();
      if (longer.size() <= kMostInLine && Width(longer) <= width) {
        line = longer;
        continue;
      }
    }
    if (!line.isEmpty()) lines << line;
    qsizetype guess = 0;
    while (word.size() > 1 && (word.size() > kMostInLine || Width(word.toString()) > width)) {
      lines << CutToWidth(word, width, guess);
      guess = lines.back().size();
    }
    line = word.toString();
  }
  lines << line;
  return lines;
}

// Takes from a word that is wider than its column as much as fits. As much as fitted before is tried first: most of a
// word without blanks is cut into pieces of nearly one length.
QString Style::CutToWidth(QStringView& word, qreal width, qsizetype guess) const {
  qsizetype count = 1, too_many = std::min(word.size(), kMostInLine);
  for (qsizetype step = 1; too_many - count > 1;) {
    qsizetype at = (count + too_many) / 2;
    if (guess > count && guess < too_many) at = guess;
    const bool fits = Width(word.left(at).toString()) <= width;
    (fits ? count : too_many) = at;
    // away from the guess in growing steps until what fits and what does not stand close
    guess = at == guess ? at + (fits ? step : -step) : 0;
    step *= 2;
  }
  if (word.at(count - 1).isHighSurrogate()) count += count > 1 ? -1 : 1;
  const QString head = word.left(count).toString();
  word = word.mid(count);
  return head;
}

void SetUpPages(QPdfWriter& writer, const QString& title) {
  writer.setResolution(kResolution);
  writer.setPageSize(QPageSize(QPageSize::Letter));
  writer.setPageMargins(QMarginsF(kMargin / kPoint, kMargin / kPoint, kMargin / kPoint, kMargin / kPoint),
                        QPageLayout::Point);
  writer.setTitle(title);
  writer.setCreator("MERLU-2017");
}

}  // namespace merlu::pdf
