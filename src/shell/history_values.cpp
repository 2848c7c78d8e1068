#include "shell/history_values.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/text.h"
#include "records/structure_fields.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/conversions.h"
#include "sheets/units.h"

namespace merlu {
namespace {

const RecordedTable* TableNamed(Database& db, const std::string& name) {
  for (const RecordedTable& table : *db.recorder().tables())
    if (table.name == name) return &table;
  return nullptr;
}

std::string TextOf(const StoredValue& value) {
  return NullToEmpty(ToValue(value));
}

int NumberOf(const std::map<std::string, std::string>& row, const char* column) {
  const auto found = row.find(column);
  return found == row.end() ? 0 : static_cast<int>(ToInteger(Value(found->second)));
}

std::string TextAt(const std::map<std::string, std::string>& row, const char* column) {
  const auto found = row.find(column);
  return found == row.end() ? "" : found->second;
}

bool IsTypeTable(const std::string& table, const char* prefix) {
  return table.starts_with(prefix) && FindType(table.substr(3)) != nullptr;
}

// ---- what a column is called, and how its values show ----

const FieldSpec* FieldAt(const std::string& table, const std::string& column) {
  static const std::map<std::pair<std::string, std::string>, const FieldSpec*> fields = [] {
    std::map<std::pair<std::string, std::string>, const FieldSpec*> all;
    const auto add = [&all](const FieldSpec& field, const std::string& desc, const std::string& actv) {
      if (!field.column.empty()) all.try_emplace({field.mode == In::kActv ? actv : desc, field.column}, &field);
    };
    for (const SheetSpec* sheet : AllSheets())
      for (const FieldSpec& field : sheet->fields) add(field, sheet->ed_table(), sheet->ea_table());
    for (const FieldSpec& field : StructureFields()) add(field, "PD_PLATFORM_DESC", "PA_PLATFORM_ACTV");
    return all;
  }();
  const auto found = fields.find({table, column});
  return found == fields.end() ? nullptr : found->second;
}

struct OtherColumn {
  const char *column, *name;
};

constexpr std::array<OtherColumn, 23> kOtherColumns = {{
    {"EA_STATUS", "Status"},
    {"status", "Status"},
    {"EA_COMNT_TXT", "Comments"},
    {"COMNT_TXT", "Comments"},
    {"EA_QC_DT", "Date of Last QC"},
    {"ED_QC_DT", "Date of Last QC"},
    {"PA_QC_DT", "Date of Last QC"},
    {"PD_QC_DT", "Date of Last QC"},
    {"ED_MERLU_EQUIP_ID", "Equipment ID"},
    {"CMPLX_ID_NUM", "RIMA Complex ID"},
    {"STRUCT_NUM", "RIMA Structure ID"},
    {"RIMA_CO_NUM", "RIMA Company No"},
    {"CO_NAME", "Company Name"},
    {"ADDR1", "Address 1"},
    {"ADDR2", "Address 2"},
    {"City", "City"},
    {"State", "State"},
    {"Zip", "Zip Code"},
    {"Contact", "Contact Name"},
    {"Phone", "Phone"},
    {"Fax", "Fax"},
    {"sys_yr", "Inventory Year"},
    {"SYS_MAX_MO", "Last Month"},
}};

std::string FieldName(const std::string& table, const std::string& column) {
  if (const FieldSpec* field = FieldAt(table, column)) {
    if (!field->tag.empty()) return TrimRight(field->tag);
    std::string caption = field->caption;
    while (!caption.empty() && (caption.back() == ':' || caption.back() == ' ')) caption.pop_back();
    if (!caption.empty()) return caption;
  }
  for (const OtherColumn& other : kOtherColumns)
    if (column == other.column) return other.name;
  return column;
}

std::string ShownValue(const std::string& table, const std::string& column, const StoredValue& value) {
  const std::string text = TextOf(value);
  const FieldSpec* field = FieldAt(table, column);
  if (field == nullptr || value.kind == StoredValue::Kind::kNull) return text;
  switch (field->stored) {
    case Stored::kYesNo: return ToNumber(ToValue(value)) != 0 ? "Yes" : "No";
    case Stored::kDestination: return DestinationItem(text).empty() ? text : DestinationItem(text);
    case Stored::kCode:
      for (const Item& item : field->items)
        if (item.code == text) return item.text;
      return text;
    default: return text;
  }
}

// ---- rows of a step as values ----

class Lister {
 public:
  Lister(Session& s, std::int64_t step) : s_(s), finder_(s, step) {}

  void Add(const KeptRow& row) {
    const RecordedTable* table = TableNamed(s_.db, row.table);
    if (table == nullptr || table->IsAttached()) return;
    if (table->name == "QC") return AddFinding(*table, row);
    const std::string place = finder_.PlaceOf(row.table, row.rowid);
    if (row.kind == KeptRow::Kind::kChanged) {
      for (const KeptValue& value : row.values) Add(*table, place, value.column, value.before, value.after);
      return;
    }
    const std::vector<StoredValue> values = RowValues(row.row);
    const bool added = row.kind == KeptRow::Kind::kAdded;
    for (std::size_t column = 0; column < values.size(); ++column)
      if (values[column].kind != StoredValue::Kind::kNull)
        Add(*table, place, column, added ? StoredValue() : values[column], added ? values[column] : StoredValue());
  }

  std::vector<ShownChange> changes;

