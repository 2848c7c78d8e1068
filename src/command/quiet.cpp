#include "command/quiet.h"

#include <chrono>
#include <ctime>
#include <filesystem>

#include "host/hand_in_pdf.h"
#include "host/program_files.h"
#include "host/report_pdf.h"

namespace merlu {

Button Quiet::Ask(const Box& box) {
  said.push_back(box.text + (box.detail.empty() ? "" : " " + box.detail));
  return LeastChange(box);
}

DateTime Quiet::Now() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

std::string Quiet::ProgramFolder() {
  return ProgramFiles().folder;
}
bool Quiet::IsInstalled() {
  return ProgramFiles().installed;
}
std::string Quiet::DataFolder() {
  return UserDataFolder();
}

void Quiet::WriteReport(const InventoryReport& report, const std::string& path,
                        const std::function<void(int done, int total)>& progress) {
  WriteReportPdf(report, path, progress);
}

void Quiet::WriteHandInReport(const HandInReport& report, const std::string& path) {
  WriteHandInPdf(report, path);
}

std::uint64_t Quiet::FreeBytes(const std::string& folder) {
  std::error_code error;
  const auto space = std::filesystem::space(folder, error);
  return error ? 0 : space.available;
}

}  // namespace merlu
