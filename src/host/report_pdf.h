// Paints the annual QA summary as a PDF, page by page: time and memory are linear in the number of lines.
#pragma once

#include <functional>
#include <string>

#include "forms/report.h"

namespace merlu {

// Writes the report to the path; texts can be selected and fonts are embedded. `progress` is called with
// the number of lines written. Needs an application with fonts (a QGuiApplication; no display). The faults of
// WriteBytes.
void WriteReportPdf(const InventoryReport& report, const std::string& path,
                    const std::function<void(int done, int total)>& progress);

}  // namespace merlu
