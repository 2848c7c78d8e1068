#include "host/real_host.h"

#include "base/host.h"
#include "host/hand_in_pdf.h"
#include "host/program_files.h"
#include "host/report_pdf.h"
#include "host/settings_store.h"
#include "store/files.h"

namespace merlu {

RealHost::RealHost() = default;

RealHost::RealHost(const std::string& settings_file) : settings_(std::make_unique<SettingsStore>(settings_file)) {}

RealHost::~RealHost() = default;

DateTime RealHost::Now() {
  return host::LocalTime();
}

std::string RealHost::Setting(const std::string& section, const std::string& key) {
  return settings_ == nullptr ? "" : settings_->Value(section, key);
}

void RealHost::StoreSetting(const std::string& section, const std::string& key, const std::string& value) {
  if (settings_ != nullptr) settings_->Store(section, key, value);
}

QSettings& RealHost::settings() {
  return settings_->settings();
}

std::string RealHost::ProgramFolder() {
  return ProgramFiles().folder;
}

bool RealHost::IsInstalled() {
  return ProgramFiles().installed;
}

std::string RealHost::DataFolder() {
  return UserDataFolder();
}

std::uint64_t RealHost::FreeBytes(const std::string& folder) {
  return merlu::FreeBytes(folder);
}

void RealHost::WriteReport(const InventoryReport& report, const std::string& path,
                           const std::function<void(int done, int total)>& progress) {
  WriteReportPdf(report, path, progress);
}

void RealHost::WriteHandInReport(const HandInReport& report, const std::string& path) {
  WriteHandInPdf(report, path);
}

}  // namespace merlu
