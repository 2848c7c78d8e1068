#include "shell/undo.h"

#include "session/act.h"
#include "session/node_keys.h"
#include "session/place.h"
#include "shell/edit_modes.h"
#include "shell/messages.h"
#include "shell/row_finder.h"
#include "shell/sheet_acts.h"
#include "shell/trees.h"

namespace merlu {
namespace {

void TellInTheWay(Session& s, const HistoryStep& step, const InTheWay& row, const char* what) {
  const std::string place = RowFinder(s, step.id).PlaceOf(row.table, row.rowid);
  Tell(s, std::string("This cannot be ") + what + ": " + place + " was changed by another program.", Icon::kWarning);
}

void ReadConfiguration(Session& s) {
  s.db.ForEach("SELECT sys_yr,SYS_MAX_MO FROM SYS_CONFIG ORDER BY rowid LIMIT 1", {}, [&](const RowView& row) {
    s.year = static_cast<int>(row.Integer(0));
    s.last_month = static_cast<int>(row.Integer(1));
  });
}

using Replay = std::optional<InTheWay> (*)(Companion&, std::int64_t);

// The target step decides the place: the user's place before it, or after it.
bool Run(Session& s, const HistoryStep& step, Replay replay, const char* what, const std::string& place) {
  bool done = false;
  if (!BackUpOnceADay(s)) return false;
  Plainly(s, [&] {
    const Busy busy(s);
    s.db.NoticeOthers();
    if (const auto row = replay(s.companion, step.id)) return TellInTheWay(s, step, *row, what);
    done = true;
  });
  if (done) {
    ShowPlaceAgain(s, place);
    s.message = std::string(what) == "undone" ? "Undone: " + step.title.what : "Redone: " + step.title.what;
  }
  ShowUndoCommands(s);
  return done;
}

}  // namespace

void ShowPlaceAgain(Session& s, const std::string& packed_location) {
  QCLocation at = s.current;
  Mode mode = s.mode;
  UnpackLocation(packed_location, at, mode);
  Plainly(s, [&] { ReadConfiguration(s); });
  if (mode != s.mode) SetMode(s, mode);
  RebuildTree(s);
  if (s.ended) return;
  const int node = s.tree.Find(KeyOf(at, mode));
  if (node >= 0)
    ClickNode(s, node);
  else
    SelectRoot(s);
}

void UndoLast(Session& s) {
  if (const auto step = NextUndo(s.companion)) Run(s, *step, UndoSteps, "undone", step->title.from);
}

void RedoLast(Session& s) {
  if (const auto step = NextRedo(s.companion)) Run(s, *step, RedoSteps, "redone", step->title.to);
}

bool UndoBackTo(Session& s, const HistoryStep& step) {
  return Run(s, step, UndoSteps, "undone", step.title.from);
}

}  // namespace merlu
