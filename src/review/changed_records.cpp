#include "review/changed_records.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/text.h"
#include "session/types.h"

namespace merlu {
namespace {

// With more than these it is no slower to make the whole review again.
constexpr std::size_t kMostRows = 4000;
constexpr char kBetween = '\x1f';  // of the parts of a comment's name

std::size_t ColumnOf(const RecordedTable& table, const char* name) {
  const auto found = std::find(table.columns.begin(), table.columns.end(), name);
  return static_cast<std::size_t>(found - table.columns.begin());
}

std::int64_t NumberAt(const std::vector<StoredValue>& row, std::size_t column) {
  return column < row.size() ? row[column].integer : 0;
}

std::string TextAt(const std::vector<StoredValue>& row, std::size_t column) {
  return column < row.size() ? NullToEmpty(ToValue(row[column])) : "";
}

// Whether no other column differs than that one.
bool OnlyChanges(const RecordedTable& table, const RowChange& row, const char* column) {
  if (row.Added() || row.Removed()) return false;
  const std::vector<StoredValue> before = RowValues(row.before), after = RowValues(row.after);
  const std::size_t spared = ColumnOf(table, column);
  for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
    if (i != spared && before[i] != after[i]) return false;
  return before.size() == after.size();
}

// Whether the values of the column differ.
bool Differs(const RecordedTable& table, const RowChange& row, const char* column) {
  const std::size_t at = ColumnOf(table, column);
  return TextAt(RowValues(row.before), at) != TextAt(RowValues(row.after), at);
}

// Of the row before and after.
std::vector<std::int64_t> Numbers(const RecordedTable& table, const RowChange& row, const char* column) {
  std::vector<std::int64_t> numbers;
  const std::size_t at = ColumnOf(table, column);
  for (const std::string_view bytes : {row.before, row.after})
    if (!bytes.empty()) numbers.push_back(NumberAt(RowValues(bytes), at));
  return numbers;
}

}  // namespace

bool ChangedRecords::IsEmpty() const {
  return !all && structures.empty() && pieces.empty() && of_pieces.empty() && descriptions.empty() &&
         structure_months.empty() && months.empty() && of_months.empty() && rows.empty() && places.empty();
}

void ChangedRecords::Learn(const Changes& changes) {
  if (known_ == changes.tables) return;
  known_ = changes.tables;
  kinds_.clear();
  for (const RecordedTable& table : *known_) {
    const std::string& name = table.name;
    const bool of_type = name.size() > 3 && FindType(name.substr(3)) != nullptr;
    kinds_.push_back(name == "PD_PLATFORM_DESC"           ? Table::kStructure
                     : name == "PA_PLATFORM_ACTV"         ? Table::kStructureMonth
                     : name == "ED_EQUIP_DESC"            ? Table::kPiece
                     : name == "EA_EQUIP_ACTV"            ? Table::kPieceMonth
                     : name == "QC"                       ? Table::kLog
                     : name == "SYS_CONFIG"               ? Table::kConfiguration
                     : name == "history.comment"          ? Table::kComment
                     : of_type && name.starts_with("ED_") ? Table::kOfPiece
                     : of_type && name.starts_with("EA_") ? Table::kOfMonth
                                                          : Table::kOther);
  }
}

void ChangedRecords::Note(const Changes& changes) {
  if (all) return;
  all = changes.all || changes.rows.size() + rows.size() + months.size() > kMostRows;
  if (all) return;
  Learn(changes);
  for (const RowChange& row : changes.rows) NoteRow(changes, row);
}

void ChangedRecords::NoteRow(const Changes& changes, const RowChange& row) {
  const RecordedTable& table = changes.TableOf(row);
  const bool came_or_went = row.Added() || row.Removed();
  switch (kinds_[row.table]) {
    case Table::kStructure:
      // another name makes other rows of the log its own
      if (came_or_went || Differs(table, row, "RIMA_CO_NUM") || Differs(table, row, "CMPLX_ID_NUM") ||
          Differs(table, row, "STRUCT_NUM"))
        all = true;
      (OnlyChanges(table, row, "PD_QC_DT") ? descriptions : structures).insert(row.rowid);
      break;
    case Table::kStructureMonth:
      if (OnlyChanges(table, row, "PA_QC_DT"))
        structure_months.insert(row.rowid);
      else
        for (const std::int64_t structure : Numbers(table, row, "PD_ID_AK")) structures.insert(structure);
      break;
    case Table::kPiece:
      for (const std::int64_t structure : Numbers(table, row, "PD_ID_AK")) structures.insert(structure);
      break;
    case Table::kPieceMonth:
      if (came_or_went)
        for (const std::int64_t piece : Numbers(table, row, "ED_ID_AK")) of_pieces.insert(piece);
      else
        months.insert(row.rowid);
      break;
    case Table::kOfPiece: (came_or_went ? of_pieces : pieces).insert(row.rowid); break;
    case Table::kOfMonth: (came_or_went ? of_months : months).insert(row.rowid); break;
    case Table::kLog: NoteLog(table, row); break;
    case Table::kComment: NoteComment(table, row); break;
    case Table::kConfiguration: all = true; break;
    case Table::kOther: break;
  }
}

void ChangedRecords::NoteLog(const RecordedTable& table, const RowChange& row) {
  rows.insert(row.rowid);
  for (const std::string_view bytes : {row.before, row.after}) {
    if (bytes.empty()) continue;
    const std::vector<StoredValue> values = RowValues(bytes);
    const auto text = [&](const char* column) { return TextAt(values, ColumnOf(table, column)); };
    const auto number = [&](const char* column) { return static_cast<int>(NumberAt(values, ColumnOf(table, column))); };
    At({text("Level"), text("UserID"), number("Month"), number("Year"), text("CmplxID"), text("StructID"),
        text("EquipType"), text("EquipID")})
        .rows.insert(row.rowid);
  }
}

// Its name holds the place of its finding.
void ChangedRecords::NoteComment(const RecordedTable& table, const RowChange& row) {
  for (const std::string_view bytes : {row.before, row.after}) {
    if (bytes.empty()) continue;
    const std::string name = TextAt(RowValues(bytes), ColumnOf(table, "finding"));
    std::array<std::string, 7> parts;  // level, year, month, complex, structure, type, equipment
    std::size_t part = 0;
    for (const char c : name) {
      if (c == kBetween && ++part == parts.size()) break;
      if (c != kBetween) parts[part] += c;
    }
    At({parts[0], "", std::atoi(parts[2].c_str()), std::atoi(parts[1].c_str()), parts[3], parts[4], parts[5],
        parts[6]});
  }
}

ChangedRecords::LogPlace& ChangedRecords::At(QCLocation at) {
  std::string name = Lower(at.Level) + kBetween + std::to_string(at.Month);
  for (const std::string* part : {&at.UserID, &at.CmplxID, &at.StructID, &at.EquipType, &at.EquipID})
    name += kBetween + *part;
  return places.try_emplace(std::move(name), LogPlace{std::move(at), {}}).first->second;
}

}  // namespace merlu
