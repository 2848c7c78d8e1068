// Paints the hand-in report as a PDF with a place for a signature.
#pragma once

#include <string>

#include "forms/hand_in_report.h"

namespace merlu {

// Operator, verdict and checks with a place for the signature on the first page, then every finding by structure; each
// page has its number of how many, the date and the program's version. The faults of WriteBytes.
void WriteHandInPdf(const HandInReport& report, const std::string& path);

}  // namespace merlu
