// Acts that write the inventory together with its history.
#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

#include "faults/kill_steps.h"
#include "history/backups.h"
#include "history/companion.h"
#include "history/layout.h"
#include "inventory.h"
#include "session/node_keys.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char* kUser = kKillUser;
constexpr int kReplays = 9, kSaves = 8;

void MakeSmall(const KillFiles& files) {
  InventoryPlan plan;
  plan.structures = 4;
  plan.equipment = 64;
  plan.months = 3;
  MakeInventory(TemplatePath(), files.work(), plan);
}

std::string RowsBefore(const KillFiles&, Database& db) {
  return AllRows(db);
}

// The last structure is selected and deleted.
std::vector<KillStep> DeleteLast(Database& db, int act) {
  const Rows rows = db.Query("SELECT CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK DESC LIMIT 1");
  const Values& row = rows.rows.at(0);
  const std::string key = StructureKey(kUser, NullToEmpty(row[0]), NullToEmpty(row[1]));
  return {{"select \"" + key + "\""}, {"answer OK"}, {"click mnuEDelete", act}};
}

// What the check asks of the history, on the file as the cut has left it.
template <typename Ask>
std::string WithHistory(const KillFiles& files, Database& db, Ask&& ask) {
  db.Close();
  std::string wrong;
  {
    Database own;
    own.Open(files.work());
    Companion companion;
    companion.Open(own, nullptr);
    wrong = ask(own, companion);
    companion.Close();
  }
  db.Open(files.work());
  return wrong;
}

// ---- undo and redo ----

// A deletion (act 1), then taken back and done again in turns.
KillScript UndoScript(const KillFiles& files, Database& db) {
  KillScript script;
  script.opening = {Start(files), {"click mnuSetEditMode"}};
  script.body = DeleteLast(db, 1);
  for (int act = 2; act <= kReplays; ++act)
    script.body.push_back({act % 2 == 0 ? "click mnuEUndo" : "click mnuERedo", act});
  return script;
}

// The reported step is there, and undoing it restores the rows.
std::string CheckUndo(const KillFiles& files, Database& db, const std::string& before, int done) {
  const bool gone = AllRows(db) != before;
  const auto is_gone_after = [](int act) { return act % 2 == 1; };
  if (gone != is_gone_after(done) && gone != is_gone_after(done + 1)) return Told("structures gone", gone, done);
  return WithHistory(files, db, [&](Database& own, Companion& companion) -> std::string {
    if (done > 0 && !companion.IsAttached()) return "no history: " + companion.why_not();
    if (companion.IsAttached() && gone != NextUndo(companion).has_value())
      return gone ? "the step that was told is not there" : "a step that did not happen is there";
    if (gone && UndoSteps(companion, NextUndo(companion)->id)) return "the step cannot be undone";
    return AllRows(own) == before ? "" : "undo does not give what was before";
  });
}

// ---- saves of the grid: every save writes one number into two columns of all flares of a month ----

KillScript GridScript(const KillFiles& files, Database& db) {
  const std::int64_t flares = ToInteger(db.Single("SELECT COUNT(*) FROM ED_FLA"));
  KillScript script;
  script.opening = {
      Start(files), {"click mnuNGrid"}, {"set cmbGRD_Month 2017/01"}, {"set cmbGRD_Type \"Combustion Flare\""}};
  for (int i = 1; i <= kSaves; ++i) {
    for (std::int64_t row = 0; row < flares; ++row)
      for (const char* column : {"txtFLA_HrsOperated", "txtFLA_VolFlared"})
        script.body.push_back({"cell grdGRD " + std::to_string(row) + " " + column + " " + std::to_string(500 + i)});
    script.body.push_back({"click cmdGRD_Save", i});
  }
  script.body.push_back({"click cmdCANCEL"});
  return script;
}

