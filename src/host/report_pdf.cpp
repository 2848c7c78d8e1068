#include "host/report_pdf.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <array>

#include "host/pdf_text.h"
#include "store/files.h"

namespace merlu {
namespace {

using namespace pdf;

constexpr int kProgressStep = 500;

class Pages {
 public:
  Pages(const InventoryReport& report, QPdfWriter& writer, QPainter& painter)
      : report_(report),
        writer_(writer),
        painter_(painter),
        title_(17, true, writer),
        strong_(9.5, true, writer),
        text_(8.5, false, writer) {
    width_ = writer.width();
    height_ = writer.height();
    const qreal rest = width_ - 2 * kGap;
    columns_ = {rest * 0.28, rest * 0.36, rest * 0.36};
  }

  void Paint(const std::function<void(int, int)>& progress) {
    FirstPageHead();
    int done = 0;
    for (const ReportSection& section : report_.sections) {
      section_ = &section;
      SectionHead(false);
      for (const ReportLine& line : section.lines) {
        Row(line);
        if (++done % kProgressStep == 0) progress(done, report_.findings);
      }
      y_ += kGap;
    }
    Foot();
  }

 private:
  qreal FootTop() const { return height_ - 2.2 * text_.LineHeight(); }

  // Writes a text into a width at the present height; returns how far down it went.
  qreal Write(Style& style, const QString& text, qreal x, qreal width, const QColor& color = kInk) {
    painter_.setFont(style.font());
    painter_.setPen(color);
    qreal y = y_;
    for (const QString& line : style.Lines(text, width)) {
      painter_.drawText(QPointF(x, y + style.Ascent()), line);
      y += style.LineHeight();
    }
    return y - y_;
  }

  void Rule() {
    painter_.setPen(QPen(kRule, 0.6 * kPoint));
    painter_.drawLine(QPointF(0, y_), QPointF(width_, y_));
  }

  void FirstPageHead() {
    y_ += Write(title_, Head(report_.title + " " + report_.year), 0, width_);
    y_ += kGap / 2;
    for (const std::string& line : report_.operator_lines) y_ += Write(text_, Head(line), 0, width_, kQuiet);
    y_ += Write(text_, "Date of run: " + Q(SheetDate(report_.printed)), 0, width_, kQuiet);
    y_ += kGap;
    const qreal band =
        strong_.LineHeight() * static_cast<qreal>(strong_.Lines(Head(report_.summary), width_ - 2 * kGap).size()) +
        kGap;
    painter_.fillRect(QRectF(0, y_, width_, band), kBand);
    y_ += kGap / 2;
    y_ += Write(strong_, Head(report_.summary), kGap, width_ - 2 * kGap);
    y_ += kGap * 1.5;
  }

  void ColumnHeads() {
    const std::array<const char*, 3> heads = {"Equipment", "Item", "Finding"};
    qreal x = 0;
    for (std::size_t i = 0; i < heads.size(); ++i) {
      Write(text_, heads[i], x, columns_[i], kQuiet);
      x += columns_[i] + kGap;
    }
    y_ += text_.LineHeight() + kGap / 4;
    Rule();
    y_ += kGap / 4;
  }

  void SectionHead(bool continued) {
    // a heading is never the last line of a page
    if (!continued && y_ + 6 * strong_.LineHeight() > FootTop()) NextPage();
    QString heading = Head(section_->heading);
    if (!section_->place.empty()) heading = Head(section_->place) + " – " + heading;
    if (continued) heading += " (continued)";
    y_ += Write(strong_, heading, 0, width_);
    y_ += kGap / 4;
    ColumnHeads();
  }

  // A row that does not fit on a page continues on the next ones.
  void Row(const ReportLine& line) {
    const std::array<QString, 3> cells = {Q(line.where), Q(line.item), Q(line.finding)};
    std::array<QStringList, 3> lines;
    qsizetype count = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      lines[i] = text_.Lines(cells[i], columns_[i]);
      count = std::max(count, lines[i].size());
    }
    if (y_ + static_cast<qreal>(count) * text_.LineHeight() > FootTop()) GoOnOverleaf();
    painter_.setFont(text_.font());
    painter_.setPen(kInk);
    for (qsizetype at = 0; at < count; ++at) {
      if (y_ + text_.LineHeight() > FootTop()) {
        GoOnOverleaf();
        painter_.setFont(text_.font());
        painter_.setPen(kInk);
      }
      qreal x = 0;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        if (at < lines[i].size()) painter_.drawText(QPointF(x, y_ + text_.Ascent()), lines[i].at(at));
        x += columns_[i] + kGap;
      }
      y_ += text_.LineHeight();
    }
    y_ += kGap / 4;
  }

  void GoOnOverleaf() {
    NextPage();
    SectionHead(true);
  }

  void Foot() {
    y_ = FootTop() + text_.LineHeight() / 2;
    Rule();
    y_ += kGap / 4;
    const std::string name = report_.operator_lines.empty() ? "" : " · " + report_.operator_lines.front();
    painter_.setFont(text_.font());
    painter_.setPen(kQuiet);
    painter_.drawText(QPointF(0, y_ + text_.Ascent()),
                      text_.Elided(Head(report_.title + " " + report_.year + name), width_ * 0.8));
    const QString page = "Page " + QString::number(page_);
    Write(text_, page, width_ - text_.Width(page), width_, kQuiet);
  }

  void NextPage() {
    Foot();
    writer_.newPage();
    ++page_;
    y_ = 0;
  }

  const InventoryReport& report_;
  QPdfWriter& writer_;
  QPainter& painter_;
  Style title_, strong_, text_;
  std::array<qreal, 3> columns_{};
  qreal width_ = 0, height_ = 0, y_ = 0;
  int page_ = 1;
  const ReportSection* section_ = nullptr;
};

}  // namespace

void WriteReportPdf(const InventoryReport& report, const std::string& path,
                    const std::function<void(int done, int total)>& progress) {
  // made in memory: what cannot be written is then noticed for certain
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    SetUpPages(writer, Q(report.title + " " + report.year));
    QPainter painter(&writer);
    Pages(report, writer, painter).Paint(progress);
  }
  const QByteArray& data = bytes.data();
  WriteBytes(path, {std::string_view(data.constData(), static_cast<std::size_t>(data.size()))});
}

}  // namespace merlu
