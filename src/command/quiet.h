// The platform of a command: nobody answers a box and nothing is painted. What a box would have said is kept.
#pragma once

#include <string>
#include <vector>

#include "forms/platform.h"
#include "forms/review_ports.h"

namespace merlu {

class Quiet : public Platform, public HandInPrinter {
 public:
  std::vector<std::string> said;  // the texts of the boxes, in order

  Button Ask(const Box& box) override;
  std::string AskFile(const FileQuestion&) override { return ""; }
  std::string AskFolder(const std::string&) override { return ""; }
  void RunModal(Form&) override {}
  void Paint() override {}
  void PaintWait(const WaitScreen&) override {}
  void SetBusy(bool) override {}
  void Beep() override {}
  DateTime Now() override;
  std::string Setting(const std::string&, const std::string&) override { return ""; }
  void StoreSetting(const std::string&, const std::string&, const std::string&) override {}
  std::string ProgramFolder() override;
  bool IsInstalled() override;
  std::string DataFolder() override;
  void WriteReport(const InventoryReport& report, const std::string& path,
                   const std::function<void(int done, int total)>& progress) override;
  void WriteHandInReport(const HandInReport& report, const std::string& path) override;
  void Print(const Form&) override {}
  void OpenDocument(const std::string&) override {}
  std::uint64_t FreeBytes(const std::string& folder) override;
};

}  // namespace merlu
