// merlu_window_figures [--processor-time]: what the windows cost at full size, beside their limits. The program runs in
// processes of its own on three inventories that are made for it: 39,996 equipment months with more than 100,000
// findings, 1,000 structures, 3,333 flares.
//
// A figure that misses its limit is marked and fails nothing: it depends on the machine of the day.
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QMessageBox>
#include <QProcess>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/fault.h"
#include "desktop/desktop.h"
#include "desktop/desktop_app.h"
#include "desktop/grid_view.h"
#include "desktop/model_list.h"
#include "figures.h"
#include "inventory.h"
#include "session/node_keys.h"
#include "shell/edit_modes.h"
#include "shell/findings_dock.h"
#include "shell/sheet_acts.h"

namespace {

using namespace merlu;
namespace fs = std::filesystem;

constexpr int kMonth = 6;
constexpr int kClicks = 1000, kActs = 10000;
constexpr double kMs = 1e3;
constexpr int kLater = 50;  // milliseconds in which a timer may paint more of a dialog

void Print(const char* what, double figure, const char* unit, double limit) {
  std::printf("%-62s %8.1f %s", what, figure, unit);
  if (limit > 0) std::printf("  limit %4.0f  %s", limit, figure <= limit ? "met" : "missed");
  std::printf("\n");
  std::fflush(stdout);
}

// Ends when everything that waits to be laid out and painted is painted: a layout asks the one around it for room only
// in the next round of events.
void Settle() {
  auto* events = QAbstractEventDispatcher::instance();
  do {
    QCoreApplication::sendPostedEvents();
  } while (events->processEvents(QEventLoop::AllEvents));
}

template <typename Work>
double Painted(Work&& work) {
  return kMs * bench::Seconds([&] {
           work();
           Settle();
         });
}

double Worst(const std::vector<double>& times) {
  return times.empty() ? 0 : *std::max_element(times.begin(), times.end());
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times.empty() ? 0 : times[times.size() / 2];
}

// Milliseconds of this process so far, its loading included.
double SinceProcessStart(bool processor_time) {
  timespec now{};
  ::clock_gettime(processor_time ? CLOCK_PROCESS_CPUTIME_ID : CLOCK_BOOTTIME, &now);
  const double seconds = static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
  if (processor_time) return kMs * seconds;
  std::ifstream stat("/proc/self/stat");
  std::string word;
  for (int field = 1; field <= 22; ++field) stat >> word;
  return kMs * (seconds - std::stod(word) / static_cast<double>(::sysconf(_SC_CLK_TCK)));
}

// MB of this process: "VmRSS:" now, "VmHWM:" at its most.
double Memory(const std::string& which) {
  std::ifstream status("/proc/self/status");
  std::string word;
  double kilobytes = 0;
  while (status >> word)
    if (word == which) status >> kilobytes;
  return kilobytes / 1024;
}

// ---- the program on an inventory ----

// The program, which notes when its window is painted first.
class TimedApp : public DesktopApp {
 public:
  TimedApp(const std::string& settings, bool processor_time) : DesktopApp(settings), processor_time_(processor_time) {}
  void Paint() override {
    DesktopApp::Paint();
    if (painted_ == 0) painted_ = SinceProcessStart(processor_time_);
  }
  double painted() const { return painted_; }

 private:
  bool processor_time_;
  double painted_ = 0;  // milliseconds
};

struct Program {
  Program(const fs::path& folder, bool processor_time) : app((folder / "settings.ini").string(), processor_time) {
    app.StoreSetting("Options", "DBloc", (folder / "inventory.mdb").string());
    // a box would wait for ever
    QObject::connect(&boxes, &QTimer::timeout, &app, [] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      std::printf("  a box: %s\n", qPrintable(box->text()));
      box->close();
    });
    boxes.start(100);
    if (!app.Start()) throw Fault(fault_number::kOther, "figures", "The program did not start.");
    Settle();
    app.window()->activateWindow();
  }

