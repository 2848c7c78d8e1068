#include "base/dates.h"
#include "base/fault.h"
#include "base/text.h"
#include "command/commands.h"
#include "command/inventory_file.h"
#include "command/out_file.h"
#include "command/quiet.h"
#include "exchange/export_file.h"
#include "history/companion.h"
#include "history/notes.h"

namespace merlu {
namespace {

// The structures of the file by their names as they are stored there; one that it lacks is complained of.
bool FindStructures(Database& db, const Request& request, Console& console, std::vector<StructureName>& found) {
  bool all = true;
  for (const NamedStructure& wanted : ReadStructures(request.Text("--structures"))) {
    bool there = false;
    db.ForEach("SELECT CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC ORDER BY rowid", {}, [&](const RowView& row) {
      const StructureName name{std::string(row.Text(0)), std::string(row.Text(1))};
      if (CompareIds(Trim(name.complex), wanted.complex) != 0) return;
      if (CompareIds(Trim(name.structure), wanted.structure) != 0) return;
      found.push_back(name);
      there = true;
    });
    if (there) continue;
    Complain(console, "export", request.words.front(),
             "It has no structure " + wanted.complex + "/" + wanted.structure + ".");
    all = false;
  }
  return all;
}

// The survey of a month that was written is its hand-in: what is changed later is newer.
void KeepAsHandIn(const std::string& file, int year, int month, Console& console) {
  std::string why;
  try {
    Database db;
    db.Open(file);
    Companion companion;
    companion.Open(db, [] { return StepTitle(); });
    KeepHandIn(companion, year, month, StoredDate(Quiet().Now()));
    why = companion.why_not();
    companion.Close();
  } catch (const Fault& fault) {
    why = fault.description;
  }
  if (!why.empty()) Complain(console, "export", file, "The hand-in could not be noted. " + why);
}

}  // namespace

Status ExportPart(const Request& request, Console& console) {
  const std::string& file = request.words.front();
  Database db;
  OpenUntouched(db, file);
  const int month = request.Number("--month");
  const int year = static_cast<int>(ToInteger(db.Single("SELECT sys_yr FROM SYS_CONFIG")));
  std::function<void(Database&)> cut;
  std::vector<StructureName> structures;
  if (month != 0) {
    const Value there = db.Single("SELECT 1 FROM PA_PLATFORM_ACTV WHERE PA_MO=? AND PA_YR=? LIMIT 1",
                                  {std::int64_t{month}, std::int64_t{year}});
    if (IsNull(there)) {
      Complain(console, "export", file, "It has no month " + request.Text("--month") + ".");
      return Status::kSomething;
    }
    cut = [=](Database& copy) { DeleteOtherMonths(copy, month, year); };
  } else if (request.Has("--structures")) {
    if (!FindStructures(db, request, console, structures)) return Status::kSomething;
    cut = [&](Database& copy) { KeepStructures(copy, structures); };
  }
  Compaction compaction = Compaction::kDone;
  WriteOut(request, [&](const std::string& path) {
    compaction = FillExport(OwnFilesOf(request), db, path, FreeBytesFor(path), cut);
  });
  if (const std::string message = CompactionMessage(compaction); !message.empty())
    Complain(console, "export", request.Text("-o"), message);
  if (month != 0) KeepAsHandIn(file, year, month, console);
  return Status::kWell;
}

}  // namespace merlu
