#include "faults/kill_operations.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "faults/kill_steps.h"
#include "inventory.h"
#include "session/node_keys.h"
#include "session/types.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

constexpr const char* kUser = kKillUser;
constexpr int kYear = 2017;
constexpr int kSaves = 8;

std::string Text(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

InventoryPlan Plan(int structures, int equipment, int months) {
  InventoryPlan plan;
  plan.structures = structures;
  plan.equipment = equipment;
  plan.months = months;
  return plan;
}

void MakeSmall(const KillFiles& files) {
  MakeInventory(TemplatePath(), files.work(), Plan(4, 64, 3));
}

void MakeFaulty(const KillFiles& files) {
  InventoryPlan plan = Plan(3, 48, 2);
  plan.fault_share = 0.5;
  MakeInventory(TemplatePath(), files.work(), plan);
}

void MakeYear(const KillFiles& files) {
  InventoryPlan plan = Plan(2, 32, 12);
  plan.fault_share = 0.5;
  MakeInventory(TemplatePath(), files.work(), plan);
}

std::string NothingBefore(const KillFiles&, Database&) {
  return "";
}

// ---- the first open of a file, which repairs it ----

KillScript FirstOpenScript(const KillFiles& files, Database&) {
  return {{}, {{Start(files).line, 1}}};
}

std::string CheckFirstOpen(const KillFiles&, Database& db, const std::string&, int done) {
  if (!db.HasTable("QC_XREF")) return done == 0 ? "" : "the file was not repaired";
  const std::int64_t listed = Count(db, "QC_XREF");
  return listed == 64 ? "" : "the repair lists " + std::to_string(listed) + " pieces of equipment";
}

// ---- saves: every save writes one number into several fields of a record, which lies in two tables ----

constexpr const char* kFlare = "ED_EQUIP_TYP='FLA' AND PD_ID_AK=1";

std::string FlareKey(Database& db) {
  const Value id = db.Single(std::string("SELECT ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC WHERE ") + kFlare);
  return StructureMonthKey(kUser, 1, kYear, "10001", "1") + EquipmentSuffix("FLA", NullToEmpty(id));
}

std::string Three(std::int64_t hours, std::int64_t volume, const std::string& comment) {
  return std::to_string(hours) + ", " + std::to_string(volume) + ", \"" + comment + "\"";
}

std::string SameEverywhere(int number) {
  return Three(number, number, std::to_string(number));
}

std::string FlareValues(const KillFiles&, Database& db) {
  const Rows rows = db.Query(
      std::string("SELECT f.OP_HR,f.VOL_FLARED,a.EA_COMNT_TXT FROM EA_FLA f JOIN EA_EQUIP_ACTV a ON "
                  "a.EA_ID_AK=f.EA_ID_AK WHERE a.EA_MO=1 AND a.ED_ID_AK=(SELECT ED_ID_AK FROM ED_EQUIP_DESC WHERE ") +
      kFlare + ")");
  const Values& row = rows.rows.at(0);
  return Three(ToInteger(row[0]), ToInteger(row[1]), NullToEmpty(row[2]));
}

KillScript Saves(const KillFiles& files, Database& db, bool ends_the_edit) {
  KillScript script;
  script.opening = {Start(files), {SelectNode(FlareKey(db))}};
  if (!ends_the_edit) script.opening.push_back({"click cmdEdit"});
  for (int i = 1; i <= kSaves; ++i) {
    const std::string number = std::to_string(i);
    if (ends_the_edit) script.body.push_back({"click cmdEdit"});
    for (const char* field : {"txtFLA_HrsOperated ", "txtFLA_VolFlared ", "txtFLA_Comments "})
      script.body.push_back({std::string("set ") + field + number});
    script.body.push_back({ends_the_edit ? "click cmdSaveExit" : "click cmdSaveEdits", i});
  }
  if (!ends_the_edit) script.body.push_back({"click cmdCANCEL"});
  return script;
}

KillScript SaveScript(const KillFiles& files, Database& db) {
  return Saves(files, db, false);
}

KillScript SaveExitScript(const KillFiles& files, Database& db) {
  return Saves(files, db, true);
}

std::string CheckSaves(const KillFiles& files, Database& db, const std::string& before, int done) {
  const std::string now = FlareValues(files, db);
  if (now == SameEverywhere(done) || now == SameEverywhere(done + 1)) return "";
  return done == 0 && now == before ? "" : "the record holds " + now + " with save " + std::to_string(done);
}

// ---- months ----

std::int64_t Months(Database& db) {
  return ToInteger(db.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG"));
}

KillScript MonthScript(const KillFiles& files, Database& db) {
  KillScript script;
  script.opening = {Start(files)};
  const int left = 12 - static_cast<int>(Months(db));
  for (int i = 1; i <= left; ++i) script.body.push_back({"click cmdUSER_AddSurvey", i});
  return script;
}

std::string MonthsBefore(const KillFiles&, Database& db) {
  return std::to_string(Months(db));
}

std::string CheckMonths(const KillFiles&, Database& db, const std::string& before, int done) {
  const std::int64_t added = Months(db) - std::stoi(before);
  return IsOneOf(added, done) ? "" : Told("months", added, done);
}

// ---- QC ----

KillScript SurveyQCScript(const KillFiles& files, Database&) {
  return {{Start(files), {SelectNode(SurveyKey(kUser, 1, kYear))}}, {{"click cmdQC", 1}, {"click cmdQC", 2}}};
}

std::string CheckSurveyQC(const KillFiles&, Database& db, const std::string&, int done) {
  const std::int64_t findings = Count(db, "QC"), dates = Count(db, "PA_PLATFORM_ACTV WHERE PA_QC_DT IS NOT NULL");
  if (done > 0 && findings == 0) return "a run that was answered left no finding";
  // the dates and the findings of a run come together
  return (findings == 0) == (dates == 0) ? ""
                                         : "findings " + std::to_string(findings) + ", dates " + std::to_string(dates);
}

// ---- status propagation ----

KillScript StatusScript(const KillFiles& files, Database&) {
  KillScript script;
  script.opening = {Start(files), {SelectNode(StructureMonthKey(kUser, 2, kYear, "10001", "1"))}, {"click cmdEdit"}};
  for (int i = 1; i <= kSaves; ++i) {
    script.body.push_back({i % 2 == 1 ? "set chkSTRUCTURE_Status on" : "set chkSTRUCTURE_Status off"});
    script.body.push_back({"click cmdSaveEdits", i});
  }
  script.body.push_back({"click cmdCANCEL"});
  return script;
}

std::string CheckStatus(const KillFiles&, Database& db, const std::string&, int done) {
  const std::int64_t inactive = Count(db, "PA_PLATFORM_ACTV WHERE status='I'");
  if (done == kSaves && inactive != 0) return "the last status is not stored";
  const std::int64_t differing = Count(
      db,
      "EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK JOIN PA_PLATFORM_ACTV p ON p.PD_ID_AK=d.PD_ID_AK "
      "AND p.PA_MO=a.EA_MO AND p.PA_YR=a.EA_YR WHERE a.EA_STATUS IS NOT p.status");
  return differing == 0 ? "" : std::to_string(differing) + " equipment months differ from their structure";
}

// ---- deleting ----

KillScript Deletions(const KillFiles& files, Database& db, const std::string& sql, int most) {
  KillScript script;
  script.opening = {Start(files), {"click mnuSetEditMode"}};
  const Rows rows = db.Query(sql);
  for (std::size_t i = 0; i < rows.rows.size() && static_cast<int>(i) < most; ++i) {
    const Values& row = rows.rows[i];
    std::string key = StructureKey(kUser, NullToEmpty(row[0]), NullToEmpty(row[1]));
    if (row.size() > 2) key += EquipmentSuffix(NullToEmpty(row[2]), NullToEmpty(row[3]));
    script.body.push_back({SelectNode(key)});
    script.body.push_back({"answer OK"});
    script.body.push_back({"click mnuEDelete", static_cast<int>(i) + 1});
  }
  return script;
}

KillScript DeleteStructureScript(const KillFiles& files, Database& db) {
  const int most = static_cast<int>(Count(db, "PD_PLATFORM_DESC")) - 1;
  return Deletions(files, db, "SELECT CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC ORDER BY PD_ID_AK DESC", most);
}

KillScript DeleteEquipmentScript(const KillFiles& files, Database& db) {
  return Deletions(files, db,
                   "SELECT p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_EQUIP_TYP,d.ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC d JOIN "
                   "PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK ORDER BY d.ED_ID_AK",
                   10);
}

std::string CountsBefore(const KillFiles&, Database& db) {
  return std::to_string(Count(db, "PD_PLATFORM_DESC")) + " " + std::to_string(Count(db, "ED_EQUIP_DESC"));
}

std::string CheckDeletions(Database& db, const char* table, std::int64_t before, int done) {
  const std::int64_t gone = before - Count(db, table);
  return IsOneOf(gone, done) ? "" : Told(std::string(table) + " deleted", gone, done);
}

std::string CheckDeletedStructures(const KillFiles&, Database& db, const std::string& before, int done) {
  return CheckDeletions(db, "PD_PLATFORM_DESC", std::stoi(before), done);
}

std::string CheckDeletedEquipment(const KillFiles&, Database& db, const std::string& before, int done) {
  return CheckDeletions(db, "ED_EQUIP_DESC", std::stoi(before.substr(before.find(' '))), done);
}

// ---- the annual pass ----

KillScript AnnualScript(const KillFiles& files, Database&) {
  return {{Start(files), {"file " + Quoted(files.report())}}, {{"click frmInvQCPrint", 1}}};
}

std::string CheckAnnual(const KillFiles& files, Database& db, const std::string&, int done) {
  const std::int64_t rows = Count(db, "QCInventory");
  const std::string summary = NullToEmpty(db.Single("SELECT [Desc] FROM QCInventory WHERE [Level]='ZSUMMARY'"));
  if (rows > 0 && summary != std::to_string(rows - 1) + " errors found in this dataset.")
    return std::to_string(rows) + " findings with the summary \"" + summary + "\"";
  if (done > 0 && rows == 0) return "a pass that was answered left no finding";
  const std::string report = Text(files.report());
  if (report.empty()) return done > 0 ? "no report" : "";
  return report.starts_with("%PDF") && report.find("%%EOF", report.size() - 8) != std::string::npos ? ""
                                                                                                    : "half a report";
}

}  // namespace

const std::vector<KillOperation>& KillOperations() {
  static const std::vector<KillOperation> operations = [] {
    std::vector<KillOperation> all = {
        {"first-open", MakeSmall, FirstOpenScript, NothingBefore, CheckFirstOpen, true},
        {"save", MakeSmall, SaveScript, FlareValues, CheckSaves},
        {"save-exit", MakeSmall, SaveExitScript, FlareValues, CheckSaves},
        {"month", MakeSmall, MonthScript, MonthsBefore, CheckMonths},
        {"survey-qc", MakeFaulty, SurveyQCScript, NothingBefore, CheckSurveyQC},
        {"status", MakeSmall, StatusScript, NothingBefore, CheckStatus},
        {"delete-structure", MakeSmall, DeleteStructureScript, CountsBefore, CheckDeletedStructures},
        {"delete-equipment", MakeSmall, DeleteEquipmentScript, CountsBefore, CheckDeletedEquipment},
        {"annual", MakeYear, AnnualScript, NothingBefore, CheckAnnual},
    };
    for (const auto& others : {ExchangeKillOperations(), HistoryKillOperations()})
      all.insert(all.end(), others.begin(), others.end());
    return all;
  }();
  return operations;
}

}  // namespace merlu::test
