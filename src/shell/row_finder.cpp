#include "shell/row_finder.h"

#include <algorithm>

#include "base/text.h"
#include "session/place.h"
#include "session/types.h"

namespace merlu {
namespace {

std::string TextAt(const std::map<std::string, std::string>& row, const char* column) {
  const auto found = row.find(column);
  return found == row.end() ? "" : found->second;
}

int NumberOf(const std::map<std::string, std::string>& row, const char* column) {
  return static_cast<int>(ToInteger(Value(TextAt(row, column))));
}

constexpr std::size_t kMostOfStructure = 300;

// The texts of a place are repeated in every row, so unreasonably long ones are cut.
std::string Part(const std::map<std::string, std::string>& row, const char* column) {
  constexpr std::size_t kMost = 100;
  const std::string text = TextAt(row, column);
  return text.size() <= kMost ? text : FirstCharacters(text, kMost);
}

}  // namespace

bool IsTypeTable(const std::string& table, const char* prefix) {
  return table.starts_with(prefix) && FindType(table.substr(3)) != nullptr;
}

const RecordedTable* RecordedTableNamed(Database& db, const std::string& name, std::uint16_t* number) {
  if (!db.recorder().IsOn()) return nullptr;
  const auto& tables = *db.recorder().tables();
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (tables[i].name != name) continue;
    if (number != nullptr) *number = static_cast<std::uint16_t>(i);
    return &tables[i];
  }
  return nullptr;
}

// The verb for whole rows; the first match counts, the step's own title first.
void RowFinder::Learn(std::int64_t step) {
  for (std::string& read : PartsOf(s_.companion, step)) {
    const std::string& part = parts_.emplace_back(std::move(read));
    for (const KeptRow& row : UnpackChanges(part)) {
      std::uint16_t table = 0;
      if (row.row.empty() || RecordedTableNamed(s_.db, row.table, &table) == nullptr) continue;
      in_steps_.try_emplace({table, row.rowid}, row.row);
    }
  }
}

const RowFinder::Named* RowFinder::InSteps(const RowKey& row) {
  const auto found = in_steps_.find(row);
  if (found == in_steps_.end()) return nullptr;
  const RecordedTable& table = (*s_.db.recorder().tables())[row.first];
  const std::vector<StoredValue> values = RowValues(found->second);
  Named named;
  for (std::size_t i = 0; i < values.size() && i < table.columns.size(); ++i)
    named[table.columns[i]] = NullToEmpty(ToValue(values[i]));
  return &*known_.try_emplace(row, std::move(named)).first->second;
}

const RowFinder::Named* RowFinder::InInventory(const std::string& table, const RowKey& row) {
  const Rows rows = s_.db.Query("SELECT * FROM main.[" + table + "] WHERE rowid=?", {row.second});
  if (rows.rows.empty()) return nullptr;
  Named named;
  for (std::size_t i = 0; i < rows.columns.size(); ++i) named[rows.columns[i]] = NullToEmpty(rows.rows.front()[i]);
  return &*known_.try_emplace(row, std::move(named)).first->second;
}

const RowFinder::Named* RowFinder::Find(const std::string& table, std::int64_t rowid) {
  RowKey row{0, rowid};
  if (RecordedTableNamed(s_.db, table, &row.first) == nullptr) return nullptr;
  if (const auto known = known_.find(row); known != known_.end()) return known->second ? &*known->second : nullptr;
  if (!std::exchange(learned_own_, true)) Learn(step_);
  if (const Named* found = InSteps(row)) return found;
  if (const Named* found = InInventory(table, row)) return found;
  if (!std::exchange(learned_newer_, true)) {
    std::vector<HistoryStep> steps = Steps(s_.companion);
    std::reverse(steps.begin(), steps.end());
    for (const HistoryStep& newer : steps)
      if (newer.id > step_) Learn(newer.id);
  }
  if (const Named* found = InSteps(row)) return found;
  known_.try_emplace(row, std::nullopt);
  return nullptr;
}

std::string RowFinder::Structure(std::int64_t pd_id) {
  const Named* row = Find("PD_PLATFORM_DESC", pd_id);
  return row == nullptr ? "" : StructureText(Part(*row, "Area"), Part(*row, "Block"), Part(*row, "Name"));
}

std::string RowFinder::PlaceOfEquipment(int month, int year, std::int64_t ed_id) {
  const Named* row = Find("ED_EQUIP_DESC", ed_id);
  if (row == nullptr) return JoinPlace(month, year, "", "");
  const std::string name = EquipmentText(Part(*row, "ED_EQUIP_TYP"), Part(*row, "ED_MERLU_EQUIP_ID"));
  return JoinPlace(month, year, Structure(NumberOf(*row, "PD_ID_AK")), name);
}

std::string RowFinder::PlaceOfMonth(std::int64_t ea_id) {
  const Named* row = Find("EA_EQUIP_ACTV", ea_id);
  if (row == nullptr) return "";
  return PlaceOfEquipment(NumberOf(*row, "EA_MO"), NumberOf(*row, "EA_YR"), NumberOf(*row, "ED_ID_AK"));
}

