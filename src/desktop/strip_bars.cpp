#include "desktop/strip_bars.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>

#include "base/numbers.h"
#include "desktop/binding.h"
#include "desktop/look.h"
#include "shell/strip_dock.h"

namespace merlu {
namespace {

using namespace strip_dock;

constexpr int kBarsHeight = 72, kLowBars = 14, kAside = 4, kBarWidth = 30, kMonthsOfYear = 12;
constexpr int kMargin = 84;      // for the bounds
constexpr double kFarOff = 2.5;  // a bound farther than this many times the greatest value stays out of the scale

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

double NumberOf(const QString& text) {
  return LeadingNumber(text.toStdString());
}

}  // namespace

StripBars::StripBars(Acts& acts, Form& form, QWidget* parent) : QWidget(parent), acts_(acts), form_(form) {
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
  Sync();
}

void StripBars::Sync() {
  const Control& months = form_.At(kMonths);
  std::vector<Bar> bars;
  if (!months.rows.empty())
    for (const std::string& text : months.rows.front())
      bars.push_back({Q(text), IsNumericText(text), IsNumericText(text) ? LeadingNumber(text) : 0});
  const auto same = [](const Bar& a, const Bar& b) { return a.text == b.text; };
  const QString least = Q(form_.At(kLeast).text), most = Q(form_.At(kMost).text);
  if (present_ == months.at_column && least == least_ && most == most_ &&
      std::equal(bars.begin(), bars.end(), bars_.begin(), bars_.end(), same))
    return;
  bars_ = std::move(bars);
  least_ = least;
  most_ = most;
  if (present_ != months.at_column) chosen_ = std::max(0, months.at_column);
  present_ = months.at_column;
  QStringList spoken;
  for (int month = 0; month < static_cast<int>(bars_.size()); ++month) spoken << Told(month);
  setAccessibleDescription(spoken.join("; "));
  update();
}

QSize StripBars::minimumSizeHint() const {
  return {kMargin + kMonthsOfYear * (kBarWidth + kAside),
          IsLowScreen(*this) ? kLowBars + 3 * fontMetrics().height() : kBarsHeight};
}

QSize StripBars::sizeHint() const {
  return {minimumSizeHint().width() * 2, kBarsHeight + 2 * fontMetrics().height()};
}

// ---- layout ----

// The bars, between the values above and the months below.
QRect StripBars::Room() const {
  return rect().adjusted(0, fontMetrics().height() + 2, 0, -fontMetrics().height() - 2);
}

QRect StripBars::PlaceOf(int month) const {
  const int room = width() - kMargin;
  const int left = kMargin + room * month / kMonthsOfYear, right = kMargin + room * (month + 1) / kMonthsOfYear;
  return {left, 0, right - left, height()};
}

int StripBars::MonthAt(const QPoint& place) const {
  for (int month = 0; month < static_cast<int>(bars_.size()); ++month)
    if (PlaceOf(month).contains(place)) return month;
  return -1;
}

StripBars::Scale StripBars::ScaleOf() const {
  Scale scale{0, 0};
  for (const Bar& bar : bars_) {
    scale.least = std::min(scale.least, bar.number);
    scale.most = std::max(scale.most, bar.number);
  }
  const double farthest = kFarOff * std::max(scale.most, -scale.least);
  if (!most_.isEmpty() && (NumberOf(most_) <= farthest || scale.most == 0))
    scale.most = std::max(scale.most, NumberOf(most_));
  if (!least_.isEmpty() && -NumberOf(least_) <= farthest) scale.least = std::min(scale.least, NumberOf(least_));
  if (scale.most == scale.least) scale.most = scale.least + 1;
  return scale;
}

int StripBars::HeightAt(const Scale& scale, double value) const {
  const QRect room = Room();
  const double share = std::clamp((value - scale.least) / (scale.most - scale.least), 0.0, 1.0);
  return room.bottom() - static_cast<int>(share * (room.height() - 1));
}

bool StripBars::IsOutside(const Bar& bar) const {
  if (!bar.is_number) return false;
  return (!least_.isEmpty() && bar.number < NumberOf(least_)) || (!most_.isEmpty() && bar.number > NumberOf(most_));
}

QString StripBars::Told(int month) const {
  const Bar& bar = bars_[static_cast<std::size_t>(month)];
  const QString value = bar.text.isEmpty() ? tr("blank") : bar.text;
  const QString outside = IsOutside(bar) ? tr(", outside %1 to %2").arg(least_, most_) : QString();
  return tr("Month %1: %2%3").arg(month + 1).arg(value, outside) + (month == present_ ? tr(" (shown)") : QString());
}

// ---- painting ----

void StripBars::PaintBar(QPainter& painter, const Scale& scale, int month) const {
  const Bar& bar = bars_[static_cast<std::size_t>(month)];
  const QRect place = PlaceOf(month);
  const bool present = month == present_, outside = IsOutside(bar);
  const QColor ink = palette().color(QPalette::WindowText);
  if (bar.is_number) {
    const int zero = HeightAt(scale, 0), top = HeightAt(scale, bar.number);
    const QRect column =
        QRect(QPoint(place.left() + kAside, std::min(zero, top)), QPoint(place.right() - kAside, std::max(zero, top)));
    const QColor quiet = Line(palette());
    painter.fillRect(column, outside ? QColor(kFlagBack) : present ? Accent(palette()) : quiet.darker(105));
    painter.setPen(QPen(present ? ink : Border(palette()), present ? 2 : 1));
    painter.drawRect(column);
  }
  QFont font = painter.font();
  font.setBold(present);
  painter.setFont(font);
  const QFontMetrics metrics(font);
  painter.setPen(outside || present ? ink : Quiet(palette()));
  const QString value = (outside ? "! " : "") + (bar.text.isEmpty() ? QStringLiteral("–") : bar.text);
  painter.drawText(QRect(place.left(), 0, place.width(), metrics.height()), Qt::AlignCenter,
                   metrics.elidedText(value, Qt::ElideRight, place.width() - 2));
  painter.drawText(QRect(place.left(), height() - metrics.height(), place.width(), metrics.height()), Qt::AlignCenter,
                   QString::number(month + 1).rightJustified(2, '0'));
  if (hasFocus() && month == chosen_) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Accent(palette()), 2, Qt::DotLine));
    painter.drawRect(place.adjusted(1, 1, -1, -1));
  }
}

