#include "shell/exchange_dialogs.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "base/text.h"
#include "exchange/export_file.h"
#include "exchange/import_file.h"
#include "exchange/structure_import.h"
#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "history/backups.h"
#include "history/notes.h"
#include "session/act.h"
#include "session/folders.h"
#include "session/node_keys.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/edit_modes.h"
#include "shell/filename_rule.h"
#include "shell/import_plan_dialog.h"
#include "shell/messages.h"
#include "shell/program_end.h"
#include "shell/proposed_name.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"
#include "shell/trees.h"
#include "store/files.h"

namespace merlu {
namespace {

constexpr const char* kSurveys = "lvwSurveys";
constexpr const char *kLoad = "cmdLoad", *kImport = "cmdImport";
constexpr const char* kStructures = "lvwStructures";
constexpr const char* kExportName = "txtExportFilename";
constexpr const char* kImportName = "txtImportFilename";

using Cut = std::function<void(Database& copy)>;

// The wait screen and the busy pointer, for as long as this lives.
class Working {
 public:
  Working(Session& s, const std::string& title, const std::string& text) : s_(s), busy_(s) { ShowWait(s, title, text); }
  ~Working() { HideWait(s_); }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  Session& s_;
  Busy busy_;
};

// False after a message: the database could not be opened at the start.
bool HasDatabase(Session& s) {
  return Plainly(s, [&] { s.At("SYS_CONFIG"); });
}

// The sheet that shows, and the cursors with it, after the database was opened anew.
void ShowCurrentNode(Session& s) {
  if (s.tree.selected >= 0) ClickNode(s, s.tree.selected);
}

// ---- the controls of the dialogs ----

void AddFileName(Form& form, const char* name, const char* caption, const char* browse) {
  AddText(form, name, caption);
  AddButton(form, "cmdBrowse", browse).beside = name;
}

void AddCloseButton(Form& form, const char* main, const char* caption) {
  AddButton(form, main, caption);
  AddButton(form, names::cmdCANCEL, "Close");
  form.default_button = main;
  form.cancel_button = names::cmdCANCEL;
}

void Browse(Session& s, Form& form, const char* name, FileQuestion::Kind kind, const char* title,
            const std::string& proposed) {
  const std::string path = AskFile(s, {kind, title, "MERLU Database", "*.mdb", ".mdb", {}, false, proposed});
  if (!path.empty()) form.At(name).text = path;
  form.focus = name;
}

using Proposed = std::string (*)(Session& s, Form& form);

void ConnectExportBrowse(Session& s, Form& form, Proposed proposed) {
  form.On("cmdBrowse", Event::kClick, [&s, &form, proposed] {
    Browse(s, form, kExportName, FileQuestion::Kind::kSave, "Choose Export Database Filename", proposed(s, form));
  });
}

// The picked rows in the order of the list.
std::vector<std::size_t> PickedRows(const Control& list) {
  std::vector<std::size_t> rows(list.picked.begin(), list.picked.end());
  std::sort(rows.begin(), rows.end());
  return rows;
}

void FillSurveys(Session& s, Form& form) {
  Control& list = form.At(kSurveys);
  list.rows.clear();
  list.picked.clear();
  for (int month = 1; month <= s.last_month; ++month) {
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%02d/%04d", month, s.year);
    list.rows.push_back({text.data(), "", "", ""});
  }
}

void FillStructures(Form& form, Database& db) {
  Control& list = form.At(kStructures);
  list.rows.clear();
  list.picked.clear();
  for (const ListedStructure& row : ListStructures(db))
    list.rows.push_back({row.name.complex, row.name.structure, row.area, row.block, row.title});
}

std::vector<StructureName> PickedStructures(const Control& list) {
  std::vector<StructureName> names;
  for (const std::size_t row : PickedRows(list)) names.push_back({list.rows[row][0], list.rows[row][1]});
  return names;
}

std::string Structures(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " structure" : " structures");
}

void AddSurveyList(Form& form) {
  AddListView(form, kSurveys, "Surveys:", {"Survey", "Last Updated", "Last QC'd", "Last Exported"});
}

void AddStructureList(Form& form) {
  AddListView(form, kStructures,
              "Structures:", {"RIMA Complex ID", "RIMA Structure ID", "Area", "Block", "Struct Name"});
}

// The export file that the dialog names; empty after a message.
std::string ExportFileName(Session& s, Form& form) {
  form.focus = kExportName;
  return NewDatabaseFileName(s, form.At(kExportName).text);
}

// Writes the file, with the wait screen. False after a message.
bool Write(Session& s, const std::string& file, const char* cut_failed, const Cut& cut, Compaction& compaction) {
  bool cutting = false, cut_done = false;
  const auto watched = [&](Database& copy) {
    cutting = true;
    cut(copy);
    cut_done = true;
  };
  try {
    const Working working(s, "Export", "Writing " + file);
    const std::uint64_t free_bytes = s.host.FreeBytes(FolderOf(file));
    compaction = WriteExport(OwnFilesOf(s), s.db, file, free_bytes, cut ? Cut(watched) : Cut());
    return true;
  } catch (const Fault& fault) {
    const bool in_cut = cutting && !cut_done;
    if (in_cut && cut_failed == nullptr)
      TellFault(s, fault, file);
    else
      TellOfFile(s, in_cut ? cut_failed : "Failed to create export database", file);
    return false;
  }
}

void TellCompaction(Session& s, Compaction compaction, const std::string& file) {
  if (const std::string message = CompactionMessage(compaction); !message.empty()) TellOfFile(s, message, file);
}

// ---- one survey, or all of them ----

struct Survey {
  std::string text;
  int month, year;
};

std::vector<Survey> PickedSurveys(const Control& list) {
  std::vector<Survey> surveys;
  for (const std::size_t row : PickedRows(list)) {
    const std::string& text = list.rows[row][0];
    surveys.push_back({text, std::atoi(text.substr(0, 2).c_str()), std::atoi(text.substr(text.size() - 4).c_str())});
  }
  return surveys;
}

void GoToSurvey(Session& s, const Survey& survey) {
  const std::string user = s.current.UserID;
  s.current = QCLocation();
  s.current.UserID = user;
  s.current.Level = level::kSurvey;
  s.current.Month = survey.month;
  s.current.Year = survey.year;
  if (const int node = s.tree.Find(SurveyKey(user, survey.month, survey.year)); node >= 0) s.tree.selected = node;
}

void ExportPickedSurveys(Session& s, Form& form) {
  const std::vector<Survey> surveys = PickedSurveys(form.At(kSurveys));
  if (surveys.empty()) {
    form.focus = kSurveys;
    return Tell(s, "Please select a Survey.");
  }
  const std::string file = ExportFileName(s, form);
  if (file.empty()) return;
  Compaction compaction{};
  const auto cut = [&surveys](Database& copy) {
    for (const Survey& survey : surveys) DeleteOtherMonths(copy, survey.month, survey.year);
  };
  if (!Write(s, file, "errors during export of Month/Year", cut, compaction)) return;
  for (const Survey& survey : surveys) {
    GoToSurvey(s, survey);
    KeepHandIn(s.companion, survey.year, survey.month, StoredDate(s.host.Now()));
    TellOfFile(s, "Completed exporting Survey: " + survey.text, file);
  }
  Say(s, "Survey " + surveys.back().text + " exported to " + FileName(file));
  TellCompaction(s, compaction, file);
  form.At(kExportName).text.clear();
  FillSurveys(s, form);
}

void ExportWholeInventory(Session& s, Form& form) {
  const std::string file = ExportFileName(s, form);
  Compaction compaction{};
  if (file.empty() || !Write(s, file, nullptr, nullptr, compaction)) return;
  Say(s, "Inventory exported to " + FileName(file));
  TellOfFile(s, "Completed exporting MERLU inventory.", file);
}

// The survey that is picked, or that of the place.
std::string SurveyName(Session& s, Form& form) {
  const std::vector<Survey> surveys = PickedSurveys(form.At(kSurveys));
  return ProposedName(s, surveys.empty() ? s.current.Month : surveys.front().month, "Survey");
}

Form& SurveyDialog(Session& s) {
  return DialogForm(s, names::frmExportSurvey, "Export Survey", [&s](Form& form) {
    AddSurveyList(form);
    AddFileName(form, kExportName, "Export File Path and Filename:", "Browse...");
    AddCloseButton(form, names::cmdOK, "OK");
    ConnectExportBrowse(s, form, SurveyName);
    form.On(names::cmdOK, Event::kClick, [&s, &form] { ExportPickedSurveys(s, form); });
  });
}

Form& InventoryDialog(Session& s) {
  return DialogForm(s, names::frmExportInventory, "Export Inventory", [&s](Form& form) {
    AddSurveyList(form);
    AddFileName(form, kExportName, "Export File Path and Filename:", "Browse...");
    AddCloseButton(form, names::cmdOK, "OK");
    ConnectExportBrowse(s, form, [](Session& at, Form&) { return ProposedName(at, 0, "Inventory"); });
    form.On(names::cmdOK, Event::kClick, [&s, &form] { ExportWholeInventory(s, form); });
  });
}

// With the survey of that month picked; 0 for none.
void RunExport(Session& s, Form& form, const char* focus, int month = 0) {
  FillSurveys(s, form);
  if (month > 0 && month <= static_cast<int>(form.At(kSurveys).rows.size())) form.At(kSurveys).picked = {month - 1};
  form.focus = focus;
  OpenDialog(s, form);
  if (!s.db.IsOpen()) return;
  SetMode(s, Mode::kActv);
  if (ReopenDatabase(s)) RefreshTree(s);
}

// ---- structures out ----

void ExportPickedStructures(Session& s, Form& form) {
  const std::vector<StructureName> names = PickedStructures(form.At(kStructures));
  if (names.empty()) {
    form.focus = kStructures;
    return Tell(s, "Please select a Structure.");
  }
  const std::string file = ExportFileName(s, form);
  Compaction compaction{};
  const auto cut = [&names](Database& copy) { KeepStructures(copy, names); };
  if (file.empty() || !Write(s, file, nullptr, cut, compaction)) return;
  TellCompaction(s, compaction, file);
  Say(s, Structures(names.size()) + " exported to " + FileName(file));
  TellOfFile(s, "Done.", file);
  Plainly(s, [&] {
    if (s.InActv()) SetMode(s, Mode::kActv);
    FillStructures(form, s.db);
  });
}

Form& StructureExportDialog(Session& s) {
  return DialogForm(s, names::frmExportStructure, "Export MERLU-2017 Structure Data", [&s](Form& form) {
    AddStructureList(form);
    AddFileName(form, kExportName, "Export File Path and Filename:", "Browse...");
    AddCloseButton(form, "cmdExport", "Export");
    ConnectExportBrowse(s, form, [](Session& at, Form&) { return ProposedName(at, 0, "Structures"); });
    form.On("cmdExport", Event::kClick, [&s, &form] { ExportPickedStructures(s, form); });
  });
}

// ---- structures in ----

void LoadImportList(Session& s, Form& form) {
  form.At(kStructures).rows.clear();
  form.At(kStructures).picked.clear();
  form.default_button = kLoad;
  s.exchange.Close();
  const std::string file = DatabaseFileName(s, form.At(kImportName).text);
  form.focus = kImportName;
  if (file.empty()) return;
  try {
    s.exchange.OpenPrivateCopy(file);
  } catch (const Fault&) {
    return TellOfFile(s, "Failed to open Import database", file);
  }
  ImportLayout layout;
  if (!Plainly(s, [&] { layout = ReadImportLayout(s.db); })) return s.exchange.Close();
  try {
    const Working working(s, "Import", "Reading " + file);
    CheckImportFile(s.exchange, layout);
    FillStructures(form, s.exchange);
    form.focus = kStructures;
    form.default_button = kImport;
  } catch (const Fault&) {
    s.exchange.Close();
    TellOfFile(s, "Invalid Import file!", file);
  }
}

// The names of the picked rows; empty after a message.
std::vector<StructureName> StructuresToImport(Session& s, Form& form) {
  const std::vector<StructureName> names = PickedStructures(form.At(kStructures));
  if (names.empty()) {
    form.focus = kStructures;
    Tell(s, "No Structures selected for importing.");
  }
  return names;
}

// A fault of the working file is no fault of the other one.
void TellImportFault(Session& s, const Fault& fault) {
  // a locked table is the working file's
  const bool is_other = fault.number != fault_number::kInUseTable;
  const std::string file = is_other ? s.exchange.path() : s.path;
  TellFaultNumberFirst(s, fault, file);
  if (is_other) TellOfFile(s, "Specified Import file may be wrong format.", file);
}

void PreviewImport(Session& s, Form& form) {
  const std::vector<StructureName> names = StructuresToImport(s, form);
  if (names.empty()) return;
  try {
    ShowImportPlan(s, ImportStructures(s, s.exchange, names, Import::kPlan));
  } catch (const Fault& fault) {
    TellImportFault(s, fault);
  }
}

void ImportPickedStructures(Session& s, Form& form) {
  const std::vector<StructureName> names = StructuresToImport(s, form);
  if (names.empty()) return;
  try {
    ImportPlan plan;
    {
      const Working working(s, "Import", "Checking the file");
      plan = ImportStructures(s, s.exchange, names, Import::kPlan);
    }
    // a refused import makes no backup and no step
    std::optional<Act> act;
    if (plan.adds) {
      if (!BackUpOrAsk(s, backup_reason::kImport)) return;
      act.emplace(s, "Import");
      if (!act->MayWrite()) return;
    }
    {
      const Working working(s, "Import", "Reading the file");
      plan = ImportStructures(s, s.exchange, names, Import::kDo);
    }
    if (!plan.adds) return TellOfFile(s, plan.refusal, s.exchange.path());
    if (plan.last_month > plan.last_month_here)
      TellOfFile(s, std::to_string(plan.last_month) + " months in import file. Adding months to inventory",
                 s.exchange.path());
    if (!ReopenDatabase(s)) return;
    RefreshDescTree(s);
    Say(s, Structures(names.size()) + " imported from " + FileName(s.exchange.path()));
    TellOfFile(s, "Done.", s.exchange.path());
  } catch (const Fault& fault) {
    TellImportFault(s, fault);
    ReopenDatabase(s);  // months that were added have been taken back
  }
}

Form& StructureImportDialog(Session& s) {
  return DialogForm(s, names::frmImportStructure, "Import MERLU-2017 Structure Data", [&s](Form& form) {
    AddFileName(form, kImportName, "Import File Path and Filename:", "Select File");
    AddButton(form, kLoad, "Load List").beside = kImportName;
    AddStructureList(form);
    AddButton(form, "cmdPlan", "Preview...");
    AddCloseButton(form, kImport, "Import Selected Structures");
    form.On("cmdBrowse", Event::kClick, [&s, &form] {
      Browse(s, form, kImportName, FileQuestion::Kind::kOpen, "Choose Import Database Filename", "");
    });
    form.On(kLoad, Event::kClick, [&s, &form] { LoadImportList(s, form); });
    form.On("cmdPlan", Event::kClick, [&s, &form] { PreviewImport(s, form); });
    form.On(kImport, Event::kClick, [&s, &form] { ImportPickedStructures(s, form); });
  });
}

}  // namespace

