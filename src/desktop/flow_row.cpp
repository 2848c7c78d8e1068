#include "desktop/flow_row.h"

#include <QWidget>

#include <algorithm>

namespace merlu {

FlowRow::~FlowRow() {
  qDeleteAll(items_);
}

void FlowRow::AddWide(QWidget* widget) {
  addWidget(widget);
  wide_ << items_.last();
}

QLayoutItem* FlowRow::takeAt(int index) {
  return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr;
}

QSize FlowRow::sizeHint() const {
  int width = 0, height = 0;
  for (const QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;
    width += item->sizeHint().width() + (width > 0 ? between_ : 0);
    height = std::max(height, item->sizeHint().height());
  }
  return {width, height};
}

QSize FlowRow::minimumSize() const {
  QSize least;
  for (const QLayoutItem* item : items_)
    if (!item->isEmpty()) least = least.expandedTo(item->minimumSize());
  return least;
}

void FlowRow::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  Arrange(place, true);
}

// The height that the lines take.
int FlowRow::Arrange(const QRect& place, bool move) const {
  int y = place.y();
  for (qsizetype first = 0; first < items_.size();) {
    int used = 0, height = 0, wides = 0;
    qsizetype end = first;
    for (; end < items_.size(); ++end) {
      const QLayoutItem* item = items_[end];
      if (item->isEmpty()) continue;
      const int width = std::min(item->sizeHint().width(), place.width()) + (used > 0 ? between_ : 0);
      if (used > 0 && used + width > place.width()) break;
      used += width;
      height = std::max(height, item->sizeHint().height());
      wides += wide_.contains(item) ? 1 : 0;
    }
    int x = place.x();
    for (qsizetype at = first; at < end; ++at) {
      QLayoutItem* item = items_[at];
      if (item->isEmpty()) continue;
      int width = std::min(item->sizeHint().width(), place.width());
      if (wide_.contains(item)) width += (place.width() - used) / wides;
      if (move) item->setGeometry(QRect(x, y, width, height));
      x += width + between_;
    }
    if (height > 0) y += height + below_;
    first = end;
  }
  return std::max(0, y - below_ - place.y());
}

}  // namespace merlu
