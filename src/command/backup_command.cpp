#include "base/fault.h"
#include "command/commands.h"
#include "command/inventory_file.h"
#include "command/out_file.h"
#include "command/quiet.h"
#include "history/backups.h"

namespace merlu {

Status BackUpFile(const Request& request, Console& console) {
  const std::string& file = request.words.front();
  {
    Database looked_at;
    OpenUntouched(looked_at, file);  // what is no inventory gets no backup
  }
  Quiet quiet;
  Database db;
  try {
    db.Open(file);
  } catch (const Fault& fault) {
    if (fault.number != fault_number::kReadOnly) throw;
    db.OpenReadOnly(file);
  }
  console.out << MakeBackup(db, OwnFilesOf(request), quiet.Now(), backup_reason::kByHand, FreeBytesFor(file)) << "\n";
  return Status::kWell;
}

}  // namespace merlu
