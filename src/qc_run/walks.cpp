#include "qc_run/walks.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/dates.h"
#include "base/text.h"
#include "qc_run/run_record.h"
#include "session/types.h"
#include "session/wait.h"

namespace merlu {
namespace {

struct StructureRow {
  std::string complex, structure;
  std::int64_t PD_ID_AK, SA_ID_AK;
};

std::vector<StructureRow> ActiveStructures(Session& s, const QCLocation& l) {
  std::vector<StructureRow> rows;
  s.db.ForEach(
      "SELECT p.CMPLX_ID_NUM,p.STRUCT_NUM,p.PD_ID_AK,a.SA_ID_AK FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON "
      "p.PD_ID_AK=a.PD_ID_AK "
      "WHERE p.RIMA_CO_NUM=? AND a.PA_MO=? AND a.PA_YR=? AND (a.status IS NULL OR a.status='A') ORDER BY a.SA_ID_AK",
      {Trim(l.UserID), std::int64_t{l.Month}, std::int64_t{l.Year}}, [&](const RowView& row) {
        rows.push_back({std::string(row.Text(0)), std::string(row.Text(1)), row.Integer(2), row.Integer(3)});
      });
  return rows;
}

using TypeOnStructure = std::pair<std::int64_t, std::string>;

// What walks are made with: read and made ready once for all structures, or for the one.
struct Walker {
  Contexts contexts;
  std::map<TypeOnStructure, std::vector<std::int64_t>> records;  // keys in the mode, in their order
  std::map<const SheetSpec*, RecordJudge> judges;
};

std::map<TypeOnStructure, std::vector<std::int64_t>> RecordsOf(Session& s, std::int64_t structure, int month) {
  std::string sql = s.InActv() ? "SELECT d.PD_ID_AK,d.ED_EQUIP_TYP,a.EA_ID_AK FROM EA_EQUIP_ACTV a JOIN ED_EQUIP_DESC "
                                 "d ON d.ED_ID_AK=a.ED_ID_AK WHERE a.EA_MO=?"
                               : "SELECT PD_ID_AK,ED_EQUIP_TYP,ED_ID_AK FROM ED_EQUIP_DESC d WHERE 1";
  Values values;
  if (s.InActv()) values.emplace_back(std::int64_t{month});
  if (structure != 0) {
    sql += " AND d.PD_ID_AK=?";
    values.emplace_back(structure);
  }
  std::map<TypeOnStructure, std::vector<std::int64_t>> records;
  s.db.ForEach(sql + " ORDER BY 3", values, [&](const RowView& row) {
    records[{row.Integer(0), Upper(row.Text(1))}].push_back(row.Integer(2));
  });
  return records;
}

Walker MakeWalker(Session& s, std::int64_t structure, int month) {
  return {Contexts(s.db, structure, structure == 0 ? month : 0), RecordsOf(s, structure, month), {}};
}

RecordJudge& JudgeOf(Session& s, Walker& walker, const SheetSpec& sheet) {
  const RecordScope one{.mode = s.mode, .key = 1, .only_unchecked = s.InActv(), .asks_values = false};
  return walker.judges.try_emplace(&sheet, sheet, one).first->second;
}

// The runner for the structure's equipment of one type. In activity mode equipment that was checked since its last
// save is left out, nothing is looked at when the first piece is inactive, and fugitives do not run.
void Walk(Session& s, QCLocation& location, Walker& walker, const SheetSpec& sheet, std::int64_t PD_ID_AK,
          StructureWalk& walk) {
  location.Level = level::kEquipment;
  location.EquipType = sheet.type;
  if (s.InActv() && !sheet.has_activity) return;
  bool first = true, ended = false;
  RecordJudge& judge = JudgeOf(s, walker, sheet);
  const auto run = [&](const JudgedRecord& record) {
    if (s.InActv() && record.year != location.Year) return;
    if (std::exchange(first, false) && s.InActv() && record.inactive) ended = true;
    if (ended || (s.InActv() && (record.inactive || record.checked))) return;
    location.EquipID = record.id;
    s.current = location;
    RunJudged(s, location, record, &walk);
  };
  for (const std::int64_t key : walker.records[{PD_ID_AK, sheet.type}])
    judge.JudgeRows(s.db, walker.contexts, PD_ID_AK, key, run);
}

bool IsPassedOver(const Session& s, const StructureMonth* month) {
  return s.InActv() && month != nullptr && month->inactive;
}

std::int64_t StructureAt(Session& s, const QCLocation& l) {
  return ToInteger(
      s.db.Single("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE RIMA_CO_NUM=? AND CMPLX_ID_NUM=? AND STRUCT_NUM=?",
                  {Trim(l.UserID), l.CmplxID, l.StructID}));
}

void WalkTypes(Session& s, QCLocation& location, Walker& walker, const std::vector<const EquipmentType*>& types,
               bool shows_progress) {
  const std::int64_t structure = StructureAt(s, location);
  const StructureFacts* facts = walker.contexts.Structure(structure);
  // by the stored status: the screen's is judged by the structure's own run
  if (facts == nullptr || IsPassedOver(s, walker.contexts.Month(structure, location.Year, location.Month))) return;
  StructureWalk walk{PiecesWithFindings(s.db, location)};
  int done = 0;
  for (const EquipmentType* type : types) {
    if (shows_progress) ShowProgress(s, std::string(type->tree_name), done++, static_cast<int>(types.size()));
    if (std::find(facts->types.begin(), facts->types.end(), type->code) == facts->types.end()) continue;
    Walk(s, location, walker, type->sheet(), structure, walk);
  }
  DateEquipment(s, walk.checked, StoredDate(s.host.Now()));
}

// What follows the structure's own rules.
void WalkAndStamp(Session& s, QCLocation& location, Walker& walker, bool shows_progress) {
  const bool whole = s.record_checked;
  location.EquipType = location.EquipID = "NA";
  // the other types are checked by an equipment run only
  WalkTypes(s, location, walker, TypesBy(&EquipmentType::in_walk), shows_progress);
  location.Level = level::kStructure;
  s.record_checked = whole;
  StampStructure(s, whole);
}

}  // namespace

void RunSurveyQC(Session& s, QCLocation& location) {
  s.current = location;
  location.Level = level::kStructure;
  location.EquipType = location.EquipID = "NA";
  const std::vector<StructureRow> rows = ActiveStructures(s, location);
  int done = 0;
  if (s.InDesc()) location.Month = location.Year = 0;  // findings of descriptions have no month
  Walker walker = MakeWalker(s, 0, location.Month);
  RecordJudge structures(StructureSheet(), {.mode = s.mode, .key = 1, .asks_values = false});
  for (const StructureRow& row : rows) {
    location.CmplxID = row.complex;
    location.StructID = row.structure;
    ShowProgress(s, "Structure " + row.complex + " " + row.structure, done++, static_cast<int>(rows.size()));
    s.PD_ID_AK = row.PD_ID_AK;
    s.SA_ID_AK = row.SA_ID_AK;
    s.current = location;
    if (RunStoredStructureRules(s, location, walker.contexts, structures)) WalkAndStamp(s, location, walker, false);
  }
}

void RunStructureQC(Session& s, QCLocation& location) {
  s.current = location;
  if (!RunStructureRules(s, location)) return;
  Walker walker = MakeWalker(s, StructureAt(s, location), location.Month);
  WalkAndStamp(s, location, walker, true);
}

void RunTypedStructureQC(Session& s, QCLocation location, TypedView& typed) {
  s.current = location;
  if (!RunTypedStructureRules(s, location, typed)) return;
  Walker walker = MakeWalker(s, StructureAt(s, location), location.Month);
  WalkAndStamp(s, location, walker, false);
}

}  // namespace merlu