void MakeExchangeDialogs(Session& s) {
  for (Form& (*make)(Session&) : {SurveyDialog, InventoryDialog, StructureExportDialog, StructureImportDialog}) make(s);
  MakeImportPlanDialog(s);
}

void ExportSurvey(Session& s) {
  ExportSurveyOf(s, 0);
}

void ExportSurveyOf(Session& s, int month) {
  if (HasDatabase(s)) RunExport(s, SurveyDialog(s), month == 0 ? kSurveys : kExportName, month);
}

void ExportInventory(Session& s) {
  if (HasDatabase(s)) RunExport(s, InventoryDialog(s), kExportName);
}

void ExportStructures(Session& s) {
  if (!HasDatabase(s)) return;
  Form& form = StructureExportDialog(s);
  if (!Plainly(s, [&] { FillStructures(form, s.db); })) return;
  form.focus = kStructures;
  OpenDialog(s, form);
  ShowCurrentNode(s);
}

void ImportStructuresFrom(Session& s) {
  if (!HasDatabase(s)) return;
  if (!s.InDesc()) ChangeEditMode(s);
  if (!s.tree.nodes.empty()) {
    s.tree.nodes.front().expanded = false;
    ++s.tree.expansion;
    ClickNode(s, 0);
  }
  Form& form = StructureImportDialog(s);
  form.default_button = kLoad;  // until there is a list to choose from
  form.focus = kImportName;
  OpenDialog(s, form);
  s.exchange.Close();
}

}  // namespace merlu
