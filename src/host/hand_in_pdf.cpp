#include "host/hand_in_pdf.h"

#include <QBuffer>

#include <algorithm>
#include <array>

#include "host/pdf_text.h"
#include "store/files.h"

namespace merlu {
namespace {

using namespace pdf;

constexpr qreal kSignatureRoom = 44 * kPoint;

// The page in the making. Pages are painted twice: first nowhere, to learn how many there are.
class HandInPages {
 public:
  HandInPages(const HandInReport& report, QPdfWriter& writer, QPainter* painter, int pages)
      : report_(report),
        writer_(writer),
        painter_(painter),
        pages_(pages),
        title_(17, true, writer),
        strong_(9.5, true, writer),
        text_(8.5, false, writer),
        width_(writer.width()),
        height_(writer.height()) {}

  // Returns how many pages it took.
  int Paint() {
    FirstPageHead();
    Checks();
    Signature();
    for (const HandInReport::Structure& structure : report_.structures) Structure(structure);
    Foot();
    return page_;
  }

 private:
  using Cells = std::vector<QString>;
  using Widths = std::vector<qreal>;  // shares of the page's width

  qreal FootTop() const { return height_ - 2.2 * text_.LineHeight(); }
  bool HasRoom(qreal room) const { return y_ + room <= FootTop(); }

  void Text(Style& style, const QString& text, qreal x, qreal y, const QColor& color) {
    if (painter_ == nullptr) return;
    painter_->setFont(style.font());
    painter_->setPen(color);
    painter_->drawText(QPointF(x, y + style.Ascent()), text);
  }

  // Draws into a width at the present height, and moves below it.
  void Write(Style& style, const QString& text, qreal x, qreal width, const QColor& color = kInk) {
    for (const QString& line : style.Lines(text, width)) {
      Text(style, line, x, y_, color);
      y_ += style.LineHeight();
    }
  }

  void Rule(qreal from, qreal to) {
    if (painter_ == nullptr) return;
    painter_->setPen(QPen(kRule, 0.6 * kPoint));
    painter_->drawLine(QPointF(from, y_), QPointF(to, y_));
  }

  // Cells side by side, a line of each after the other; over to the next page where this one ends.
  void Row(const Cells& cells, const Widths& widths, Style& style, const QColor& color, bool heads) {
    const qreal rest = width_ - kGap * static_cast<qreal>(cells.size() - 1);
    std::vector<QStringList> lines;
    qsizetype count = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      lines.push_back(style.Lines(cells[i], rest * widths[i]));
      count = std::max(count, lines.back().size());
    }
    if (!heads && !HasRoom(static_cast<qreal>(count) * style.LineHeight())) NextPage();
    for (qsizetype at = 0; at < count; ++at) {
      if (!heads && !HasRoom(style.LineHeight())) NextPage();
      qreal x = 0;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        if (at < lines[i].size()) Text(style, lines[i].at(at), x, y_, color);
        x += rest * widths[i] + kGap;
      }
      y_ += style.LineHeight();
    }
    y_ += kGap / 4;
  }

  void FirstPageHead() {
    Write(title_, Head(report_.title), 0, width_);
    y_ += kGap / 2;
    for (const std::string& line : report_.operator_lines) Write(text_, Head(line), 0, width_, kQuiet);
    Write(text_, "Date: " + Q(SheetDate(report_.printed)) + "  ·  " + Head(report_.program), 0, width_, kQuiet);
    y_ += kGap;
    const QString verdict = Head(report_.verdict);
    const qreal band =
        strong_.LineHeight() * static_cast<qreal>(strong_.Lines(verdict, width_ - 2 * kGap).size()) + kGap;
    if (painter_ != nullptr) painter_->fillRect(QRectF(0, y_, width_, band), kBand);
    y_ += kGap / 2;
    Write(strong_, verdict, kGap, width_ - 2 * kGap);
    y_ += kGap * 1.5;
  }

