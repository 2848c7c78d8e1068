// The pages of a sheet. Where the room is short their names are shortened, never the counts behind them.
#pragma once

#include <QTabBar>
#include <QTabWidget>

namespace merlu {

class PageBar : public QTabBar {
  Q_OBJECT
 public:
  explicit PageBar(QWidget* parent);
  // The text of the tab as it shows.
  QString Shown(int page) const;

 protected:
  QSize minimumTabSizeHint(int page) const override;
  void initStyleOption(QStyleOptionTab* option, int page) const override;
  // The whole name of a page that shows a shortened one.
  bool event(QEvent* event) override;

 private:
  QFontMetrics MetricsOf(int page) const;
  QSize WholeSize(int page) const;

  mutable bool measures_ = false;
};

class PageTabs : public QTabWidget {
  Q_OBJECT
 public:
  explicit PageTabs(QWidget* parent);
};

}  // namespace merlu
