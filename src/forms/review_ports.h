// Seams to the outside world that only the review needs; a platform that offers one implements it beside its own.
#pragma once

#include <string>

#include "forms/hand_in_report.h"

namespace merlu {

class HandInPrinter {
 public:
  virtual ~HandInPrinter() = default;
  // Paints the report as a PDF at the path; faults are thrown.
  virtual void WriteHandInReport(const HandInReport& report, const std::string& path) = 0;
};

// Work that the user may end: the wait screen then offers it.
class WorkStopper {
 public:
  virtual ~WorkStopper() = default;
  // Before the wait screen shows; until it is gone.
  virtual void AllowStop() = 0;
  virtual bool IsStopWanted() = 0;
};

}  // namespace merlu
