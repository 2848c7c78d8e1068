#include "workshop.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "history/companion.h"
#include "shell/main_program.h"

namespace merlu::bench {
namespace fs = std::filesystem;
namespace {

std::string NewFolder() {
  std::string pattern = (fs::temp_directory_path() / "merlu-bench-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder can be made");
  return pattern;
}

std::string Template() {
  return (fs::read_symlink("/proc/self/exe").parent_path() / "mr.dbt").string();
}

void BringToDisk(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDWR);
  if (file < 0) throw std::runtime_error("cannot open " + path);
  ::fsync(file);
  ::close(file);
}

long PeakKilobytes() {
  std::ifstream status("/proc/self/status");
  std::string word;
  long peak = 0;
  while (status >> word)
    if (word == "VmHWM:") status >> peak;
  return peak;
}

InventoryPlan Share(double share) {
  InventoryPlan plan = FullInventory();
  plan.structures = std::max(1, static_cast<int>(plan.structures * share));
  plan.equipment = std::max(1, static_cast<int>(plan.equipment * share));
  return plan;
}

InventoryPlan Full(double share, int months) {
  InventoryPlan plan = Share(share);
  plan.types = MonthlyTypes();
  plan.months = months;
  return plan;
}

InventoryPlan Single() {
  InventoryPlan plan;
  plan.structures = 1;
  plan.equipment = 0;  // the tree has room for the full one beside it
  return plan;
}

InventoryPlan Mixed(double share) {
  InventoryPlan plan = Share(share);
  plan.types = {"DIE", "AMI", "BOI", "FLA", "GLY", "DRI", "LOA", "NGE", "NGT", "STO", "VEN"};
  plan.fault_share = 0.1;
  return plan;
}

InventoryPlan Flares(double share) {
  InventoryPlan plan = Share(share);
  plan.types = {"FLA"};
  plan.fault_share = 0.1;
  return plan;
}

}  // namespace

Workshop::Workshop(double share)
    : folder_(NewFolder()),
      everyday(Make("everyday", EverydayInventory())),
      full(Make("full", Full(share, 12))),
      eleven(Make("eleven", Full(share, 11))),
      single(Make("single", Single())),
      mixed(Make("mixed", Mixed(share))),
      flares(Make("flares", Flares(share))) {}

std::string Workshop::Make(const std::string& name, const InventoryPlan& plan) const {
  const std::string path = Path(name);
  MakeInventory(Template(), path, plan);
  return path;
}

Workshop::~Workshop() {
  std::error_code error;
  fs::remove_all(folder_, error);
}

std::string Workshop::NewPath(const std::string& name) const {
  const std::string path = Path(name);
  fs::remove(path);
  return path;
}

std::string Workshop::FreshCopy(const std::string& of, const std::string& name) const {
  const std::string path = Path(name);
  fs::copy_file(of, path, fs::copy_options::overwrite_existing);
  fs::remove(path + kCompanionExtension);
  BringToDisk(path);
  return path;
}

Opened::Opened(const std::string& path) : platform(path), s(platform, platform, platform) {
  Main(s);
}

void Opened::ExpectSilence() const {
  if (platform.boxes() > 0) throw std::runtime_error("the program told: " + platform.last_box());
  if (!s.notices.waiting.empty()) throw std::runtime_error("the program would tell: " + s.notices.waiting.front().text);
}

void CloseHistory(Session& s) {
  std::vector<std::string> tables;
  for (const RecordedTable& table : *s.db.recorder().tables())
    if (!table.IsAttached()) tables.push_back(table.name);
  s.cursors.Close();
  s.companion.Close();
  s.db.Close();
  s.db.Open(s.path);
  for (const std::string& table : tables) s.cursors.Open(s.db, table);
}

long PeakKilobytesOfStart(const std::string& path) {
  int ends[2];
  if (::pipe(ends) != 0) return 0;
  const pid_t child = ::fork();
  if (child == 0) {
    const Opened opened(path);
    const long peak = opened.platform.boxes() > 0 ? 0 : PeakKilobytes();
    const bool told = ::write(ends[1], &peak, sizeof peak) == sizeof peak;
    ::_exit(told ? 0 : 1);
  }
  ::close(ends[1]);
  long peak = 0;
  if (child < 0 || ::read(ends[0], &peak, sizeof peak) != sizeof peak) peak = 0;
  ::close(ends[0]);
  if (child > 0) ::waitpid(child, nullptr, 0);
  return peak;
}

}  // namespace merlu::bench
