// Imports and exports: another file is read, or written under a name that may be taken.
#include <filesystem>
#include <stdexcept>

#include "faults/kill_steps.h"
#include "inventory.h"
#include "session/types.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

InventoryPlan Plan(int structures, int equipment, int months) {
  InventoryPlan plan;
  plan.structures = structures;
  plan.equipment = equipment;
  plan.months = months;
  return plan;
}

// ---- the files ----

constexpr std::uintmax_t kLargeFile = 16'000'000;
constexpr int kStructuresLarge = 300, kEquipmentLarge = 3300;  // eleven pieces on each structure

void MakeSmall(const KillFiles& files) {
  MakeInventory(TemplatePath(), files.work(), Plan(4, 64, 3));
}

void RenameStructures(const std::string& path) {
  Raw(path, {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='2'||CMPLX_ID_NUM"});
}

void MakeTwo(const KillFiles& files) {
  MakeSmall(files);
  MakeInventory(TemplatePath(), files.other(), Plan(3, 48, 5));
  RenameStructures(files.other());
}

// As many equipment months as the tree lets it have, a comment to each of them, and a finding to every other one.
void MakeInventoryOf16MB(const std::string& path) {
  InventoryPlan plan = Plan(kStructuresLarge, kEquipmentLarge, 12);
  plan.types = MonthlyTypes();
  MakeInventory(TemplatePath(), path, plan);
  Raw(path, {"UPDATE EA_EQUIP_ACTV SET EA_COMNT_TXT=EA_ID_AK||hex(zeroblob(120))",
             "INSERT INTO QC SELECT '01234',a.EA_MO,a.EA_YR,'EQUIPMENT',p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_EQUIP_TYP,"
             "d.ED_MERLU_EQUIP_ID,'Comments','A finding of month '||a.EA_MO,'its explanation','ACTV' FROM "
             "EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK JOIN PD_PLATFORM_DESC p ON "
             "p.PD_ID_AK=d.PD_ID_AK WHERE a.EA_ID_AK%2=0"});
  if (const std::uintmax_t size = std::filesystem::file_size(path); size < kLargeFile)
    throw std::runtime_error("the large file has " + std::to_string(size) + " bytes only");
}

// With an older export under the name that the next one is to take.
void MakeLarge(const KillFiles& files) {
  MakeInventoryOf16MB(files.work());
  MakeInventory(TemplatePath(), files.target(), Plan(2, 32, 1));
  std::filesystem::copy_file(files.target(), files.older());
}

void MakeTwoLarge(const KillFiles& files) {
  MakeSmall(files);
  MakeInventoryOf16MB(files.other());
  RenameStructures(files.other());
}

std::string BytesBefore(const KillFiles& files, Database&) {
  return FileBytes(files.work());
}

// ---- import ----

constexpr int kPickedLarge = 30;

KillScript ImportOf(const KillFiles& files, Database& db, const std::string& rows) {
  KillScript script;
  script.opening = {
      Start(files), {"click mnuEStructB"}, {"set txtImportFilename " + Quoted(files.other())}, {"click cmdLoad"}};
  if (Count(db, "PD_PLATFORM_DESC") == 4) {
    script.body.push_back({"pick lvwStructures" + rows});
    script.body.push_back({"click cmdImport", 1});
  }
  script.body.push_back({"click cmdCANCEL"});
  return script;
}

KillScript ImportScript(const KillFiles& files, Database& db) {
  return ImportOf(files, db, " 0 2");
}

KillScript LargeImportScript(const KillFiles& files, Database& db) {
  std::string rows;
  for (int i = 0; i < kPickedLarge; ++i) rows += " " + std::to_string(i * kStructuresLarge / kPickedLarge);
  return ImportOf(files, db, rows);
}

// Structures, pieces of equipment, months of the inventory, comments, and explained findings, which stay behind.
std::string Contents(const KillFiles&, Database& db) {
  std::string counts;
  for (const char* what : {"PD_PLATFORM_DESC", "ED_EQUIP_DESC", "PA_PLATFORM_ACTV", "EA_EQUIP_ACTV",
                           "EA_EQUIP_ACTV WHERE EA_COMNT_TXT<>''", "QC WHERE Comments<>''"})
    counts += std::to_string(Count(db, what)) + " ";
  return counts + std::to_string(ToInteger(db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG")));
}

std::string CheckImport(Database& db, const std::string& before, int done, const std::string& after) {
  const std::string now = Contents({}, db);
  if (now == after || (done == 0 && now == before)) return "";
  return "the inventory holds " + now + ", before it " + before + ", whole " + after;
}

std::string CheckSmallImport(const KillFiles&, Database& db, const std::string& before, int done) {
  return CheckImport(db, before, done, "6 96 30 474 0 0 5");
}

std::string CheckLargeImport(const KillFiles&, Database& db, const std::string& before, int done) {
  return CheckImport(db, before, done, "34 394 408 4724 3960 0 12");
}

// ---- exports ----

KillScript ExportScript(const KillFiles& files, const char* menu, const std::string& pick, const char* button) {
  KillScript script;
  script.opening = {Start(files)};
  script.body = {{std::string("click ") + menu}, {pick}, {"set txtExportFilename " + Quoted(files.target())}};
  if (std::filesystem::exists(files.target())) script.body.push_back({"answer Yes"});
  script.body.push_back({std::string("click ") + button, 1});
  script.body.push_back({"click cmdCANCEL"});
  return script;
}

KillScript SurveyExportScript(const KillFiles& files, Database&) {
  return ExportScript(files, "mnuFExport", "pick lvwSurveys 1", "cmdOK");
}

KillScript StructureExportScript(const KillFiles& files, Database&) {
  return ExportScript(files, "mnuEStructS", "pick lvwStructures 1", "cmdExport");
}

KillScript InventoryExportScript(const KillFiles& files, Database&) {
  return ExportScript(files, "mnuFExportInventory", "pick lvwSurveys 0", "cmdOK");
}

// The rows of an inventory that an export is to hold: those of its structures, of its equipment and of their months.
struct ExportedRows {
  const char* structures;
  const char* equipment;
  const char* structure_months;
  const char* equipment_months;
};

constexpr const char* kAll = "1";

std::string CountsOf(Database& db, const ExportedRows& rows) {
  std::string counts;
  for (const auto& [table, condition] : {std::pair{"PD_PLATFORM_DESC", rows.structures},
                                         {"ED_EQUIP_DESC", rows.equipment},
                                         {"PA_PLATFORM_ACTV", rows.structure_months},
                                         {"EA_EQUIP_ACTV", rows.equipment_months}})
    counts += std::to_string(Count(db, std::string(table) + " WHERE " + condition)) + " ";
  return counts;
}

// An export leaves the working database alone, to the byte. What was answered is there; what is there is whole.
std::string CheckExport(const KillFiles& files, Database& db, const std::string& before, int done,
                        const ExportedRows& rows) {
  if (FileBytes(files.work()) != before) return "the export changed the working database";
  const bool had_older = std::filesystem::exists(files.older());
  if (done == 0 && !had_older && !std::filesystem::exists(files.target())) return "";
  if (done == 0 && had_older && FileBytes(files.target()) == FileBytes(files.older())) return "";
  Database exported;
  exported.Open(files.target());
  KeepPages(exported);
  if (NullToEmpty(exported.Single("PRAGMA integrity_check")) != "ok") return "the exported file is damaged";
  const std::string wanted = CountsOf(db, rows), found = CountsOf(exported, {kAll, kAll, kAll, kAll});
  return found == wanted ? "" : "the exported file holds " + found + "rows instead of " + wanted;
}

std::string CheckSurveyExport(const KillFiles& files, Database& db, const std::string& before, int done) {
  return CheckExport(files, db, before, done, {kAll, kAll, "PA_MO=2", "EA_MO=2"});
}

std::string CheckStructureExport(const KillFiles& files, Database& db, const std::string& before, int done) {
  return CheckExport(
      files, db, before, done,
      {"PD_ID_AK=2", "PD_ID_AK=2", "PD_ID_AK=2", "ED_ID_AK IN (SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE PD_ID_AK=2)"});
}

std::string CheckInventoryExport(const KillFiles& files, Database& db, const std::string& before, int done) {
  return CheckExport(files, db, before, done, {kAll, kAll, kAll, kAll});
}

}  // namespace

std::vector<KillOperation> ExchangeKillOperations() {
  return {
      {"import", MakeTwo, ImportScript, Contents, CheckSmallImport},
      {"export-survey", MakeSmall, SurveyExportScript, BytesBefore, CheckSurveyExport},
      {"export-structure", MakeSmall, StructureExportScript, BytesBefore, CheckStructureExport},
      {"export-inventory", MakeSmall, InventoryExportScript, BytesBefore, CheckInventoryExport},
      {"import-large", MakeTwoLarge, LargeImportScript, Contents, CheckLargeImport, false, true},
      {"export-survey-large", MakeLarge, SurveyExportScript, BytesBefore, CheckSurveyExport, false, true},
      {"export-structure-large", MakeLarge, StructureExportScript, BytesBefore, CheckStructureExport, false, true},
      {"export-inventory-large", MakeLarge, InventoryExportScript, BytesBefore, CheckInventoryExport, false, true},
  };
}

}  // namespace merlu::test