  Session& s() { return app.session(); }
  void Command(const char* name) {
    auto* action = app.window()->findChild<QAction*>(name);
    if (action == nullptr || !action->isEnabled()) throw Fault(fault_number::kOther, "figures", name);
    action->trigger();
  }
  // A command that opens a dialog: until it is painted; then what is done in it.
  double Dialog(const char* name, const std::function<void(QWidget&)>& in_it) {
    double painted = 0;
    const double begin = bench::Now();
    QTimer timer;  // it also comes while the command works, before the dialog is there
    QObject::connect(&timer, &QTimer::timeout, &app, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog == nullptr || !dialog->isVisible()) return;
      timer.stop();
      dialog->activateWindow();
      QTest::qWait(kLater);  // what comes by a timer counts, too
      Settle();
      painted = kMs * (bench::Now() - begin);
      if (in_it) in_it(*dialog);
      dialog->close();
    });
    timer.start(0);
    Command(name);
    Settle();
    return painted;
  }
  void Click(int node) {
    app.acts().Run([&] { ClickNode(s(), node); });
  }
  void ClickMonth() { Click(s().tree.Find(SurveyKey(s().current.UserID, kMonth, s().year))); }
  template <typename Type>
  Type& Find(QWidget& in, const char* name) {
    Type* found = in.findChild<Type*>(name);
    if (found == nullptr) throw Fault(fault_number::kOther, "figures", name);
    return *found;
  }
  // The keys of a word, one by one: how long the slowest takes.
  double SlowestKey(QWidget& field, const char* word) {
    std::vector<double> times;
    field.setFocus();
    for (const char* key = word; *key != '\0'; ++key)
      times.push_back(Painted([&] { QTest::keyClick(&field, *key, Qt::NoModifier); }));
    for (const char* key = word; *key != '\0'; ++key)
      times.push_back(Painted([&] { QTest::keyClick(&field, Qt::Key_Backspace, Qt::NoModifier); }));
    return Worst(times);
  }

  TimedApp app;
  QTimer boxes;
};

// Leaves of the tree with the types in turn, so that each click brings another sheet.
std::vector<int> MixedNodes(const Session& s) {
  std::vector<int> nodes;
  for (std::size_t i = 0; i < s.tree.nodes.size() && nodes.size() < kClicks; ++i)
    if (s.tree.nodes[i].children.empty()) nodes.push_back(static_cast<int>(i));
  return nodes;
}

// ---- what is measured ----

void MeasureFindings(Program& program) {
  Session& s = program.s();
  Print("findings dock shown, the first time", Painted([&] { program.Command("mnuRFindings"); }), "ms", 300);
  Print("  findings", Findings(s).RowCount(), "", 0);
  QWidget& window = *program.app.window();
  auto& filter = program.Find<QWidget>(window, "txtFND_Filter");
  Print("a key in its filter, the slowest", program.SlowestKey(filter, "flare"), "ms", 50);
  emit program.Find<ModelList>(window, "lvwFND_List").header()->sectionClicked(0);
  Settle();
  Print("the same, sorted by place", program.SlowestKey(filter, "flare"), "ms", 50);
  Print("  findings that show", Findings(s).RowCount(), "", 0);
  std::vector<double> steps;
  for (int i = 0; i < 100; ++i) steps.push_back(Painted([&] { program.Command("mnuRNext"); }));
  Print("next finding with its sheet painted, the slowest of 100", Worst(steps), "ms", 0);
  Print("  median", Median(steps), "ms", 16);
  Print("hand-in check shown", program.Dialog("mnuRHandIn", {}), "ms", 400);
  Print(
      "a key in Go To, the slowest",
      [&] {
        double slowest = 0;
        program.Dialog("mnuRFind", [&](QWidget& dialog) {
          slowest = program.SlowestKey(program.Find<QWidget>(dialog, "txtGOT_Text"), "flare h2s");
        });
        return slowest;
      }(),
      "ms", 30);
  program.Command("mnuRCompleteness");
  program.Command("mnuRStrip");
  Settle();
  // the companion comes with the first commit
  s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=SYS_MAX_MO");
  WriteBatch batch(s.db);
  s.db.Execute("UPDATE CO_COMPANY SET ADDR2='first'");
  batch.Commit();
}

// With the companion, and the docks that showed at the end of the run before.
void MeasureWhole(Program& program, double start) {
  Print("start to the painted window, all docks in it", program.app.painted(), "ms", 200);
  Print("  until the docks are read and painted, too", start, "ms", 0);
  Session& s = program.s();
  const std::vector<int> nodes = MixedNodes(s);
  std::vector<double> clicks;
  Print("the first click", Painted([&] { program.Click(nodes.back()); }), "ms", 0);
  for (int i = 0; i < kClicks; ++i)
    clicks.push_back(Painted([&] { program.Click(nodes[static_cast<std::size_t>(i) % nodes.size()]); }));
  Print("click from sheet to sheet with all docks, worst of 1,000", Worst(clicks), "ms", 16);
  Print("  median", Median(clicks), "ms", 0);
  Print("  clicks over 16 ms",
        static_cast<double>(std::count_if(clicks.begin(), clicks.end(), [](double time) { return time > 16; })), "", 0);
  Print("change to the activity tree", Painted([&] {
                                         program.app.acts().Run([&] {
                                           ChangeEditMode(s);
                                           ChangeEditMode(s);
                                         });
                                       }) / 2,
        "ms", 0);
  Print("memory with all docks, at its most", Memory("VmHWM:"), "MB", 150);
  const double before = Memory("VmRSS:");
  for (int i = 0; i < kActs; ++i) {
    program.Click(nodes[static_cast<std::size_t>(i) % nodes.size()]);
    Settle();
  }
  Print("memory more after 10,000 acts", Memory("VmRSS:") - before, "MB", 0);
}

