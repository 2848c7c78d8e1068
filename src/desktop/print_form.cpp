#include "desktop/print_form.h"

#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QScrollArea>
#include <QWidget>

#include <algorithm>

#include "base/fault.h"

namespace merlu {
namespace {

constexpr int kSharpness = 3;  // points of the picture for one on the screen, so that small texts read well on paper

// The page of a sheet that scrolls, and how much of it is out of sight; null when all of it shows.
QScrollArea* ScrolledPage(const QWidget& widget, int& hidden) {
  hidden = 0;
  QScrollArea* found = nullptr;
  for (auto* area : widget.findChildren<QScrollArea*>()) {
    if (!area->isVisibleTo(&widget) || area->widget() == nullptr) continue;
    const int below = area->widget()->height() - area->viewport()->height();
    if (below <= hidden) continue;
    hidden = below;
    found = area;
  }
  return found;
}

// The whole form: a page that scrolls is as long as its contents.
QPixmap Picture(QWidget& widget) {
  int hidden = 0;
  QScrollArea* area = ScrolledPage(widget, hidden);
  QPixmap picture((widget.size() + QSize(0, hidden)) * kSharpness);
  picture.setDevicePixelRatio(kSharpness);
  picture.fill(widget.palette().color(QPalette::Window));
  if (area == nullptr) {
    widget.render(&picture);
    return picture;
  }
  const QWidget* viewport = area->viewport();
  const QRect page(viewport->mapTo(&widget, QPoint()), viewport->size());
  const QRect above(0, 0, widget.width(), page.bottom() + 1);
  const QRect below(0, page.bottom() + 1, widget.width(), widget.height() - page.bottom() - 1);
  widget.render(&picture, QPoint(), above);
  widget.render(&picture, QPoint(0, below.top() + hidden), below);
  QPainter painter(&picture);
  const QColor ground = widget.grab(QRect(page.topLeft(), QSize(1, 1))).toImage().pixelColor(0, 0);
  painter.fillRect(page.adjusted(0, 0, 0, hidden), ground);
  painter.end();
  area->widget()->render(&picture, page.topLeft(), QRegion(), QWidget::DrawChildren);
  return picture;
}

}  // namespace

void PrintWidget(QWidget& widget, QPrinter& printer) {
  printer.setPageOrientation(widget.width() > widget.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  QPainter painter;
  if (!painter.begin(&printer))
    throw Fault(fault_number::kFileAccess, "MERLU printing", "The printer or its file cannot be written.");
  const QPixmap picture = Picture(widget);
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  const double height = picture.height() / kSharpness;
  const bool fits = height == widget.height();
  // longer contents continue on further pages, at the width of the paper
  const double scale =
      fits ? std::min(page.width() / widget.width(), page.height() / height) : page.width() / widget.width();
  const double width = widget.width() * scale, slice = page.height() / scale;
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  for (double top = 0; top < height - 1; top += slice) {
    if (top > 0) printer.newPage();
    const double part = std::min(slice, height - top);
    painter.drawPixmap(QRectF((page.width() - width) / 2, 0, width, part * scale), picture,
                       QRectF(0, top * kSharpness, picture.width(), part * kSharpness));
  }
  if (!painter.end() || printer.printerState() == QPrinter::Error)
    throw Fault(fault_number::kFileAccess, "MERLU printing", "The printer or its file cannot be written.");
}

}  // namespace merlu
