// Forms on paper.
#pragma once

class QPrinter;
class QWidget;

namespace merlu {

// Paints the widget on one page, as large as the page allows; contents that scroll are printed in full, on as many
// pages as they need. A Fault (kFileAccess) when the printer, or the file that is printed to, cannot be written.
void PrintWidget(QWidget& widget, QPrinter& printer);

}  // namespace merlu
