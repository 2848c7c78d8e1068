#include "desktop/print_form.h"

#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QWidget>

#include <algorithm>

#include "base/fault.h"

namespace merlu {
namespace {

constexpr int kSharpness = 3;  // points of the picture for one on the screen, so that small texts read well on paper

QPixmap Picture(QWidget& widget) {
  QPixmap picture(widget.size() * kSharpness);
  picture.setDevicePixelRatio(kSharpness);
  widget.render(&picture);
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
  const double scale = std::min(page.width() / widget.width(), page.height() / widget.height());
  const double width = widget.width() * scale;
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRectF((page.width() - width) / 2, 0, width, widget.height() * scale), picture, picture.rect());
  if (!painter.end() || printer.printerState() == QPrinter::Error)
    throw Fault(fault_number::kFileAccess, "MERLU printing", "The printer or its file cannot be written.");
}

}  // namespace merlu
