#include "faults/hostile_companion.h"

#include <sqlite3.h>

#include <fstream>
#include <sstream>

#include "base/fault.h"
#include "forms/desk.h"
#include "forms/list_model.h"
#include "history/companion.h"
#include "history/notes.h"
#include "history/steps.h"
#include "inventory.h"
#include "quiet_platform.h"
#include "shell/main_program.h"
#include "shell/messages.h"
#include "shell/program_end.h"
#include "shell/sheet_acts.h"

namespace merlu::test {
namespace {

constexpr std::size_t kChangeSize = 8, kPageSize = 4096;
constexpr int kMostRows = 40;

void Write(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// Looks at everything that a dialog shows, and presses what does something.
class Curious : public QuietPlatform {
 public:
  explicit Curious(const std::string& database) : QuietPlatform(database) {}
  Session* s = nullptr;

  Button Ask(const Box& box) override {
    return box.buttons.back() == Button::kCancel ? Button::kCancel : box.buttons[0];
  }
  void RunModal(Form& form) override {
    for (const char* list : {"lvwDRF_Fields", "lvwHIS_Steps", "lvwHIS_Values"}) Look(form, list);
    for (const char* button : {"cmdDRF_Continue", "cmdHIS_Undo"})
      if (form.Find(button) != nullptr) Plainly(*s, [&] { act::Click(s->desk, form, button); });
    if (form.visible) form.Raise(form.cancel_button, Event::kClick);
  }

 private:
  void Look(Form& form, const char* name) {
    const Control* list = form.Find(name);
    if (list == nullptr || list->model == nullptr) return;
    if (std::string(name) == "lvwHIS_Steps")
      for (const char* show : {"This record", "All"})
        Plainly(*s, [&] { act::Choose(s->desk, form, "cmbHIS_Show", show); });
    const int rows = std::min(kMostRows, list->model->RowCount());
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < 6; ++column) list->model->Text(row, column);
      if (std::string(name) != "lvwHIS_Steps") continue;
      Plainly(*s, [&] { act::Pick(s->desk, form, name, {row}); });
      Look(form, "lvwHIS_Values");
    }
  }
};

template <typename Act>
void UnlessRefused(Act&& act) {
  try {
    act();
  } catch (const Fault&) {
    // refused
  }
}

void ReadAll(const Companion& companion) {
  if (!companion.IsAttached()) return;
  for (const HistoryStep& step : Steps(companion))
    for (const std::string& part : PartsOf(companion, step.id)) UnpackChanges(part);
  Drafts(companion);
  HandIns(companion);
  AllCopied(companion);
}

void UndoAndRedo(Companion& companion) {
  if (!companion.IsAttached()) return;
  constexpr int kMost = 3;
  for (int i = 0; i < kMost; ++i)
    if (const auto step = NextUndo(companion)) UndoSteps(companion, step->id);
  for (int i = 0; i < kMost; ++i)
    if (const auto step = NextRedo(companion)) RedoSteps(companion, step->id);
}

void Press(Session& s, const char* name) {
  if (s.main != nullptr && !s.ended) Plainly(s, [&] { act::Click(s.desk, *s.main, name); });
}

void Use(Session& s) {
  Plainly(s, [&] { Main(s); });
  if (s.ended || s.main == nullptr) return;
  if (s.editing) Press(s, "cmdSaveEdits"), Press(s, "cmdCANCEL");
  Press(s, "mnuRHistory");
  for (const char* command : {"mnuEUndo", "mnuEUndo", "mnuERedo", "mnuEUndo", "mnuERedo", "mnuERedo"})
    Press(s, command);
  for (const TreeNode& node : s.tree.nodes)
    if (node.key.find("FLA") != std::string::npos) {
      Plainly(s, [&] { ClickNode(s, s.tree.Find(node.key)); });
      break;
    }
  for (const char* command : {"cmdEdit", "cmdSaveExit", "mnuEUndo"}) Press(s, command);
}

}  // namespace

// An inventory with a history: a deletion undone and redone, a month, a save.
HostileCompanion::HostileCompanion() : path_(folder_.path("inventory.mdb")) {
  InventoryPlan plan;
  plan.structures = 2;
  plan.equipment = 32;
  plan.months = 1;
  MakeInventory(TemplatePath(), path_, plan);
  Raw(path_, {"CREATE TABLE QC_XREF (StructID TEXT, EquipID TEXT)"});
  {
    QuietPlatform platform(path_);
    Session s(platform, platform, platform);
    Main(s);
    for (const char* command : {"cmdUSER_AddSurvey", "mnuSetEditMode"}) Press(s, command);
    Plainly(s, [&] { ClickNode(s, s.tree.Find(s.tree.nodes.at(1).key)); });
    for (const char* command : {"mnuEDelete", "mnuEUndo", "cmdEdit", "cmdSaveExit"}) Press(s, command);
    EndProgram(s);
  }
  inventory_ = FileBytes(path_);
  companion_ = FileBytes(path_ + ".history");
}

