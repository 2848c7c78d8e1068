// Widgets in a row that goes on below where the window is too narrow for it.
#pragma once

#include <QLayout>

namespace merlu {

class FlowRow : public QLayout {
  Q_OBJECT
 public:
  FlowRow(int between, int below) : between_(between), below_(below) {}
  ~FlowRow() override;
  // A widget that takes the room that its line has left.
  void AddWide(QWidget* widget);

  void addItem(QLayoutItem* item) override { items_ << item; }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override { return items_.value(index); }
  QLayoutItem* takeAt(int index) override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return Arrange(QRect(0, 0, width, 0), false); }
  void setGeometry(const QRect& place) override;

 private:
  int Arrange(const QRect& place, bool move) const;

  QList<QLayoutItem*> items_;
  QList<const QLayoutItem*> wide_;
  int between_, below_;
};

}  // namespace merlu
