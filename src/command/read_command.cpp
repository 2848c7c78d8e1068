#include <algorithm>

#include "base/fault.h"
#include "command/commands.h"
#include "command/lines.h"
#include "command/quiet_session.h"
#include "entry/month_book.h"
#include "session/act.h"
#include "shell/messages.h"
#include "store/engine.h"

namespace merlu {
namespace {

void WritePlan(const std::vector<BookChange>& changes, Console& console) {
  for (const BookChange& change : changes)
    console.out << JsonLine({{"place", change.place},
                             {"field", change.field},
                             {"control", change.control},
                             {"old", change.old_text},
                             {"new", change.new_text},
                             {"action", change.what}});
}

// All of it in one step, or none with a Fault.
void Store(QuietSession& session, MonthGrid& grid) {
  if (grid.ChangedRecords() == 0) return;
  GridSaved saved;
  bool may_write = false;
  {
    const Act act(session.s, "Month Workbook", grid.PlaceOfChanges(), session.s.current);
    may_write = act.MayWrite();
    if (may_write) saved = grid.Save();
  }
  if (may_write && saved.refused.empty()) return;
  ShowNotices(session.s);
  std::string why = saved.refused;
  for (const std::string& said : session.quiet.said) why += (why.empty() ? "" : " ") + OneLine(said);
  throw Fault(fault_number::kFileAccess, kStoreSource, why);
}

}  // namespace

Status ReadWorkbook(const Request& request, Console& console) {
  const std::string& file = request.words.front();
  const bool dry = request.Has("--dry-run");
  const std::string from = request.Text("--from");
  std::vector<ReadSheet> sheets;
  OnFile(from, [&] { sheets = ReadMonthBook(from); });
  QuietSession session;
  if (dry)
    session.OpenCopy(file);
  else
    session.OpenFile(file);
  MonthGrid grid(session.s);
  const std::vector<BookChange> changes = PlanMonthBook(session.s, sheets, grid);
  if (!dry) Store(session, grid);
  WritePlan(changes, console);
  const bool refused = std::any_of(changes.begin(), changes.end(), [](const BookChange& c) { return c.IsRefused(); });
  return refused ? Status::kSomething : Status::kWell;
}

}  // namespace merlu
