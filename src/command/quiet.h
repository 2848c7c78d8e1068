// The platform of a command: nobody answers a box and nothing is painted. What a box would have said is kept.
#pragma once

#include <string>
#include <vector>

#include "forms/review_ports.h"
#include "forms/silent_platform.h"

namespace merlu {

class Quiet : public SilentPlatform, public HandInPrinter {
 public:
  std::vector<std::string> said;  // the texts of the boxes, in order

  Button Ask(const Box& box) override;
  DateTime Now() override;
  std::string ProgramFolder() override;
  bool IsInstalled() override;
  std::string DataFolder() override;
  void WriteReport(const InventoryReport& report, const std::string& path,
                   const std::function<void(int done, int total)>& progress) override;
  void WriteHandInReport(const HandInReport& report, const std::string& path) override;
  std::uint64_t FreeBytes(const std::string& folder) override;
};

}  // namespace merlu
