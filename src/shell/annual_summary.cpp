#include "shell/annual_summary.h"

#include "inventory_qc/inventory_run.h"
#include "session/act.h"
#include "session/folders.h"
#include "shell/messages.h"
#include "shell/proposed_name.h"
#include "shell/status.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kEntryError = "Data Entry Error";
constexpr const char* kNoPermission =
    "There was an error saving the report.\nMake sure you have permission to create files in the selected directory.\n"
    "You must select another location in order to save the report.";

std::int64_t CountOf(Session& s, const char* sql) {
  return ToInteger(s.db.Single(sql));
}

bool HasWhatItNeeds(Session& s) {
  const std::int64_t structures =
      CountOf(s, "SELECT Count(PD_PLATFORM_DESC.PD_ID_AK) AS PD_ID_AK_COUNT FROM PD_PLATFORM_DESC;");
  if (structures == 0) {
    TellUnder(s, kEntryError, "You must create a platform and enter equipment first.", Icon::kNone);
    return false;
  }
  const std::int64_t equipment =
      CountOf(s, "SELECT Count(ED_EQUIP_DESC.ED_ID_AK) AS ED_ID_AK_COUNT FROM ED_EQUIP_DESC;");
  if (structures == 1 && equipment == 0) {
    TellUnder(s, kEntryError, "You must enter equipment first.", Icon::kNone);
    return false;
  }
  return true;
}

bool IsWanted(Session& s) {
  if (s.last_month >= 12) return true;
  const Button answer =
      Ask(s, {"You have completed fewer than 12 surveys\nAre you sure you want to run the QA Summary now?",
              "Incomplete Inventory",
              Icon::kQuestion,
              {Button::kYes, Button::kNo}});
  if (answer == Button::kYes) return true;
  Tell(s, "Inventory QC terminated.");
  return false;
}

void RenderReport(Session& s, const InventoryRun& run, const std::string& path) {
  const Busy busy(s);
  try {
    WriteNewFile(OwnFilesOf(s), path, [&](const std::string& unfinished) {
      s.host.WriteReport(ReadInventoryReport(s, run), unfinished,
                         [&s](int done, int total) { ShowProgress(s, "Writing the report", done, total); });
    });
  } catch (const Fault& fault) {
    HideWait(s);
    if (fault.number == fault_number::kFileAccess) return TellOfFile(s, kNoPermission, path, Icon::kStop);
    return TellFaultNumberFirst(s, fault, path);
  }
  HideWait(s);
  Say(s, "QA summary saved as " + FileName(path));
  s.ui.OpenDocument(path);
}

}  // namespace

void RunInventoryQC(Session& s, const std::string& path) {
  try {
    const Busy busy(s);
    const Act act(s, "Annual Summary", "", s.current);
    if (!act.MayWrite()) return;
    ShowWait(s, "Preparing QA Summary", "Please Wait...");
    const InventoryRun run = RunInventoryPasses(s);
    RenderReport(s, run, path);
  } catch (const Fault& fault) {
    HideWait(s);
    TellOfFile(s, "Error displaying report. " + fault.description, path);
  }
}

void ExportAnnualSummary(Session& s) {
  Plainly(s, [&] {
    if (!HasWhatItNeeds(s) || !IsWanted(s)) return;
    const std::string path = AskFile(s, {FileQuestion::Kind::kSave,
                                         "Save Annual Inventory Summary as...",
                                         "PDF (*.pdf) ",
                                         "*.pdf",
                                         ".pdf",
                                         {},
                                         true,
                                         ProposedName(s, 0, "QA Summary")});
    if (path.empty()) return Tell(s, "No file name given, cancelling export.");
    RunInventoryQC(s, path);
  });
}

}  // namespace merlu
