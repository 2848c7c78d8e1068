// The twelve months of a field as bars: the present month is marked, the rule's bounds are lines across, and a click on
// a bar, or Enter, opens that month.
#pragma once

#include <QWidget>

#include <vector>

#include "desktop/acts.h"
#include "forms/form.h"

namespace merlu {

class StripBars : public QWidget {
  Q_OBJECT
 public:
  StripBars(Acts& acts, Form& form, QWidget* parent);
  // Draws what changed.
  void Sync();
  // The rectangle of a month's bar with its label; `month` counts from 0.
  QRect PlaceOf(int month) const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Bar {
    QString text;
    bool is_number = false;
    double number = 0;
  };
  struct Scale {
    double least = 0, most = 1;
  };
  int MonthAt(const QPoint& place) const;
  QString Told(int month) const;
  bool IsOutside(const Bar& bar) const;
  Scale ScaleOf() const;
  void PaintBar(QPainter& painter, const Scale& scale, int month) const;
  void PaintBound(QPainter& painter, const Scale& scale, const QString& bound, bool is_least) const;
  int HeightAt(const Scale& scale, double value) const;
  QRect Room() const;
  void Open(int month);

  Acts& acts_;
  Form& form_;
  std::vector<Bar> bars_;
  QString least_, most_;
  int present_ = -1, chosen_ = 0;
};

// A dock's place with the field's name above the bars and the advice below them.
StripBars* FillStripPanel(QWidget& place, class FormBinding& binding, Acts& acts);

}  // namespace merlu
