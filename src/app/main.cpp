// merlu: the desktop program, and its commands without a window.
#include <QGuiApplication>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/fault.h"
#include "base/host.h"
#include "base/text.h"
#include "command/command_texts.h"
#include "command/commands.h"
#include "desktop/desktop.h"
#include "host/settings_store.h"
#include "script/catalogue.h"
#include "script/player.h"
#include "store/engine.h"
#include "store/private_folder.h"

namespace merlu {
namespace {

constexpr int kWrongUsage = 2, kCannotWrite = 3;

constexpr const char* kUsage =
    "usage: merlu [--settings FILE] [INVENTORY]\n"
    "       merlu script [--settings FILE] [--clock \"YYYY-MM-DD HH:MM\"] [--stop-on-error] [FILE]\n"
    "       merlu catalogue\n"
    "       merlu COMMAND ...\n"
    "       merlu --help | --version | COMMAND --help\n";

constexpr const char* kScriptHelp =
    "usage: merlu script [--settings FILE] [--clock \"YYYY-MM-DD HH:MM\"] [--stop-on-error] [FILE]\n"
    "\n"
    "Plays commands from FILE, or from standard input, and answers each with a line of JSON.\n"
    "  --settings       keeps the settings in FILE instead of the user's own\n"
    "  --clock          sets the present date and time\n"
    "  --stop-on-error  ends at the first command that could not be done\n";

constexpr const char* kCatalogueHelp =
    "usage: merlu catalogue\n"
    "\n"
    "Prints every sheet, field and rule as JSON.\n";

constexpr const char* kHelp =
    "\n"
    "Without a command the desktop program opens, on INVENTORY (a file *.mdb) or on the one of the last time.\n"
    "  --settings   keeps the settings in FILE instead of the user's own\n"
    "  --clock      sets the present date and time\n"
    "  --stop-on-error  ends the script at the first command that could not be done\n"
    "\n"
    "Commands need no display and use no settings, script excepted:\n"
    "  script      plays commands from FILE, or from standard input, and answers each with a line of JSON\n"
    "  catalogue   prints every sheet, field and rule as JSON\n";

int Usage() {
  std::cerr << kUsage;
  return kWrongUsage;
}

int Refuse(const std::string& why) {
  std::cerr << "merlu: " << why << "\n";
  return kWrongUsage;
}

int Print(const std::string& text) {
  std::cout << text;
  if (std::cout.flush()) return 0;
  std::cerr << "merlu: the answer cannot be written\n";
  return kCannotWrite;
}

// While it lives the toolkit has a folder for its session that goes with it; otherwise it would make one that stays.
class SessionFolder {
 public:
  SessionFolder() {
    try {
      folder_ = std::make_unique<PrivateFolder>();
      qputenv(kVariable, QByteArray::fromStdString(folder_->File("session")));
    } catch (const Fault&) {
      // the toolkit works without one
    }
  }
  ~SessionFolder() {
    if (was_set_)
      qputenv(kVariable, before_);
    else
      qunsetenv(kVariable);
  }
  SessionFolder(const SessionFolder&) = delete;
  SessionFolder& operator=(const SessionFolder&) = delete;

 private:
  static constexpr const char* kVariable = "XDG_RUNTIME_DIR";
  bool was_set_ = qEnvironmentVariableIsSet(kVariable);
  QByteArray before_ = qgetenv(kVariable);
  std::unique_ptr<PrivateFolder> folder_;
};

// Fonts for what is painted, and never a display: no word of the toolkit about it, and nothing that it leaves behind.
std::unique_ptr<QGuiApplication> PaintWithoutDisplay(int& argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << text.toStdString() << "\n";
  });
  const SessionFolder session;
  return std::make_unique<QGuiApplication>(argc, argv);
}

int RunCommandLine(const CommandSpec& command, int argc, char** argv) {
  std::unique_ptr<QGuiApplication> application;
  const auto need_fonts = [&] { application = PaintWithoutDisplay(argc, argv); };
  const bool progress = host::IsErrorTerminal() && !host::IsOutputTerminal();
  Console console{std::cout, std::cerr, progress, need_fonts};
  return static_cast<int>(RunCommand(command, {argv + 2, argv + argc}, console));
}