std::string FlareValues(const KillFiles&, Database& db) {
  std::string all;
  db.ForEach(
      "SELECT DISTINCT CAST(f.OP_HR AS INTEGER)||' '||CAST(f.VOL_FLARED AS INTEGER) FROM EA_FLA f JOIN EA_EQUIP_ACTV a "
      "ON a.EA_ID_AK=f.EA_ID_AK WHERE a.EA_MO=1 ORDER BY 1",
      {}, [&](const RowView& row) { all += std::string(row.Text(0)) + "\n"; });
  return all;
}

std::string AfterGrid(int act) {
  const std::string number = std::to_string(500 + act);
  return number + " " + number + "\n";
}

std::string CheckGrid(const KillFiles& files, Database& db, const std::string& before, int done) {
  const auto after = [&](int act) { return act == 0 ? before : AfterGrid(act); };
  const std::string now = FlareValues(files, db);
  if (now != after(done) && now != after(done + 1))
    return "the flares hold " + now + " with save " + std::to_string(done);
  const int act = now == after(done) ? done : done + 1;
  if (act == 0) return "";
  return WithHistory(files, db, [&](Database& own, Companion& companion) -> std::string {
    if (!companion.IsAttached()) return "no history: " + companion.why_not();
    const auto step = NextUndo(companion);
    if (!step || step->title.what != "Month Grid") return "the step that was told is not there";
    if (UndoSteps(companion, step->id)) return "the step cannot be undone";
    if (FlareValues(files, own) != after(act - 1)) return "undo does not give what was before";
    return RedoSteps(companion, step->id) ? "the step cannot be done again" : "";
  });
}

// ---- a backup restored: with the structure, without it, and so on ----

KillScript RestoreScript(const KillFiles& files, Database& db) {
  KillScript script;
  script.opening = {Start(files), {"click mnuSetEditMode"}};
  for (const KillStep& step : DeleteLast(db, 0)) script.opening.push_back(step);
  script.opening.push_back({"click mnuFBackups"});
  for (int act = 1; act <= 4; ++act) {  // the newest holds what was there before the last act
    script.body.push_back({"pick lvwBAK_List 0"});
    script.body.push_back({"answer Yes"});
    script.body.push_back({"click cmdBAK_Restore", act});
  }
  script.body.push_back({"click cmdClose"});
  return script;
}

std::string WhatIsWrongWithBackups(const std::string& inventory) {
  for (const Backup& backup : Backups(inventory)) {
    Database db;
    db.OpenReadOnly(backup.path);
    if (const std::string wrong = WhatIsUnsound(db); !wrong.empty()) return backup.path + ": " + wrong;
  }
  return "";
}

std::set<std::string> Lines(const std::string& text) {
  std::istringstream in(text);
  std::set<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.insert(line);
  return lines;
}

std::string CheckRestore(const KillFiles& files, Database& db, const std::string& before, int done) {
  const std::string now = AllRows(db);
  const bool whole = now == before;
  const std::set<std::string> all = Lines(before), some = Lines(now);
  if (!whole && (some.size() >= all.size() || !std::includes(all.begin(), all.end(), some.begin(), some.end())))
    return "rows of neither";
  const int act = whole == (done % 2 == 1) ? done : done + 1;
  if (std::string wrong = WhatIsWrongWithBackups(files.work()); !wrong.empty()) return wrong;
  return WithHistory(files, db, [&](Database&, Companion& companion) -> std::string {
    if (!companion.IsAttached()) return "no history: " + companion.why_not();
    const std::vector<HistoryStep> steps = Steps(companion);
    const auto restores =
        std::count_if(steps.begin(), steps.end(), [](const HistoryStep& step) { return step.ends_undo; });
    if (restores < act) return Told("restores in the history", restores, done);
    return (act > 0) == NextUndo(companion).has_value() ? "undo goes behind a restored backup" : "";
  });
}

}  // namespace

std::vector<KillOperation> HistoryKillOperations() {
  return {{"undo", MakeSmall, UndoScript, RowsBefore, CheckUndo},
          {"grid", MakeSmall, GridScript, FlareValues, CheckGrid},
          {"restore", MakeSmall, RestoreScript, RowsBefore, CheckRestore}};
}

}  // namespace merlu::test