  void Checks() {
    const Widths widths = {0.09, 0.47, 0.1, 0.34};
    Row({"State", "Check", "Count", "What to do"}, widths, text_, kQuiet, true);
    Rule(0, width_);
    y_ += kGap / 4;
    for (const HandInReport::Check& check : report_.checks)
      Row({Q(check.state), Q(check.check), Q(check.count), Q(check.what_to_do)}, widths, text_, kInk, false);
    y_ += kGap / 2;
    Write(text_, Head(report_.counts), 0, width_);
    y_ += kGap;
  }

  void Signature() {
    if (!HasRoom(kSignatureRoom + 2 * text_.LineHeight())) NextPage();
    y_ += kSignatureRoom;
    const std::array<const char*, 3> places = {"Name and function", "Date", "Signature"};
    const qreal width = (width_ - 2 * kGap) / 3;
    const qreal top = y_;
    for (std::size_t i = 0; i < places.size(); ++i) {
      const qreal x = static_cast<qreal>(i) * (width + kGap);
      y_ = top;
      Rule(x, x + width);
      y_ += kGap / 4;
      Text(text_, places[i], x, y_, kQuiet);
    }
    y_ += text_.LineHeight() + kGap * 2;
  }

  void Structure(const HandInReport::Structure& structure) {
    // a heading is never the last line of a page
    if (!HasRoom(7 * strong_.LineHeight())) NextPage();
    structure_ = &structure;
    StructureHead(false);
    for (const HandInReport::Finding& finding : structure.findings) {
      Row({Head(finding.record), Head(finding.field), Q(finding.value), Q(finding.expected)}, {0.34, 0.3, 0.18, 0.18},
          text_, kInk, false);
      y_ -= kGap / 4;
      const std::string said = finding.text + " (" + finding.state + ")";
      Row({"", Q(said)}, {0.03, 0.97}, text_, kQuiet, false);
      if (!finding.comment.empty()) {
        y_ -= kGap / 4;
        Row({"", "Explanation: " + Q(finding.comment)}, {0.03, 0.97}, text_, kInk, false);
      }
      Rule(0, width_);
      y_ += kGap / 4;
    }
    structure_ = nullptr;
    y_ += kGap;
  }

  void StructureHead(bool continued) {
    Write(strong_, Head(structure_->name) + (continued ? " (continued)" : ""), 0, width_);
    y_ += kGap / 4;
    Row({"Record", "Field", "Value", "Expected"}, {0.34, 0.3, 0.18, 0.18}, text_, kQuiet, true);
    Rule(0, width_);
    y_ += kGap / 4;
  }

  void Foot() {
    y_ = FootTop() + text_.LineHeight() / 2;
    Rule(0, width_);
    y_ += kGap / 4;
    const std::string name = report_.operator_lines.empty() ? "" : " · " + report_.operator_lines.front();
    const std::string made = SheetDate(report_.printed) + " · " + report_.program + " · ";
    Text(text_, text_.Elided(Head(made + report_.title + name), width_ * 0.85), 0, y_, kQuiet);
    const QString page = "Page " + QString::number(page_) + " of " + QString::number(std::max(pages_, page_));
    Text(text_, page, width_ - text_.Width(page), y_, kQuiet);
  }

  void NextPage() {
    Foot();
    if (painter_ != nullptr) writer_.newPage();
    ++page_;
    y_ = 0;
    if (structure_ != nullptr) StructureHead(true);
  }

  const HandInReport& report_;
  QPdfWriter& writer_;
  QPainter* painter_;
  const int pages_;
  Style title_, strong_, text_;
  const qreal width_, height_;
  qreal y_ = 0;
  int page_ = 1;
  const HandInReport::Structure* structure_ = nullptr;
};

}  // namespace

void WriteHandInPdf(const HandInReport& report, const std::string& path) {
  // made in memory: what cannot be written is then noticed for certain
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    SetUpPages(writer, Q(report.title));
    const int pages = HandInPages(report, writer, nullptr, 0).Paint();
    QPainter painter(&writer);
    HandInPages(report, writer, &painter, pages).Paint();
  }
  const QByteArray& data = bytes.data();
  WriteBytes(path, {std::string_view(data.constData(), static_cast<std::size_t>(data.size()))});
}

}  // namespace merlu