bool WaitForStandardInput(int milliseconds) {
  return std::cin.rdbuf()->in_avail() > 0 || host::WaitForInput(milliseconds);
}

int Play(std::istream& in, const PlayOptions& options) {
  const int status = Player(in, std::cout, options).Run();
  if (!std::cout) std::cerr << "merlu: the answers cannot be written\n";
  return status;
}

bool AsksForHelp(int argc, char** argv) {
  return std::any_of(argv + 2, argv + argc,
                     [](const std::string_view word) { return word == "--help" || word == "-h"; });
}

// Why the file cannot hold the settings; empty when it can.
std::string WhyNoSettings(const std::string& file) {
  return file.empty() || CanHoldSettings(file) ? "" : file + " is no file of settings";
}

int RunScript(int argc, char** argv) {
  PlayOptions options;
  std::string file;
  bool has_file = false;
  for (int i = 2; i < argc; ++i) {
    const std::string word = argv[i];
    const bool has_value = i + 1 < argc && *argv[i + 1] != '\0';
    if (word == "--settings" && has_value) {
      options.settings_file = argv[++i];
    } else if (word == "--clock" && has_value) {
      options.clock = ParseDate(argv[++i]);
      if (!options.clock) return Usage();
    } else if (word == "--stop-on-error") {
      options.stop_on_error = true;
    } else if (!word.starts_with("--") && !has_file) {
      file = word;
      has_file = true;
    } else {
      return Usage();
    }
  }
  if (const std::string why = WhyNoSettings(options.settings_file); !why.empty()) return Refuse(why);
  const std::unique_ptr<QGuiApplication> application = PaintWithoutDisplay(argc, argv);
  if (!has_file) {
    std::ios::sync_with_stdio(false);  // what is read ahead is known then
    options.wait = WaitForStandardInput;
    return Play(std::cin, options);
  }
  std::ifstream in(file);
  std::error_code error;
  if (!in || std::filesystem::is_directory(file, error)) return Refuse("cannot read " + file);
  return Play(in, options);
}

// Why the file cannot be taken for an inventory; empty when it can.
std::string WhyNotOpened(const std::string& file) {
  const std::string name = Lower(file);
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return "cannot read " + file;
  // the settings take any other name for the beginning of one
  if (!name.ends_with(".mdb")) return file + " is not the name of an inventory (*.mdb)";
  return "";
}

int RunDesktopProgram(int argc, char** argv) {
  DesktopOptions options;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--settings" && i + 1 < argc && *argv[i + 1] != '\0')
      options.settings_file = argv[++i];
    else if (!word.starts_with("-") && options.inventory.empty())
      options.inventory = word;
    else
      return Usage();
  }
  if (const std::string why = WhyNoSettings(options.settings_file); !why.empty()) return Refuse(why);
  if (!options.inventory.empty()) {
    if (const std::string why = WhyNotOpened(options.inventory); !why.empty()) return Refuse(why);
    // later starts lead to it from wherever they are made
    options.inventory = std::filesystem::absolute(options.inventory).string();
  }
  return RunDesktop(argc, argv, options);
}

}  // namespace
}  // namespace merlu

int main(int argc, char** argv) {
  merlu::CountNoMemory();
#ifdef SIGXFSZ
  // a file beyond the user's limit of size fails like one on a full disk
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  std::ios::sync_with_stdio(false);
  const std::string command = argc > 1 ? argv[1] : "";
  if ((command == "script" || command == "catalogue") && merlu::AsksForHelp(argc, argv))
    return merlu::Print(command == "script" ? merlu::kScriptHelp : merlu::kCatalogueHelp);
  if (command == "script") return merlu::RunScript(argc, argv);
  if (const merlu::CommandSpec* spec = merlu::FindCommand(command)) return merlu::RunCommandLine(*spec, argc, argv);
  if (command == "--help" || command == "-h")
    return merlu::Print(std::string(merlu::kUsage) + merlu::kHelp + merlu::CommandList());
  if (command == "--version") return merlu::Print("MERLU-2017 " MERLU_VERSION "\n");
  if (command == "catalogue") return argc > 2 ? merlu::Usage() : merlu::Print(merlu::Catalogue().dump(1) + "\n");
  return merlu::RunDesktopProgram(argc, argv);
}
