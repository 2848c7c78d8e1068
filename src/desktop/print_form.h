// Forms on paper.
#pragma once

class QPrinter;
class QWidget;

namespace merlu {

// Paints the widget as it stands on one page, as large as the page allows. A Fault (kFileAccess) when the
// printer, or the file that stands for it, cannot be written.
void PrintWidget(QWidget& widget, QPrinter& printer);

}  // namespace merlu
