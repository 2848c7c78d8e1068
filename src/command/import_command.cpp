#include <algorithm>

#include "base/text.h"
#include "command/commands.h"
#include "command/inventory_file.h"
#include "command/lines.h"
#include "command/quiet_session.h"
#include "exchange/import_file.h"
#include "exchange/structure_import.h"
#include "history/backups.h"
#include "session/act.h"

namespace merlu {
namespace {

std::string NameOf(const StructureName& name) {
  return name.complex + "/" + name.structure;
}

// The requested structures by the other file's names; reports those that it lacks.
std::vector<StructureName> Chosen(const Request& request, Database& file, Console& console, bool& all_there) {
  std::vector<StructureName> chosen;
  const std::vector<ListedStructure> listed = ListStructures(file);
  if (!request.Has("--structures")) {
    for (const ListedStructure& one : listed) chosen.push_back(one.name);
    return chosen;
  }
  for (const NamedStructure& wanted : ReadStructures(request.Text("--structures"))) {
    const auto found = std::find_if(listed.begin(), listed.end(), [&](const ListedStructure& one) {
      return CompareIds(Trim(one.name.complex), wanted.complex) == 0 &&
             CompareIds(Trim(one.name.structure), wanted.structure) == 0;
    });
    if (found != listed.end()) {
      const bool again = std::any_of(chosen.begin(), chosen.end(), [&](const StructureName& one) {
        return one.complex == found->name.complex && one.structure == found->name.structure;
      });
      if (!again) chosen.push_back(found->name);
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

ImportPlan DoImport(const std::string& path, Database& file, const std::vector<StructureName>& chosen) {
  QuietSession session;
  session.OpenFile(path);
  BackUp(session.s, backup_reason::kImport);
  const Act act(session.s, "Import");
  return ImportStructures(session.s, file, chosen, Import::kDo);
}

}  // namespace

Status ImportInto(const Request& request, Console& console) {
  const std::string& path = request.words.front();
  Database working, file;
  OpenUntouched(working, path);
  const ImportLayout layout = ReadImportLayout(working);
  const std::string from = request.Text("--from");
  OnFile(from, [&] {
    file.OpenPrivateCopy(from);
    CheckImportFile(file, layout);
  });
  bool all_there = true;
  const std::vector<StructureName> chosen = Chosen(request, file, console, all_there);
  if (!all_there) return Status::kSomething;
  const bool dry = request.Has("--dry-run");
  ImportPlan plan = PlanImport(working, file, chosen);
  working.Close();
  if (!dry && plan.adds) plan = DoImport(path, file, chosen);
  if (dry) WritePlan(plan, console);
  if (!plan.adds) Complain(console, "import", request.Text("--from"), plan.refusal);
  if (!dry && plan.adds)
    for (const PlannedStructure& one : plan.structures)
      console.out << NameOf(one.name) << ": " << ActionText(one.action) << "\n";
  return plan.adds ? Status::kWell : Status::kSomething;
}

}  // namespace merlu