std::string RowFinder::PlaceOfFinding(Database& db, const Named& row) {
  const std::string complex = TextAt(row, "CmplxID"), structure = TextAt(row, "StructID");
  const std::string type = TextAt(row, "EquipType"), id = TextAt(row, "EquipID");
  return JoinPlace(NumberOf(row, "Month"), NumberOf(row, "Year"),
                   complex == "NA" ? "" : FirstCharacters(StructureTextOf(db, complex, structure), kMostOfStructure),
                   type == "NA" || type.empty() ? "" : EquipmentText(type, id));
}

// Where the step that changed the row says that it was: another program has deleted the record.
std::string RowFinder::PlaceOfItsStep(const std::string& table, std::int64_t rowid) {
  std::vector<HistoryStep> steps = Steps(s_.companion);
  std::reverse(steps.begin(), steps.end());
  const auto is_the_row = [&](const KeptRow& row) { return row.rowid == rowid && row.table == table; };
  for (const HistoryStep& step : steps) {
    if (step.id < step_) continue;
    for (const std::string& part : PartsOf(s_.companion, step.id)) {
      const std::vector<KeptRow> rows = UnpackChanges(part);
      if (std::any_of(rows.begin(), rows.end(), is_the_row)) return step.title.place;
    }
  }
  return "";
}

std::string RowFinder::FieldOf(std::int64_t qc_row) {
  const Named* row = Find("QC", qc_row);
  return row == nullptr ? "" : TrimRight(TextAt(*row, "FieldID"));
}

bool RowFinder::IsFindingOf(const QCLocation& record, std::int64_t qc_row) {
  const Named* row = Find("QC", qc_row);
  if (row == nullptr || !record.Is(TextAt(*row, "Level").c_str())) return false;
  const auto is = [row](const char* column, const std::string& id) {
    return CompareIds(Trim(TextAt(*row, column)), Trim(id)) == 0;
  };
  if (NumberOf(*row, "Month") != record.Month || NumberOf(*row, "Year") != record.Year) return false;
  if (!is("CmplxID", record.CmplxID) || !is("StructID", record.StructID)) return false;
  return record.Is(level::kStructure) || (is("EquipType", record.EquipType) && is("EquipID", record.EquipID));
}

std::string RowFinder::PlaceOf(const std::string& table, std::int64_t rowid) {
  RowKey key{0, rowid};
  RecordedTableNamed(s_.db, table, &key.first);
  const auto [known, fresh] = places_.try_emplace(key);
  if (!fresh) return known->second;
  std::string place;
  if (table == "EA_EQUIP_ACTV" || IsTypeTable(table, "EA_")) {
    place = PlaceOfMonth(rowid);
  } else if (table == "ED_EQUIP_DESC" || IsTypeTable(table, "ED_")) {
    place = PlaceOfEquipment(0, 0, rowid);
  } else if (table == "PD_PLATFORM_DESC") {
    place = Structure(rowid);
  } else if (const Named* row = Find(table, rowid); row != nullptr && table == "PA_PLATFORM_ACTV") {
    place = JoinPlace(NumberOf(*row, "PA_MO"), NumberOf(*row, "PA_YR"), Structure(NumberOf(*row, "PD_ID_AK")), "");
  } else if (row != nullptr && (table == "QC" || table == "QCInventory")) {
    place = PlaceOfFinding(s_.db, *row);
  } else if (table.starts_with("list")) {
    place = "Look-up list";
  }
  if (place.empty() && table != "CO_COMPANY" && table != "SYS_CONFIG") place = PlaceOfItsStep(table, rowid);
  if (place.empty()) place = "Operator: " + Trim(s_.current.UserID);
  return known->second = place;
}

bool StepTouches(Session& s, std::int64_t step, const QCLocation& record, Mode mode) {
  const bool actv = mode == Mode::kActv;
  RowFinder finder(s, step);
  const auto belongs = [&](const KeptRow& row) {
    const bool structure = record.Is(level::kStructure), equipment = record.Is(level::kEquipment);
    if (row.table == "QC") return (structure || equipment) && finder.IsFindingOf(record, row.rowid);
    const bool desc_row = row.table == "ED_EQUIP_DESC" || IsTypeTable(row.table, "ED_");
    const bool month_row = row.table == "EA_EQUIP_ACTV" || IsTypeTable(row.table, "EA_");
    if (equipment) return actv ? month_row && row.rowid == s.EA_ID_AK : desc_row && row.rowid == s.ED_ID_AK;
    if (structure)
      return actv ? row.table == "PA_PLATFORM_ACTV" && row.rowid == s.SA_ID_AK
                  : row.table == "PD_PLATFORM_DESC" && row.rowid == s.PD_ID_AK;
    return record.Is(level::kUser) && row.table == "CO_COMPANY";
  };
  for (const std::string& part : PartsOf(s.companion, step)) {
    const std::vector<KeptRow> rows = UnpackChanges(part);
    if (std::any_of(rows.begin(), rows.end(), belongs)) return true;
  }
  return false;
}

}  // namespace merlu
