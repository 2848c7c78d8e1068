// host/ is the machine that the program runs on, for all front ends: clock, settings, files, PDF.
#pragma once

#include <memory>
#include <string>

#include "forms/platform.h"

class QSettings;

namespace merlu {

class SettingsStore;

class RealHost : public virtual Host {
 public:
  // A host without settings: none is found, none is kept.
  RealHost();
  // An empty settings file means the user's own settings.
  explicit RealHost(const std::string& settings_file);
  ~RealHost() override;

  DateTime Now() override;
  std::string Setting(const std::string& section, const std::string& key) override;
  void StoreSetting(const std::string& section, const std::string& key, const std::string& value) override;
  std::string ProgramFolder() override;
  bool IsInstalled() override;
  std::string DataFolder() override;
  std::uint64_t FreeBytes(const std::string& folder) override;
  // Both need an application with fonts (a QGuiApplication; no display).
  void WriteReport(const InventoryReport& report, const std::string& path,
                   const std::function<void(int done, int total)>& progress) override;
  void WriteHandInReport(const HandInReport& report, const std::string& path) override;

 protected:
  // Only with settings.
  QSettings& settings();

 private:
  std::unique_ptr<SettingsStore> settings_;
};

}  // namespace merlu
