// The report on what is handed in, as a file.
#pragma once

#include <string>
#include <vector>

#include "review/hand_in.h"
#include "session/session.h"

namespace merlu {

// A workbook where the path ends in .xlsx (findings that filter, and the checks), otherwise a PDF. Of the month, or of
// the whole year (0). Faults are thrown.
void WriteHandIn(Session& s, const Review& review, const std::vector<HandInRow>& checks, int month,
                 const std::string& path);

}  // namespace merlu