 private:
  void Add(const RecordedTable& table, const std::string& place, std::size_t column, const StoredValue& before,
           const StoredValue& after) {
    if (column >= table.columns.size() || !IsShownColumn(table.name, table.columns[column])) return;
    const std::string& name = table.columns[column];
    changes.push_back({place, FieldName(table.name, name), ShownValue(table.name, name, before),
                       ShownValue(table.name, name, after)});
  }

  // A finding that came or went by its text, one that was explained by its comment.
  void AddFinding(const RecordedTable& table, const KeptRow& row) {
    ShownChange change{finder_.PlaceOf(row.table, row.rowid), finder_.FieldOf(row.rowid), "", ""};
    const auto column = [&table](const char* name) {
      return static_cast<std::size_t>(std::find(table.columns.begin(), table.columns.end(), name) -
                                      table.columns.begin());
    };
    if (row.kind == KeptRow::Kind::kChanged) {
      for (const KeptValue& value : row.values)
        if (value.column == column("Comments") || (value.column == column("Desc") && change.after.empty())) {
          change.before = TextOf(value.before);
          change.after = TextOf(value.after);
        }
    } else {
      const std::vector<StoredValue> values = RowValues(row.row);
      const std::string text = values.size() > column("Desc") ? TextOf(values[column("Desc")]) : "";
      (row.kind == KeptRow::Kind::kAdded ? change.after : change.before) = text;
    }
    changes.push_back(std::move(change));
  }

  Session& s_;
  RowFinder finder_;
};

}  // namespace

// What steps say of whole rows; the first word counts, and the step itself speaks first.
void RowFinder::Learn(std::int64_t step) {
  for (const std::string& part : PartsOf(s_.companion, step))
    for (const KeptRow& row : UnpackChanges(part)) {
      const RecordedTable* table = TableNamed(s_.db, row.table);
      if (row.row.empty() || table == nullptr) continue;
      const std::vector<StoredValue> values = RowValues(row.row);
      Named named;
      for (std::size_t i = 0; i < values.size() && i < table->columns.size(); ++i)
        named[table->columns[i]] = TextOf(values[i]);
      known_.try_emplace({row.table, row.rowid}, std::move(named));
    }
}

const RowFinder::Named* RowFinder::Find(const std::string& table, std::int64_t rowid) {
  if (known_.empty()) Learn(step_);
  const auto known = known_.find({table, rowid});
  if (known != known_.end()) return known->second ? &*known->second : nullptr;
  const Rows rows = s_.db.Query("SELECT * FROM main.[" + table + "] WHERE rowid=?", {rowid});
  if (!rows.rows.empty()) {
    Named named;
    for (std::size_t i = 0; i < rows.columns.size(); ++i) named[rows.columns[i]] = NullToEmpty(rows.rows.front()[i]);
    return &*known_.try_emplace({table, rowid}, std::move(named)).first->second;
  }
  if (!std::exchange(learned_, true)) {
    std::vector<HistoryStep> steps = Steps(s_.companion);
    std::reverse(steps.begin(), steps.end());
    for (const HistoryStep& newer : steps)
      if (newer.id > step_) Learn(newer.id);
    return Find(table, rowid);
  }
  known_.try_emplace({table, rowid}, std::nullopt);
  return nullptr;
}

std::string RowFinder::Structure(std::int64_t pd_id) {
  const Named* row = Find("PD_PLATFORM_DESC", pd_id);
  return row == nullptr ? "" : TextAt(*row, "Area") + ", " + TextAt(*row, "Block") + ", " + TextAt(*row, "Name");
}

std::string RowFinder::PlaceOfEquipment(int month, int year, std::int64_t ed_id) {
  const Named* row = Find("ED_EQUIP_DESC", ed_id);
  if (row == nullptr) return JoinPlace(month, year, "", "");
  const std::string name = TreeTypeName(TextAt(*row, "ED_EQUIP_TYP")) + ": " + Trim(TextAt(*row, "ED_MERLU_EQUIP_ID"));
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
                   complex == "NA" ? "" : StructurePart(db, complex, structure),
                   type == "NA" || type.empty() ? "" : TreeTypeName(type) + ": " + Trim(id));
}

std::string RowFinder::FieldOf(std::int64_t qc_row) {
  const Named* row = Find("QC", qc_row);
  return row == nullptr ? "" : TrimRight(TextAt(*row, "FieldID"));
}

std::string RowFinder::PlaceOf(const std::string& table, std::int64_t rowid) {
  const auto [known, fresh] = places_.try_emplace(table + "\n" + std::to_string(rowid));
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
  if (place.empty()) place = "Operator: " + Trim(s_.current.UserID);
  return known->second = place;
}

std::vector<ShownChange> ValuesOfStep(Session& s, std::int64_t step) {
  Lister lister(s, step);
  for (const std::string& part : PartsOf(s.companion, step))
    for (const KeptRow& row : UnpackChanges(part)) lister.Add(row);
  return std::move(lister.changes);
}

bool StepTouches(Session& s, std::int64_t step, const QCLocation& record, Mode mode) {
  const bool actv = mode == Mode::kActv;
  const auto belongs = [&](const KeptRow& row) {
    const bool desc_row = row.table == "ED_EQUIP_DESC" || IsTypeTable(row.table, "ED_");
    const bool month_row = row.table == "EA_EQUIP_ACTV" || IsTypeTable(row.table, "EA_");
    if (record.Is(level::kEquipment))
      return actv ? month_row && row.rowid == s.EA_ID_AK : desc_row && row.rowid == s.ED_ID_AK;
    if (record.Is(level::kStructure))
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