void MeasureMatrix(Program& program) {
  Print("matrix of 1,000 structures shown, the first time", Painted([&] { program.Command("mnuRCompleteness"); }), "ms",
        150);
  program.Command("mnuRCompleteness");
  Settle();
  Print("  shown again", Painted([&] { program.Command("mnuRCompleteness"); }), "ms", 150);
}

void MeasureGrid(Program& program) {
  program.ClickMonth();
  Settle();
  std::vector<double> frames;
  const double painted = program.Dialog("mnuNGrid", [&](QWidget& dialog) {
    auto& grid = program.Find<GridView>(dialog, "grdGRD");
    Print("  rows of the grid", grid.model()->rowCount(), "", 0);
    for (int i = 0; i < 200; ++i) frames.push_back(Painted([&] { grid.verticalScrollBar()->setValue(i * 16); }));
  });
  Print("grid of 3,333 flares painted", painted, "ms", 300);
  Print("a frame while it scrolls, the slowest of 200", Worst(frames), "ms", 16);
}

int MeasureOne(const std::string& what, const fs::path& folder, bool processor_time) {
  SetUpLook();
  Program program(folder, processor_time);
  const double start = SinceProcessStart(processor_time);
  if (what == "findings") MeasureFindings(program);
  if (what == "whole") MeasureWhole(program, start);
  if (what == "matrix") MeasureMatrix(program);
  if (what == "grid") MeasureGrid(program);
  return 0;
}

// ---- the inventories ----

std::string Template() {
  return (fs::read_symlink("/proc/self/exe").parent_path() / "mr.dbt").string();
}

// Months that lack all of their figures but one raise findings, and so do descriptions without any.
void EmptyRecords(const std::string& path) {
  Database db;
  db.Open(path);
  WriteBatch batch(db);
  for (const std::string& type : MonthlyTypes()) {
    const std::string table = "EA_" + type;
    const std::vector<std::string> columns = db.Query("SELECT * FROM " + table + " LIMIT 0").columns;
    std::string sets;
    for (std::size_t i = 2; i < columns.size(); ++i) sets += (sets.empty() ? "[" : ",[") + columns[i] + "]=NULL";
    if (!sets.empty()) db.Execute("UPDATE " + table + " SET " + sets);
    sets.clear();
    for (const std::string& column : db.Query("SELECT * FROM ED_" + type + " LIMIT 0").columns)
      if (column != "ED_ID_AK") sets += (sets.empty() ? "[" : ",[") + column + "]=NULL";
    db.Execute("UPDATE ED_" + type + " SET " + sets);
  }
  batch.Commit();
}

void MakeAll(const fs::path& folder) {
  const auto make = [&](const char* name, const InventoryPlan& plan) {
    fs::create_directories(folder / name);
    MakeInventory(Template(), (folder / name / "inventory.mdb").string(), plan);
  };
  InventoryPlan full = FullInventory();
  full.types = MonthlyTypes();
  make("full", full);
  EmptyRecords((folder / "full" / "inventory.mdb").string());
  InventoryPlan many = full;
  many.structures = 1000;
  make("many", many);
  InventoryPlan flares = FullInventory();
  flares.types = {"FLA"};
  make("flares", flares);
}

int MeasureAll(bool processor_time) {
  const fs::path folder = fs::temp_directory_path() / ("merlu-window-" + std::to_string(::getpid()));
  MakeAll(folder);
  std::printf("%s, platform %s\n", processor_time ? "processor time" : "by the clock",
              qgetenv("QT_QPA_PLATFORM").data());
  std::fflush(stdout);
  int failed = 0;
  using Part = std::pair<const char*, const char*>;
  for (const auto& [what, name] :
       {Part("findings", "full"), Part("whole", "full"), Part("matrix", "many"), Part("grid", "flares")}) {
    QProcess part;
    part.setProcessChannelMode(QProcess::ForwardedChannels);
    part.start(QCoreApplication::applicationFilePath(),
               {what, QString::fromStdString((folder / name).string()), processor_time ? "--processor-time" : ""});
    part.waitForFinished(-1);
    if (part.exitCode() != 0) ++failed;
  }
  fs::remove_all(folder);
  return failed == 0 ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
  const bool processor_time = count > 1 && std::string(words[count - 1]) == "--processor-time";
  if (processor_time) bench::CountProcessorTime();
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(count, words);
  try {
    return count > 2 ? MeasureOne(words[1], words[2], processor_time) : MeasureAll(processor_time);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
