// Texts on the pages of a PDF: broken into lines, drawn in one look.
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QPdfWriter>

#include <memory>
#include <string>

namespace merlu::pdf {

inline constexpr int kResolution = 600;
inline constexpr qreal kPoint = kResolution / 72.0;
inline constexpr qreal kMargin = 54 * kPoint;
inline constexpr qreal kGap = 8 * kPoint;
inline constexpr qsizetype kMostInLine = 200;  // characters; no column takes as many
inline const QColor kInk(30, 30, 30), kQuiet(95, 95, 95), kRule(200, 200, 200), kBand(240, 242, 245);

// As one line: what would break it, or cannot be drawn, becomes a blank.
QString Q(const std::string& text);
// The beginning of a text, for heads and lines that repeat on every page.
QString Head(const std::string& text);

// A font and the lines that texts make in a width; equal texts are broken once.
class Style {
 public:
  Style(qreal points, bool bold, const QPdfWriter& device);
  const QFont& font() const { return font_; }
  qreal LineHeight() const { return metrics_->height(); }
  qreal Ascent() const { return metrics_->ascent(); }
  qreal Width(const QString& text) const { return metrics_->horizontalAdvance(text); }
  QString Elided(const QString& text, qreal width) const { return metrics_->elidedText(text, Qt::ElideRight, width); }
  const QStringList& Lines(const QString& text, qreal width);

 private:
  QStringList Break(const QString& text, qreal width) const;
  QString CutToWidth(QStringView& word, qreal width, qsizetype guess) const;

  QFont font_;
  std::unique_ptr<QFontMetricsF> metrics_;
  QHash<qint64, QHash<QString, QStringList>> broken_;
};

// Sets the page, its margins and its title.
void SetUpPages(QPdfWriter& writer, const QString& title);

}  // namespace merlu::pdf
