#include "qc_run/walks.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "qc_run/run_record.h"
#include "session/messages.h"
#include "session/types.h"
#include "sheets/units.h"

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

// The runner for the structure's equipment of one type. In activity mode equipment that was checked since its last
// save is left out, and nothing is looked at when the first piece is inactive.
void Walk(Session& s, QCLocation& location, Contexts& contexts, const SheetSpec& sheet, std::int64_t PD_ID_AK) {
  location.Level = level::kEquipment;
  location.EquipType = sheet.type;
  const RecordScope scope{.mode = s.mode, .month = location.Month, .PD_ID_AK = PD_ID_AK, .only_unchecked = s.InActv()};
  bool first = true, ended = false;
  JudgeEquipment(s.db, contexts, sheet, scope, [&](const JudgedRecord& record) {
    if (s.InActv() && record.year != location.Year) return;
    if (std::exchange(first, false) && s.InActv() && record.inactive) ended = true;
    if (ended || (s.InActv() && (record.inactive || record.checked))) return;
    location.EquipID = record.id;
    s.current = location;
    RunJudged(s, location, record);
  });
}

bool IsPassedOver(const Session& s, const StructureMonth* month) {
  return s.InActv() && month != nullptr && month->inactive;
}

std::int64_t StructureAt(Session& s, const QCLocation& l) {
  return ToInteger(
      s.db.Single("SELECT PD_ID_AK FROM PD_PLATFORM_DESC WHERE RIMA_CO_NUM=? AND CMPLX_ID_NUM=? AND STRUCT_NUM=?",
                  {Trim(l.UserID), l.CmplxID, l.StructID}));
}

void WalkTypes(Session& s, QCLocation& location, const std::vector<const EquipmentType*>& types, bool shows_progress) {
  const std::int64_t structure = StructureAt(s, location);
  Contexts contexts(s.db, structure);
  const StructureFacts* facts = contexts.Structure(structure);
  // by the stored status: the screen's is judged by the structure's own run
  if (facts == nullptr || IsPassedOver(s, contexts.Month(structure, location.Year, location.Month))) return;
  int done = 0;
  for (const EquipmentType* type : types) {
    if (shows_progress) Progress(s, std::string(type->tree_name), done++, static_cast<int>(types.size()));
    if (std::find(facts->types.begin(), facts->types.end(), type->code) == facts->types.end()) continue;
    Walk(s, location, contexts, type->sheet(), structure);
  }
}

}  // namespace

void RunSurveyQC(Session& s, QCLocation& location) {
  const QCLocation started_at = location;
  s.current = location;
  location.Level = level::kStructure;
  location.EquipType = location.EquipID = "NA";
  const std::vector<StructureRow> rows = ActiveStructures(s, location);
  int done = 0;
  if (s.InDesc()) location.Month = location.Year = 0;  // findings of descriptions have no month
  for (const StructureRow& row : rows) {
    location.CmplxID = row.complex;
    location.StructID = row.structure;
    Progress(s, "Structure " + row.complex + " " + row.structure, done++, static_cast<int>(rows.size()));
    s.PD_ID_AK = row.PD_ID_AK;
    s.SA_ID_AK = row.SA_ID_AK;
    RunStructureQC(s, location, started_at);
  }
}

namespace {

// What follows the structure's own rules.
void WalkAndStamp(Session& s, QCLocation& location, bool shows_progress) {
  const bool whole = s.record_checked;
  location.EquipType = location.EquipID = "NA";
  // the other types are checked by an equipment run only
  WalkTypes(s, location, TypesBy(&EquipmentType::in_walk), shows_progress);
  location.Level = level::kStructure;
  s.record_checked = whole;
  StampStructure(s, whole);
}

}  // namespace

void RunStructureQC(Session& s, QCLocation& location, const QCLocation& started_at) {
  const bool from_above = started_at.Level != level::kStructure;
  s.current = location;
  if (RunStructureRules(s, location, !from_above)) WalkAndStamp(s, location, !from_above);
}

void RunTypedStructureQC(Session& s, QCLocation location, TypedView& typed) {
  s.current = location;
  if (RunTypedStructureRules(s, location, typed)) WalkAndStamp(s, location, false);
}

void WalkEquipmentQC(Session& s, QCLocation& location, std::string_view type) {
  WalkTypes(s, location, {FindType(type)}, false);
}

}  // namespace merlu
