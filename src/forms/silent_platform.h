// A platform without anybody before it: dialogs close at once, nothing is painted, asked for or kept.
#pragma once

#include <string>

#include "forms/platform.h"

namespace merlu {

class SilentPlatform : public Platform {
 public:
  std::string AskFile(const FileQuestion&) override { return ""; }
  std::string AskFolder(const std::string&) override { return ""; }
  void RunModal(Form&) override {}
  void Paint() override {}
  void PaintWait(const WaitScreen&) override {}
  void SetBusy(bool) override {}
  void Beep() override {}
  std::string Setting(const std::string&, const std::string&) override { return ""; }
  void StoreSetting(const std::string&, const std::string&, const std::string&) override {}
  void Print(const Form&) override {}
  void OpenDocument(const std::string&) override {}
};

}  // namespace merlu
