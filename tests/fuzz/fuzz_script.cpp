// Any script, played on a small inventory.
#include <cstddef>
#include <cstdint>
#include <sstream>

#include "inventory.h"
#include "script/player.h"
#include "shell/dialogs.h"
#include "shell/main_program.h"
#include "workplace.h"

namespace merlu::test {
namespace {

// Stays in its folder: a script cannot name a file elsewhere.
class PlayerAtHome : public Player {
 public:
  PlayerAtHome(std::istream& in, std::ostream& out, const PlayOptions& options, std::string home)
      : Player(in, out, options), home_(std::move(home)) {}
  std::string AskFile(const FileQuestion& question) override {
    const std::string name = Player::AskFile(question);
    return name.empty() ? "" : home_ + "/chosen" + question.extension;
  }
  std::string AskFolder(const std::string& prompt) override { return Player::AskFolder(prompt).empty() ? "" : home_; }
  std::string ProgramFolder() override { return home_; }
  std::string DataFolder() override { return home_; }

 private:
  std::string home_;
};

void Play(std::string script) {
  static const Workplace place;
  static const bool made = [] {
    InventoryPlan plan;
    plan.structures = 1;
    plan.equipment = 16;
    plan.months = 1;
    MakeInventory(TemplatePath(), place.path("base.mdb"), plan);
    return ::chdir(place.path().c_str()) == 0;
  }();
  if (!made) return;
  place.Clear();
  fs::copy_file(place.path("base.mdb"), place.path("inventory.mdb"));
  for (char& c : script)
    if (c == '/') c = '_';
  std::istringstream in("start inventory.mdb\n" + script);
  std::ostringstream out;
  PlayOptions options;
  options.settings_file = place.path("settings.ini");
  options.clock = DateTime{2017, 3, 5, 14, 2, 0};
  PlayerAtHome(in, out, options, place.path()).Run();
}

}  // namespace
}  // namespace merlu::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  merlu::test::Play(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
