// Forms on paper.
#pragma once

class QPrinter;
class QWidget;

namespace merlu {

// Paints the widget on one page, as large as the page allows; what scrolls in it comes whole, on as many pages as it
// takes. A Fault (kFileAccess) when the
// printer, or the file that stands for it, cannot be written.
void PrintWidget(QWidget& widget, QPrinter& printer);

}  // namespace merlu
