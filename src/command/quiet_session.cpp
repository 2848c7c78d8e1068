#include "command/quiet_session.h"

#include "base/fault.h"
#include "command/inventory_file.h"
#include "command/lines.h"
#include "shell/open_database.h"
#include "shell/program_end.h"
#include "store/engine.h"

namespace merlu {

void QuietSession::OpenCopy(const std::string& path) {
  OpenUntouched(s.db, path, Database::Use::kPrivateCopy);
  s.path = path;
  s.mode = Mode::kActv;
  s.year = static_cast<int>(ToInteger(s.db.Single("SELECT sys_yr FROM SYS_CONFIG")));
  s.last_month = static_cast<int>(ToInteger(s.db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG")));
}

void QuietSession::OpenFile(const std::string& path) {
  {
    Database looked_at;
    OpenUntouched(looked_at, path);  // what is no inventory is not opened
  }
  s.path = path;
  s.mode = Mode::kActv;
  if (OpenDatabaseAndCursors(s)) {
    s.current.Level = level::kUser;
    s.current.UserID = NullToEmpty(s.db.Single("SELECT RIMA_CO_NUM FROM CO_COMPANY"));
    return;
  }
  // the first lines of the box are about its buttons, the reason comes after them
  std::string why = quiet.said.empty() ? "The inventory could not be opened." : quiet.said.back();
  if (const auto last = why.rfind("\n\n"); last != std::string::npos) why.erase(0, last + 2);
  throw Fault(fault_number::kInUse, kStoreSource, OneLine(why));
}

QuietSession::~QuietSession() {
  CloseDatabase(s);
}

}  // namespace merlu
