#include <algorithm>

#include "base/fault.h"
#include "base/text.h"
#include "command/commands.h"
#include "command/inventory_file.h"
#include "command/lines.h"
#include "command/quiet.h"
#include "exchange/import_file.h"
#include "exchange/structure_import.h"
#include "history/backups.h"
#include "session/act.h"
#include "session/folders.h"
#include "shell/open_database.h"
#include "shell/program_end.h"

namespace merlu {
namespace {

std::string NameOf(const StructureName& name) {
  return name.complex + "/" + name.structure;
}

// The structures that are asked for, as the other file names them; one that it lacks is complained of.
std::vector<StructureName> Chosen(const Request& request, Database& file, Console& console, bool& all_there) {
  std::vector<StructureName> chosen;
  const std::vector<ListedStructure> listed = ListStructures(file);
  if (!request.Has("--structures")) {
    for (const ListedStructure& one : listed) chosen.push_back(one.name);
    return chosen;
  }
  for (const NamedStructure& wanted : ReadStructures(request.Text("--structures"))) {
    const auto found = std::find_if(listed.begin(), listed.end(), [&](const ListedStructure& one) {
      return EqualsIgnoringCase(Trim(one.name.complex), wanted.complex) &&
             EqualsIgnoringCase(Trim(one.name.structure), wanted.structure);
    });
    if (found != listed.end()) {
      chosen.push_back(found->name);
      continue;
    }
    Complain(console, "import", request.Text("--from"),
             "It has no structure " + wanted.complex + "/" + wanted.structure + ".");
    all_there = false;
  }
  return chosen;
}

void WritePlan(const ImportPlan& plan, Console& console) {
  for (const PlannedStructure& one : plan.structures)
    console.out << JsonLine({{"structure", NameOf(one.name)},
                             {"action", ActionText(one.action)},
                             {"equipment", one.equipment.size()},
                             {"months_here", one.months_here},
                             {"months_there", one.months_there}});
}

ImportPlan DoImport(const std::string& path, Database& file, const std::vector<StructureName>& chosen,
                    Console& console) {
  Quiet quiet;
  Session s(quiet);
  s.path = path;
  if (!OpenDatabaseAndCursors(s)) {
    for (const std::string& said : quiet.said) Complain(console, "import", path, OneLine(said));
    throw Fault(fault_number::kInUse, "MERLU store", "The inventory could not be opened.");
  }
  const std::size_t slash = path.find_last_of('/');
  MakeBackup(s.db, OwnFilesOf(s), quiet.Now(), backup_reason::kImport,
             quiet.FreeBytes(slash == std::string::npos ? "." : path.substr(0, slash + 1)));
  ImportPlan plan;
  {
    const Act act(s, "Import");
    plan = ImportStructures(s, file, chosen, Import::kDo);
  }
  CloseDatabase(s);
  return plan;
}

}  // namespace

Status ImportInto(const Request& request, Console& console) {
  const std::string& path = request.words.front();
  Database working, file;
  OpenUntouched(working, path);
  file.OpenPrivateCopy(request.Text("--from"));
  CheckImportFile(file, ReadImportLayout(working));
  bool all_there = true;
  const std::vector<StructureName> chosen = Chosen(request, file, console, all_there);
  if (!all_there) return Status::kSomething;
  const bool dry = request.Has("--dry-run");
  const ImportPlan plan = dry ? PlanImport(working, file, chosen) : DoImport(path, file, chosen, console);
  if (dry) WritePlan(plan, console);
  if (!plan.adds) Complain(console, "import", request.Text("--from"), plan.refusal);
  if (!dry && plan.adds)
    for (const PlannedStructure& one : plan.structures)
      console.out << NameOf(one.name) << ": " << ActionText(one.action) << "\n";
  return plan.adds ? Status::kWell : Status::kSomething;
}

}  // namespace merlu
