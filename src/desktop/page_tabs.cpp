#include "desktop/page_tabs.h"

#include <QHelpEvent>
#include <QScopedValueRollback>
#include <QStyleOptionTab>
#include <QToolTip>

#include <algorithm>

namespace merlu {
namespace {

constexpr int kFewLetters = 5;  // that are left of a name at least

// Where the count behind a name begins.
qsizetype CountOf(const QString& text) {
  const qsizetype count = text.lastIndexOf(" (");
  return count < 0 ? text.size() : count;
}

QString Shortened(const QString& text, const QFontMetrics& metrics, int width) {
  if (metrics.horizontalAdvance(text) <= width) return text;
  const QString count = text.mid(CountOf(text));
  const int room = std::max(0, width - metrics.horizontalAdvance(count));
  return metrics.elidedText(text.left(CountOf(text)), Qt::ElideRight, room) + count;
}

}  // namespace

PageBar::PageBar(QWidget* parent) : QTabBar(parent) {
  setUsesScrollButtons(false);
  setElideMode(Qt::ElideNone);
}

// The style sheet draws the name of the page in front in bold.
QFontMetrics PageBar::MetricsOf(int page) const {
  QFont used = font();
  used.setBold(page == currentIndex());
  return QFontMetrics(used);
}

QSize PageBar::minimumTabSizeHint(int page) const {
  const QString text = tabText(page), least = text.left(kFewLetters) + QChar(0x2026) + text.mid(CountOf(text));
  const QFontMetrics metrics = MetricsOf(page);
  const int saved = metrics.horizontalAdvance(text) - metrics.horizontalAdvance(least);
  return WholeSize(page) - QSize(std::max(0, saved), 0);
}

// With room for all of the text.
QSize PageBar::WholeSize(int page) const {
  const QScopedValueRollback<bool> whole(measures_, true);
  return tabSizeHint(page);
}

void PageBar::initStyleOption(QStyleOptionTab* option, int page) const {
  QTabBar::initStyleOption(option, page);
  if (!measures_) option->text = Shown(page);
}

QString PageBar::Shown(int page) const {
  const QString text = tabText(page);
  const int missing = WholeSize(page).width() - tabRect(page).width();
  const QFontMetrics metrics = MetricsOf(page);
  return missing <= 0 ? text : Shortened(text, metrics, metrics.horizontalAdvance(text) - missing);
}

bool PageBar::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTabBar::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int page = tabAt(help->pos());
  if (page < 0 || Shown(page) == tabText(page)) return QTabBar::event(event);
  const QString more = tabToolTip(page);
  QToolTip::showText(help->globalPos(), more.isEmpty() ? tabText(page) : tabText(page) + '\n' + more, this);
  return true;
}

PageTabs::PageTabs(QWidget* parent) : QTabWidget(parent) {
  auto* bar = new PageBar(this);
  bar->setObjectName(tabBar()->objectName());
  setTabBar(bar);
}

}  // namespace merlu
