// The cost of the history: the same acts with the recorder and the companion, and on a connection that records nothing.
// Saves, runs and imports are measured in processor time, since waiting for the disk would hide the difference; a
// commit is mostly waiting, and is measured by the clock.
#include <ctime>
#include <stdexcept>

#include "exchange/export_file.h"
#include "exchange/structure_import.h"
#include "forms/desk.h"
#include "history/companion.h"
#include "measures.h"
#include "plain.h"
#include "session/node_keys.h"
#include "shell/edit_cycle.h"
#include "shell/qc_command.h"
#include "shell/sheet_acts.h"

namespace merlu::bench {
namespace {

constexpr int kMonth = 6;

template <typename Work>
double ProcessorSeconds(Work&& work) {
  const auto now = [] {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  };
  const double begin = now();
  work();
  return now() - begin;
}

enum class History { kKept, kNone };

// The program on a file, with its history or without a recorder and a companion.
struct Run {
  Run(const std::string& path, History history) : opened(path), s(opened.s) {
    if (history == History::kNone) CloseHistory(s);
  }

  // A commit of the history before the time is taken, so that its file is there.
  void Begin() {
    s.db.Execute("UPDATE SYS_CONFIG SET SYS_MAX_MO=SYS_MAX_MO");
    s.db.Execute("UPDATE CO_COMPANY SET ADDR2='first'");
  }

  Opened opened;
  Session& s;
};

// ---- a save ----

double Save(const Workshop& shop, History history) {
  constexpr int kSaves = 200;
  Run run(shop.FreshCopy(shop.flares, "history-save"), history);
  Session& s = run.s;
  run.Begin();
  std::string flare;
  for (const TreeNode& node : s.tree.nodes)
    if (flare.empty() && node.key.find("FLA") != std::string::npos) flare = node.key;
  ClickNode(s, s.tree.Find(flare));
  Form& form = *s.desk.Find("frmFLA");
  const double seconds = ProcessorSeconds([&] {
    for (int i = 1; i <= kSaves; ++i) {
      BeginEdit(s);
      act::Type(s.desk, form, "txtFLA_HrsOperated", std::to_string(100 + i));
      act::Type(s.desk, form, "txtFLA_VolFlared", std::to_string(i));
      SaveEdits(s);
      CancelEdit(s);
    }
  });
  if (ToInteger(s.db.Single("SELECT COUNT(*) FROM EA_FLA WHERE VOL_FLARED=200 AND OP_HR=300")) == 0)
    throw std::runtime_error("nothing was saved");
  return seconds;
}

// ---- a run ----

double RunMonth(const Workshop& shop, History history) {
  Run run(shop.FreshCopy(shop.mixed, "history-run"), history);
  run.Begin();
  Session& s = run.s;
  ClickNode(s, s.tree.Find(SurveyKey(s.current.UserID, kMonth, s.year)));
  return ProcessorSeconds([&] { RunQCAndTell(s, s.current, true); });
}

// ---- an import ----

std::string ImportTarget(const Workshop& shop) {
  const std::string path = shop.FreshCopy(shop.single, "history-import");
  PlainFile(path).Run("UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='Z' || CMPLX_ID_NUM");
  return path;
}

void ImportFull(Run& run, const Workshop& shop) {
  Session& s = run.s;
  s.exchange.OpenPrivateCopy(shop.full);
  std::vector<StructureName> all;
  for (const ListedStructure& structure : ListStructures(s.exchange)) all.push_back(structure.name);
  const ImportPlan plan = ImportStructures(s, s.exchange, all, Import::kDo);
  if (!plan.adds) throw std::runtime_error(plan.refusal);
}

double ImportAll(const Workshop& shop, History history) {
  Run run(ImportTarget(shop), history);
  run.Begin();
  return ProcessorSeconds([&] { ImportFull(run, shop); });
}

double UndoImport(const Workshop& shop) {
  Run run(ImportTarget(shop), History::kKept);
  run.Begin();
  ImportFull(run, shop);
  const auto step = NextUndo(run.s.companion);
  const double seconds = Seconds([&] { UndoSteps(run.s.companion, step->id); });
  if (ToInteger(run.s.db.Single("SELECT COUNT(*) FROM PD_PLATFORM_DESC")) != 1)
    throw std::runtime_error("the import was not undone");
  return seconds;
}

// ---- a commit ----

double Commit(const Workshop& shop, History history) {
  constexpr int kCommits = 50;
  Run run(shop.FreshCopy(shop.everyday, "history-commit"), history);
  run.Begin();
  return Seconds([&] {
    for (std::int64_t i = 0; i < kCommits; ++i) {
      WriteBatch batch(run.s.db);
      run.s.db.Execute("UPDATE EA_FLA SET OP_HR=? WHERE EA_ID_AK=(SELECT MIN(EA_ID_AK) FROM EA_FLA)", {i});
      batch.Commit();
    }
  });
}

}  // namespace

std::vector<Measure> HistoryMeasures(const Workshop& shop) {
  const auto both = [&shop](double (*once)(const Workshop&, History)) {
    return [&shop, once, turn = InTurn()]() mutable {
      return turn([&] { return once(shop, History::kKept); }, [&] { return once(shop, History::kNone); });
    };
  };
  return {{"history: 200 saves, processor time", 1.5, 7, both(Save)},
          {"history: QC of a month of mixed types, processor", 1.3, 7, both(RunMonth)},
          {"history: import of 300 structures, processor", 1.8, 5, both(ImportAll)},
          {"history: 50 commits of both files", 3.2, 7, both(Commit)},
          {"history: undo of that import (1 s at most)", 0, 5, [&shop] {
             return Pair{UndoImport(shop), 0};
           }}};
}

}  // namespace merlu::bench
