#include "desktop/print_form.h"

#include <QPainter>
#include <QPrinter>
#include <QWidget>

#include <algorithm>

#include "base/fault.h"

namespace merlu {

void PrintWidget(QWidget& widget, QPrinter& printer) {
  printer.setPageOrientation(widget.width() > widget.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  QPainter painter;
  if (!painter.begin(&printer))
    throw Fault(fault_number::kFileAccess, "MERLU printing", "The printer or its file cannot be written.");
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  const double scale = std::min(page.width() / widget.width(), page.height() / widget.height());
  painter.translate((page.width() - widget.width() * scale) / 2, 0);
  painter.scale(scale, scale);
  widget.render(&painter);
  if (!painter.end() || printer.printerState() == QPrinter::Error)
    throw Fault(fault_number::kFileAccess, "MERLU printing", "The printer or its file cannot be written.");
}

}  // namespace merlu
