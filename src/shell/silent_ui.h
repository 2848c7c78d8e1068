// A front end without a user: dialogs close at once, nothing is painted or asked.
#pragma once

#include <string>

#include "shell/ui.h"

namespace merlu {

class SilentUi : public virtual Ui, public virtual Progress {
 public:
  std::string AskFile(const FileQuestion&) override { return ""; }
  std::string AskFolder(const std::string&) override { return ""; }
  void RunModal(Form&) override {}
  void Paint() override {}
  void PaintWait(const WaitScreen&) override {}
  void SetBusy(bool) override {}
  void Beep() override {}
  void Print(const Form&) override {}
  void OpenDocument(const std::string&) override {}
};

}  // namespace merlu
