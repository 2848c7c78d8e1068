#include "review/place_counts.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/text.h"
#include "qc/comment_key.h"
#include "sheets/units.h"

namespace merlu {
namespace {

struct LoggedFinding {
  std::string tag, text;
  bool explained = false, taken = false;
};

// By the piece of equipment; the structure's own under an empty name.
using Log = std::unordered_map<std::string, std::vector<LoggedFinding>>;

std::string PieceName(std::string_view type, std::string_view id) {
  return Lower(Trim(type)) + '\n' + Lower(Trim(id));
}

Log ReadLog(Database& db, const QCLocation& at, Mode mode) {
  const bool equipment = at.Is(level::kEquipment);
  std::string sql =
      "SELECT FieldID,[Desc],Comments,[Level],EquipType,EquipID FROM QC WHERE UserID=? AND CmplxID=? AND StructID=? "
      "AND "
      "[Month]=?";
  Values values;
  values.emplace_back(Trim(at.UserID));
  values.emplace_back(Trim(at.CmplxID));
  values.emplace_back(Trim(at.StructID));
  values.emplace_back(std::int64_t{mode == Mode::kDesc ? 0 : at.Month});
  if (equipment) {
    sql += " AND EquipType=? AND EquipID=?";
    values.emplace_back(Trim(at.EquipType));
    values.emplace_back(Trim(at.EquipID));
  }
  Log log;
  db.ForEach(sql, values, [&log](const RowView& row) {
    const bool of_equipment = EqualsIgnoringCase(row.Text(3), level::kEquipment);
    log[of_equipment ? PieceName(row.Text(4), row.Text(5)) : ""].push_back(
        {std::string(row.Text(0)), std::string(row.Text(1)), Explains(row.Text(2)), false});
  });
  return log;
}

// The row under the tag, one with the same text before others; null without one.
LoggedFinding* RowUnder(std::vector<LoggedFinding>& rows, const JudgedFinding& finding) {
  LoggedFinding* found = nullptr;
  for (LoggedFinding& row : rows) {
    if (row.taken || !IsSameTag(row.tag, finding.tag)) continue;
    if (row.text == finding.text) return &row;
    if (found == nullptr) found = &row;
  }
  return found;
}

// A click on a structure's month sets the key of the month only.
std::int64_t StructureAt(Database& db, Mode mode, const RecordKeys& keys) {
  if (mode == Mode::kDesc) return keys.PD_ID_AK;
  return ToInteger(db.Single("SELECT PD_ID_AK FROM PA_PLATFORM_ACTV WHERE SA_ID_AK=?", {keys.SA_ID_AK}));
}

}  // namespace

PlaceCounts CountFindingsAt(Database& db, const QCLocation& at, Mode mode, const RecordKeys& keys) {
  PlaceCounts counts;
  Log log = ReadLog(db, at, mode);
  const auto add = [&counts](bool explained) {
    ++counts.findings;
    if (!explained) ++counts.unexplained;
  };
  const auto count = [&](const JudgedRecord& record) {
    if (mode == Mode::kActv && (!record.has_values || record.inactive || record.structure_inactive)) return;
    const auto rows = log.find(record.IsOfStructure() ? "" : PieceName(record.sheet->type, record.id));
    for (const JudgedFinding& finding : StandingFindings(*record.verdicts)) {
      LoggedFinding* row = rows == log.end() ? nullptr : RowUnder(rows->second, finding);
      if (row != nullptr) row->taken = true;
      add(row != nullptr && row->text == finding.text && row->explained);
    }
  };
  const SheetSpec* sheet = at.Is(level::kEquipment) ? FindSheet(at.EquipType) : nullptr;
  if (sheet != nullptr)
    JudgeRecord(db, *sheet, mode, keys, count);
  else if (at.Is(level::kStructure))
    JudgeAll(db, {.mode = mode, .month = mode == Mode::kActv ? at.Month : 0, .PD_ID_AK = StructureAt(db, mode, keys)},
             count);
  for (const auto& [name, rows] : log)
    for (const LoggedFinding& row : rows)
      if (!row.taken) add(row.explained);
  return counts;
}

}  // namespace merlu
