#include "faults/walker.h"

#include <fstream>

#include "base/fault.h"
#include "faults/kill_operations.h"
#include "shell/dialogs.h"
#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/sheet_acts.h"

namespace merlu::test {
namespace {

constexpr std::size_t kLogged = 40;
constexpr int kMostStructures = 8, kMostEquipment = 60;
constexpr int kMostActsInDialog = 25;

// Commands that copy the whole file, or end the program, are pressed less often.
const std::vector<std::string> kRare = {"mnuFExit",   "mnuFileCreateNewDB",  "mnuFileSelectDatabase", "mnuEStructB",
                                        "mnuFExport", "mnuFExportInventory", "frmInvQCPrint",         "mnuEStructS",
                                        "mnuEDelete", "cmdUSER_AddSurvey",   "mnuENewSurvey"};
const std::vector<std::string> kAddsStructures = {"cmdUSER_AddStructure", "mnuENewStructure"};
const std::vector<std::string> kAddsEquipment = {"cmdSTRUCTURE_AddEquip", "mnuENewEquipment"};

bool IsIn(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

Walker::Walker(std::uint32_t seed, std::string folder) : random_(seed), folder_(std::move(folder)) {}

void Walker::Note(std::string what) {
  log_.push_back(std::to_string(acts_) + " " + what.substr(0, 160));
  if (log_.size() > kLogged) log_.pop_front();
}

void Walker::Start() {
  Main(s);
  CloseSplash(s);
}

std::string Walker::OddText() {
  static const std::vector<std::string> odd = {"",
                                               " ",
                                               "0",
                                               "-1",
                                               "1",
                                               "2",
                                               "98",
                                               "744",
                                               "745",
                                               "0.5",
                                               ".5",
                                               "5.",
                                               "-0",
                                               "+5",
                                               "1e3",
                                               "1e308",
                                               "1e309",
                                               "1e-400",
                                               "-1e400",
                                               "1,000",
                                               "1,0,0",
                                               ",1",
                                               "12..5",
                                               "--1",
                                               "+-1",
                                               "1e",
                                               "1e+",
                                               "e5",
                                               "  7 ",
                                               "7 7",
                                               "0x10",
                                               "1 000",
                                               "NaN",
                                               "inf",
                                               "abc",
                                               "A",
                                               "Yes",
                                               "No",
                                               "NA",
                                               "NULL",
                                               "O'Brien",
                                               "\"quoted\"",
                                               "a\\b",
                                               "%",
                                               "*",
                                               "?",
                                               "[x]",
                                               "'; DROP TABLE QC;--",
                                               "n\xC3\xA9 \xC3\x9Cmlaut",
                                               "\xE2\x98\x83",
                                               "\xF0\x9F\x94\xA5\xF0\x9F\x94\xA5",
                                               "\xFF\xFE",
                                               "\xC3",
                                               "a\tb",
                                               "line\nline",
                                               "00000000000000000001",
                                               "999999999999999999999",
                                               "2017",
                                               "13"};
  const int kind = Below(40);
  if (kind == 0) return std::string(3000, 'x');
  if (kind == 1) return std::string(400, '9');
  if (kind == 2) return std::to_string(static_cast<int>(random_()));
  if (kind == 3) return std::string(9, static_cast<char>(1 + Below(255)));
  return odd[static_cast<std::size_t>(Below(odd.size()))];
}

Button Walker::Ask(const Box& box) {
  const Button answer = box.buttons[static_cast<std::size_t>(Below(box.buttons.size()))];
  Note("box [" + box.text + "] " + std::string(ButtonName(answer)));
  // nothing is to be gained from trying again, and the other answer ends the attempt
  return answer == Button::kRetry ? LeastChange(box) : answer;
}

std::string Walker::AskFile(const FileQuestion& question) {
  if (Chance(20)) return "";
  if (question.extension == ".pdf") return folder_ + "/summary.pdf";
  if (question.kind == FileQuestion::Kind::kSave) return folder_ + "/target.mdb";
  // the other file is for imports only
  return question.title.find("Import") != std::string::npos ? folder_ + "/other.mdb" : folder_ + "/inventory.mdb";
}

void Walker::WriteReport(const InventoryReport& report, const std::string& path, const std::function<void(int, int)>&) {
  std::ofstream(path) << report.findings;
}

void Walker::RunModal(Form& form) {
  for (int i = 0; i < kMostActsInDialog && form.visible; ++i) ActOn(form);
  if (form.visible) form.Raise(form.cancel_button, Event::kClick);
}

Form* Walker::Top() {
  return s.desk.showing.empty() ? nullptr : s.desk.showing.back();
}

bool Walker::IsWorthIt(const Form& form, const Control& control) {
  if (form.modal) return true;
  if (IsIn(kAddsStructures, control.name) &&
      ToInteger(s.db.Single("SELECT COUNT(*) FROM PD_PLATFORM_DESC")) >= kMostStructures)
    return false;
  if (IsIn(kAddsEquipment, control.name) &&
      ToInteger(s.db.Single("SELECT COUNT(*) FROM ED_EQUIP_DESC")) >= kMostEquipment)
    return false;
  return !IsIn(kRare, control.name) || Chance(4);
}

std::vector<std::string> Walker::Usable(const Form& form, std::initializer_list<Kind> kinds) const {
  std::vector<std::string> names;
  for (const Control& control : form.controls())
    if (std::find(kinds.begin(), kinds.end(), control.kind) != kinds.end() &&
        WhyNot(s.desk, form, control, true).empty())
      names.push_back(control.name);
  return names;
}

void Walker::Press(Form& form) {
  const auto names = Usable(form, {Kind::kButton, Kind::kMenu, Kind::kOption});
  if (names.empty()) return;
  const Control& control = form.At(names[static_cast<std::size_t>(Below(names.size()))]);
  if (!IsWorthIt(form, control)) return;
  Note("click " + control.name);
  act::Click(s.desk, form, std::string(control.name));
}

void Walker::Enter(Form& form) {
  const auto names = Usable(form, {Kind::kText, Kind::kMasked});
  if (names.empty()) return;
  const std::string name = names[static_cast<std::size_t>(Below(names.size()))];
  std::string text = OddText();
  if (name == "txtExportFilename") text = folder_ + "/target.mdb";
  if (name == "txtImportFilename") text = folder_ + "/other.mdb";
  Note("set " + name + " " + text);
  act::GotFocus(s.desk, form, name);
  act::Type(s.desk, form, name, text);
  act::LostFocus(s.desk, form, name);
}

void Walker::Choose(Form& form) {
  const auto names = Usable(form, {Kind::kList});
  if (names.empty()) return;
  const std::string name = names[static_cast<std::size_t>(Below(names.size()))];
  const Control& control = form.At(name);
  const bool item = !control.items.empty() && !Chance(10);
  const std::string text = item ? control.items[static_cast<std::size_t>(Below(control.items.size()))] : OddText();
  Note("choose " + name + " " + text);
  act::GotFocus(s.desk, form, name);
  act::Choose(s.desk, form, name, text);
  act::LostFocus(s.desk, form, name);
}

void Walker::Tick(Form& form) {
  const auto names = Usable(form, {Kind::kCheck});
  if (names.empty()) return;
  const std::string name = names[static_cast<std::size_t>(Below(names.size()))];
  Note("check " + name);
  act::Check(s.desk, form, name, Chance(50));
}

void Walker::UseList(Form& form) {
  const auto names = Usable(form, {Kind::kListView});
  if (names.empty()) return;
  const std::string name = names[static_cast<std::size_t>(Below(names.size()))];
  const std::size_t rows = form.At(name).rows.size();
  std::vector<int> picked;
  if (rows > 0)
    for (int i = form.At(name).many ? Below(3) : 0; i >= 0; --i) picked.push_back(Below(rows));
  Note("pick " + name);
  act::Pick(s.desk, form, name, picked);
  if (Chance(30)) act::DoubleClick(s.desk, form, name);
}

void Walker::TurnPage(Form& form) {
  const auto names = Usable(form, {Kind::kTab});
  if (names.empty()) return;
  const std::string name = names[static_cast<std::size_t>(Below(names.size()))];
  Note("page of " + name);
  act::Page(s.desk, form, name, Below(form.At(name).items.size() + 1));
}

void Walker::ActOn(Form& form) {
  ++acts_;
  const int kind = Below(100);
  if (kind < 30) return Enter(form);
  if (kind < 45) return Choose(form);
  if (kind < 50) return Tick(form);
  if (kind < 58) return UseList(form);
  if (kind < 62) return TurnPage(form);
  Press(form);
}

void Walker::ActOnTree() {
  if (!s.tree.enabled || s.tree.nodes.empty()) return;
  const int node = Below(s.tree.nodes.size());
  Note("select " + s.tree.nodes[static_cast<std::size_t>(node)].key);
  ClickNode(s, node);
}

// The rows behind the newest step are those that they were whenever it was the newest one.
void Walker::Compare() {
  const auto newest = NextUndo(s.companion);
  if (!newest) return;
  const std::size_t rows = std::hash<std::string>{}(AllRows(s.db));
  const auto [known, fresh] = known_.try_emplace({newest->id, PartsOf(s.companion, newest->id).size()}, rows);
  if (fresh) return;
  ++compared_;
  if (known->second != rows) differs_ = newest->title.what + " at " + newest->title.place;
}

void Walker::UndoAndRedo() {
  constexpr int kMost = 4;
  Compare();
  for (const char* command : {"mnuEUndo", "mnuERedo"})
    for (int i = Below(kMost); i > 0 && WhyNot(s.desk, *s.main, s.main->At(command), true).empty(); --i) {
      Note(std::string("click ") + command + ", " + s.main->At(command).caption);
      ++acts_;
      act::Click(s.desk, *s.main, command);
      if (s.ended || !s.db.IsOpen()) return;
      Compare();
    }
}

void Walker::StartAgain() {
  Note("start again");
  if (!s.ended && !CloseMainWindow(s)) return;
  Start();
}

void Walker::Act() {
  try {
    if (s.ended || Top() == nullptr || !s.db.IsOpen()) return StartAgain();
    if (Below(2000) == 0) {
      ++acts_;
      return StartAgain();
    }
    if (Below(60) == 0) return UndoAndRedo();
    if (Chance(25)) {
      ++acts_;
      return ActOnTree();
    }
    // the sheet on top, or the main window beside it
    ActOn(Chance(50) ? *Top() : *s.main);
    ShowNotices(s);
  } catch (const Fault& fault) {
    Note("fault " + fault.description);
    TellFault(s, fault);
  }
}

}  // namespace merlu::test