void HostileCompanion::Fresh() {
  for (const char* journal : {"-journal", ".history-journal"}) fs::remove(path_ + journal);
  fs::remove_all(path_ + " backups");
  if (FileBytes(path_) != inventory_) Write(path_, inventory_);
  Write(path_ + ".history", companion_);
}

void HostileCompanion::ChangeBytes(const std::vector<std::uint8_t>& changes) {
  Fresh();
  std::string bytes = companion_;
  const std::size_t pages = bytes.size() / kPageSize;
  for (std::size_t at = 0; at + kChangeSize <= changes.size(); at += kChangeSize) {
    const std::uint8_t* change = &changes[at];
    std::size_t place = (change[0] % pages) * kPageSize + (change[1] * 256U + change[2]) % kPageSize;
    for (int i = 0; i <= change[3] % 16 && place < bytes.size(); ++i, ++place)
      bytes[place] = static_cast<char>(change[4 + i % 4]);
  }
  Write(path_ + ".history", bytes);
}

void HostileCompanion::ChangeStep(const std::vector<std::uint8_t>& changes) {
  Fresh();
  sqlite3* db = nullptr;
  sqlite3_open((path_ + ".history").c_str(), &db);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, "SELECT id,changes FROM part ORDER BY id", -1, &statement, nullptr);
  std::vector<std::pair<std::int64_t, std::string>> parts;
  while (sqlite3_step(statement) == SQLITE_ROW)
    parts.emplace_back(sqlite3_column_int64(statement, 0),
                       std::string(static_cast<const char*>(sqlite3_column_blob(statement, 1)),
                                   static_cast<std::size_t>(sqlite3_column_bytes(statement, 1))));
  sqlite3_finalize(statement);
  for (auto& [id, part] : parts) {
    constexpr std::size_t kMark = 3;
    for (std::size_t at = 0; at + kChangeSize <= changes.size(); at += kChangeSize) {
      const std::uint8_t* change = &changes[at];
      std::size_t place = kMark + (change[0] * 256U + change[1]) % (part.size() - kMark);
      for (int i = 0; i <= change[2] % 8 && place < part.size(); ++i, ++place)
        part[place] = static_cast<char>(change[4 + i % 4]);
    }
    sqlite3_prepare_v2(db, "UPDATE part SET changes=? WHERE id=?", -1, &statement, nullptr);
    sqlite3_bind_blob(statement, 1, part.data(), static_cast<int>(part.size()), SQLITE_STATIC);
    sqlite3_bind_int64(statement, 2, id);
    sqlite3_step(statement);
    sqlite3_finalize(statement);
  }
  sqlite3_close(db);
}

void HostileCompanion::PutDraft(const std::string& at, const std::string& control, const std::string& text) {
  Fresh();
  sqlite3* db = nullptr;
  sqlite3_open((path_ + ".history").c_str(), &db);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, "INSERT INTO draft VALUES (1,'nobody',?1,?1)", -1, &statement, nullptr);
  sqlite3_bind_text(statement, 1, at.data(), static_cast<int>(at.size()), SQLITE_STATIC);
  sqlite3_step(statement);
  sqlite3_finalize(statement);
  sqlite3_prepare_v2(db, "INSERT INTO draft_field VALUES (1,?1,?1,'',?2)", -1, &statement, nullptr);
  sqlite3_bind_text(statement, 1, control.data(), static_cast<int>(control.size()), SQLITE_STATIC);
  sqlite3_bind_text(statement, 2, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  sqlite3_step(statement);
  sqlite3_finalize(statement);
  sqlite3_close(db);
}

bool HostileCompanion::ReadingLeavesASoundFile() {
  Database db;
  db.Open(path_);
  Companion companion;
  companion.Open(db, nullptr);
  UnlessRefused([&] { ReadAll(companion); });
  UnlessRefused([&] { UndoAndRedo(companion); });
  companion.Close();
  return NullToEmpty(db.Single("PRAGMA integrity_check")) == "ok" && db.Query("PRAGMA foreign_key_check").rows.empty();
}

bool HostileCompanion::UseLeavesASoundFile() {
  {
    Curious platform(path_);
    Session s(platform, platform, platform);
    platform.s = &s;
    Use(s);
    CloseDatabase(s);
  }
  return IsSound(path_);
}

}  // namespace merlu::test
