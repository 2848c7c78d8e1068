// The platform of an unattended run: every box is answered with its first button, dialogs close at once, nothing is
// painted, and the settings name one database file.
#pragma once

#include <cstdint>
#include <string>

#include "shell/silent_ui.h"

namespace merlu {

class QuietPlatform : public Platform, public SilentUi {
 public:
  QuietPlatform() = default;
  explicit QuietPlatform(std::string database) : database_(std::move(database)) {}

  std::uint64_t free_bytes = 0;

  // Boxes so far, and the text of the last one, to check runs that must show none.
  int boxes() const { return boxes_; }
  const std::string& last_box() const { return last_box_; }

  Button Ask(const Box& box) override {
    ++boxes_;
    last_box_ = box.text;
    return box.buttons.front();
  }
  DateTime Now() override { return {2017, 12, 31, 12, 0, 0}; }
  std::string Setting(const std::string&, const std::string&) override { return database_; }
  void StoreSetting(const std::string&, const std::string&, const std::string&) override {}
  std::string ProgramFolder() override { return "."; }
  bool IsInstalled() override { return false; }
  std::string DataFolder() override { return "."; }
  std::uint64_t FreeBytes(const std::string&) override { return free_bytes; }
  void WriteReport(const InventoryReport&, const std::string&, const std::function<void(int, int)>&) override {}
  void WriteHandInReport(const HandInReport&, const std::string&) override {}

 private:
  std::string database_;
  int boxes_ = 0;
  std::string last_box_;
};

}  // namespace merlu
