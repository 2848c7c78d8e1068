#include "base/fault.h"
#include "command/commands.h"
#include "command/inventory_file.h"
#include "command/out_file.h"
#include "command/quiet.h"
#include "inventory_qc/inventory_run.h"
#include "session/session.h"
#include "store/engine.h"

namespace merlu {

Status WriteSummary(const Request& request, Console& console) {
  const std::string& file = request.words.front();
  Quiet quiet;
  Session s(quiet, quiet, quiet);
  OpenUntouched(s.db, file, Database::Use::kPrivateCopy);
  if (!s.db.HasTable("QCInventory"))
    throw Fault(fault_number::kNotADatabase, kStoreSource, "It is no inventory: it has no table QCInventory.");
  s.year = static_cast<int>(ToInteger(s.db.Single("SELECT sys_yr FROM SYS_CONFIG")));
  s.last_month = static_cast<int>(ToInteger(s.db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG")));
  const InventoryRun run = RunInventoryPasses(s);
  const InventoryReport report = ReadInventoryReport(s, run);
  for (const Notice& notice : s.notices.waiting) Complain(console, "report", file, notice.text);
  if (console.need_fonts) console.need_fonts();
  WriteOut(request, [&](const std::string& path) { quiet.WriteReport(report, path, [](int, int) {}); });
  return Status::kWell;
}

}  // namespace merlu