// A bound beyond the scale lies on its edge.
void StripBars::PaintBound(QPainter& painter, const Scale& scale, const QString& bound, bool is_least) const {
  if (bound.isEmpty()) return;
  const double value = NumberOf(bound);
  const bool beyond = is_least ? value < scale.least : value > scale.most;
  const int at = HeightAt(scale, value);
  painter.setPen(QPen(EditingRed(palette()), 1, Qt::DashLine));
  painter.drawLine(kMargin, at, width(), at);
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  painter.setFont(small);
  const QString text = (is_least ? "≥ " : "≤ ") + bound + (beyond ? (is_least ? " ↓" : " ↑") : "");
  const QFontMetrics metrics(small);
  const int height = QFontMetrics(small).height();
  const QRect label(0, std::clamp(at - height / 2, 0, this->height() - height), kMargin - 4, height);
  painter.drawText(label, Qt::AlignRight | Qt::AlignVCenter, text);
  painter.setFont(font());
}

void StripBars::paintEvent(QPaintEvent*) {
  if (bars_.empty()) return;
  QPainter painter(this);
  const Scale scale = ScaleOf();
  const bool numbers = std::any_of(bars_.begin(), bars_.end(), [](const Bar& bar) { return bar.is_number; });
  for (int month = 0; month < static_cast<int>(bars_.size()); ++month) {
    painter.save();
    PaintBar(painter, scale, month);
    painter.restore();
  }
  if (!numbers) return;
  PaintBound(painter, scale, least_, true);
  PaintBound(painter, scale, most_, false);
}

// ---- acts ----

void StripBars::Open(int month) {
  if (month < 0 || month >= static_cast<int>(bars_.size())) return;
  acts_.Do([&] { return act::DoubleClick(acts_.s.desk, form_, kMonths, 0, month); });
}

void StripBars::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Open(MonthAt(event->position().toPoint()));
}

void StripBars::keyPressEvent(QKeyEvent* event) {
  const int last = static_cast<int>(bars_.size()) - 1;
  switch (event->key()) {
    case Qt::Key_Left: chosen_ = std::max(0, chosen_ - 1); break;
    case Qt::Key_Right: chosen_ = std::min(last, chosen_ + 1); break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space: return Open(chosen_);
    default: return QWidget::keyPressEvent(event);
  }
  update();
}

void StripBars::focusInEvent(QFocusEvent* event) {
  chosen_ = std::max(0, present_);
  QWidget::focusInEvent(event);
}

bool StripBars::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int month = MonthAt(help->pos());
  QToolTip::showText(help->globalPos(), month < 0 ? QString() : Told(month), this);
  return true;
}

StripBars* FillStripPanel(QWidget& place, FormBinding& binding, Acts& acts) {
  const Form& form = binding.form();
  auto* column = new QVBoxLayout(&place);
  const bool low = IsLowScreen(place);
  column->setSpacing(low ? 0 : 4);
  if (low) column->setContentsMargins(8, 0, 8, 0);
  QWidget* field = binding.AddLabel(form.At(kField), &place).widget;
  QFont bold = field->font();
  bold.setBold(true);
  field->setFont(bold);
  auto* bars = new StripBars(acts, binding.form(), &place);
  binding.AddFrame(form.At(kMonths), bars);
  QWidget* advice = binding.AddLabel(form.At(kAdvice), &place).widget;
  auto* above = new QHBoxLayout;
  above->addWidget(field);
  if (low) static_cast<QLabel*>(field)->setWordWrap(false);
  if (low) above->addWidget(advice, 1);
  column->addLayout(above);
  column->addWidget(bars, 1);
  if (!low) column->addWidget(advice);
  return bars;
}

}  // namespace merlu
