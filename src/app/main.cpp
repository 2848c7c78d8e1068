// merlu: the desktop program, and its commands without a window.
#include <QGuiApplication>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "script/catalogue.h"
#include "script/player.h"

namespace merlu {
namespace {

constexpr int kWrongUsage = 2;

int Usage() {
  std::cerr << "usage: merlu [--settings FILE]\n"
               "       merlu script [--settings FILE] [--clock \"YYYY-MM-DD HH:MM\"] [--stop-on-error] [FILE]\n"
               "       merlu catalogue\n";
  return kWrongUsage;
}

int RunScript(int argc, char** argv) {
  PlayOptions options;
  std::string file;
  for (int i = 2; i < argc; ++i) {
    const std::string word = argv[i];
    const bool has_value = i + 1 < argc;
    if (word == "--settings" && has_value) {
      options.settings_file = argv[++i];
    } else if (word == "--clock" && has_value) {
      options.clock = ParseDate(argv[++i]);
      if (!options.clock) return Usage();
    } else if (word == "--stop-on-error") {
      options.stop_on_error = true;
    } else if (!word.starts_with("--") && file.empty()) {
      file = word;
    } else {
      return Usage();
    }
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");  // fonts for reports, and never a display
  const QGuiApplication application(argc, argv);
  if (file.empty()) return Player(std::cin, std::cout, options).Run();
  std::ifstream in(file);
  if (!in) {
    std::cerr << "merlu: cannot read " << file << "\n";
    return kWrongUsage;
  }
  return Player(in, std::cout, options).Run();
}

int RunDesktopProgram(int argc, char** argv) {
  std::string settings;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--settings" && i + 1 < argc)
      settings = argv[++i];
    else if (word == "--help" || word == "-h" || !word.starts_with("-"))
      return Usage();
  }
  return RunDesktop(argc, argv, settings);
}

}  // namespace
}  // namespace merlu

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  const std::string command = argc > 1 ? argv[1] : "";
  if (command == "script") return merlu::RunScript(argc, argv);
  if (command == "catalogue") {
    if (argc > 2) return merlu::Usage();
    std::cout << merlu::Catalogue().dump(1) << "\n";
    return 0;
  }
  return merlu::RunDesktopProgram(argc, argv);
}
