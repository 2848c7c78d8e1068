// merlu_window_figures FILE: what the windows cost on an inventory: start to the painted window, a click from
// sheet to sheet, a change of mode, and the peak of memory. It works on a copy of the file.
#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/fault.h"
#include "desktop/desktop.h"
#include "desktop/desktop_app.h"
#include "figures.h"
#include "shell/edit_modes.h"
#include "shell/routing.h"

namespace {

using namespace merlu;

constexpr int kClicks = 1000;

// Ends when everything that waits to be painted is painted.
void Settle() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times.empty() ? 0 : times[times.size() / 2];
}

// Seconds of this process so far, its loading included.
double SinceProcessStart() {
  std::ifstream stat("/proc/self/stat");
  std::string word;
  for (int field = 1; field <= 22; ++field) stat >> word;
  timespec now{};
  ::clock_gettime(CLOCK_BOOTTIME, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9 -
         std::stod(word) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

// Equipment nodes with the types in turn, so that each click brings another sheet.
std::vector<int> MixedNodes(const Session& s) {
  std::vector<int> nodes;
  for (std::size_t i = 0; i < s.tree.nodes.size() && nodes.size() < kClicks; ++i)
    if (s.tree.nodes[i].children.empty()) nodes.push_back(static_cast<int>(i));
  return nodes;
}

double MedianClick(DesktopApp& app) {
  Session& s = app.session();
  const std::vector<int> nodes = MixedNodes(s);
  if (nodes.empty()) return 0;
  std::vector<double> times;
  for (int i = 0; i < kClicks; ++i) {
    const int node = nodes[static_cast<std::size_t>(i) % nodes.size()];
    times.push_back(bench::Seconds([&] {
      app.acts().Run([&] { ClickNode(s, node); });
      Settle();
    }));
  }
  return Median(times);
}

double MedianModeChange(DesktopApp& app) {
  Session& s = app.session();
  std::vector<double> times;
  for (int i = 0; i < 6; ++i) {
    const double time = bench::Seconds([&] {
      app.acts().Run([&] { ChangeEditMode(s); });
      Settle();
    });
    if (s.InActv()) times.push_back(time);
  }
  return Median(times);
}

int Measure(const std::string& file) {
  const auto folder = std::filesystem::temp_directory_path() / ("merlu-window-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  const auto copy = folder / "inventory.mdb";
  std::filesystem::copy_file(file, copy);
  {
    SetUpLook();
    DesktopApp app((folder / "settings.ini").string());
    app.StoreSetting("Options", "DBloc", copy.string());
    if (!app.Start()) return 1;
    Settle();
    std::printf("start to the painted window    %7.0f ms, process start included\n", SinceProcessStart() * 1e3);
    std::printf("click from sheet to sheet      %7.2f ms, median of %d\n", MedianClick(app) * 1e3, kClicks);
    std::printf("change to the activity tree    %7.1f ms, median of 3\n", MedianModeChange(app) * 1e3);
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory with the window    %7.1f MB\n", static_cast<double>(usage.ru_maxrss) / 1024);
  }
  std::filesystem::remove_all(folder);
  return 0;
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) {
    std::fprintf(stderr, "merlu_window_figures FILE\n");
    return 2;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(count, words);
  try {
    return Measure(words[1]);
  } catch (const Fault& fault) {
    std::fprintf(stderr, "%s\n", fault.description.c_str());
  }
  return 1;
}
