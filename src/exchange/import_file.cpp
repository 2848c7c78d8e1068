#include "exchange/import_file.h"

#include <cmath>
#include <limits>

#include "base/fault.h"
#include "base/text.h"
#include "session/types.h"

namespace merlu {
namespace {

constexpr const char* kSource = "MERLU import";
constexpr std::int64_t kHighestKey = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void Refuse(const std::string& why) {
  throw Fault(fault_number::kNotADatabase, kSource, why);
}

// ---- the layout ----

using Columns = std::vector<ImportColumn>;

Columns ColumnsOf(Database& db, const std::string& table) {
  Columns columns;
  db.ForEach("SELECT name,type,hidden FROM pragma_table_xinfo(?)", {table}, [&](const RowView& row) {
    if (row.Integer(2) != 0) Refuse("The table " + table + " has a column that is computed.");
    columns.push_back({std::string(row.Text(0)), std::string(row.Text(1))});
  });
  return columns;
}

const ImportColumn* Find(const Columns& columns, const std::string& name) {
  for (const ImportColumn& column : columns)
    if (EqualsIgnoringCase(column.name, name)) return &column;
  return nullptr;
}

// The file's columns in its own order, each as the layout declares it.
Columns CheckColumns(Database& file, const std::string& table, const Columns& wanted) {
  if (!file.HasTable(table)) Refuse("The file lacks the table " + table + ".");
  Columns found = ColumnsOf(file, table);
  bool same = wanted.size() == found.size();
  for (ImportColumn& column : found) {
    const ImportColumn* declared = Find(wanted, column.name);
    same = same && declared != nullptr;
    if (declared != nullptr) column = *declared;
  }
  if (!same) Refuse("The table " + table + " has other columns than this program's.");
  return found;
}

// Refuses anything that could run when the file is read. Views are never read: tables are looked up as tables.
void CheckSchema(Database& file) {
  file.ForEach("SELECT name FROM sqlite_schema WHERE type='trigger'", {},
               [](const RowView& row) { Refuse("The file holds the trigger " + std::string(row.Text(0)) + "."); });
  file.ForEach("SELECT name FROM pragma_table_list WHERE schema='main' AND type IN ('virtual','shadow')", {},
               [](const RowView& row) { Refuse("The table " + std::string(row.Text(0)) + " is no ordinary table."); });
  if (!file.HasTable("SYS_CONFIG")) Refuse("The file lacks the table SYS_CONFIG.");
}

// ---- the values ----

bool IsYesNo(const RowView& row, int column) {
  return row.Integer(column) == 0 || row.Integer(column) == 1;
}

bool Fits(const std::string& type, const RowView& row, int column) {
  using Type = RowView::ColumnType;
  const Type stored = row.TypeOf(column);
  if (stored == Type::kNull) return true;
  if (type == "DOUBLE") return stored == Type::kInteger || (stored == Type::kReal && std::isfinite(row.Number(column)));
  if (type == "INTEGER") return stored == Type::kInteger;
  if (type == "BOOLEAN") return stored == Type::kInteger && IsYesNo(row, column);
  // texts, and dates, which are kept as texts
  return stored == Type::kText && IsUtf8(row.Text(column));
}

bool IsBetween(const RowView& row, int column, std::int64_t low, std::int64_t high) {
  return row.TypeOf(column) == RowView::ColumnType::kInteger && row.Integer(column) >= low &&
         row.Integer(column) <= high;
}

// What the value of a column that the program counts on must be, beyond its type.
bool IsSound(const std::string& column, const RowView& row, int at) {
  if (column == "PD_ID_AK" || column == "SA_ID_AK" || column == "ED_ID_AK" || column == "EA_ID_AK")
    return IsBetween(row, at, 1, kHighestKey);
  if (column == "PA_MO" || column == "EA_MO") return IsBetween(row, at, 1, 12);
  if (column == "ED_EQUIP_TYP") return FindType(row.Text(at)) != nullptr;
  return true;
}

void CheckValues(Database& file, const std::string& table, const Columns& columns) {
  file.ForEach("SELECT * FROM \"" + table + "\"", {}, [&](const RowView& row) {
    for (int c = 0; c < row.size(); ++c) {
      const ImportColumn& column = columns[static_cast<std::size_t>(c)];
      if (!Fits(column.type, row, c) || !IsSound(column.name, row, c))
        Refuse("The table " + table + " holds a value in " + column.name + " that does not belong there.");
    }
  });
}

// No key occurs twice, also in a file whose tables do not declare theirs.
void CheckKeys(Database& file, const std::string& table) {
  const std::string key = table.starts_with("PD_")   ? "PD_ID_AK"
                          : table.starts_with("PA_") ? "SA_ID_AK"
                          : table.starts_with("ED_") ? "ED_ID_AK"
                                                     : "EA_ID_AK";
  file.ForEach("SELECT 1 FROM \"" + table + "\" GROUP BY " + key + " HAVING COUNT(*)>1 LIMIT 1", {},
               [&](const RowView&) { Refuse("The table " + table + " holds a key twice."); });
}

}  // namespace

const std::vector<std::string>& ImportTables() {
  static const std::vector<std::string> tables = [] {
    std::vector<std::string> list = {"PD_PLATFORM_DESC", "PA_PLATFORM_ACTV", "ED_EQUIP_DESC", "EA_EQUIP_ACTV"};
    const std::vector<const EquipmentType*> types = TypesBy(&EquipmentType::in_import);
    for (const EquipmentType* type : types) list.push_back("ED_" + std::string(type->code));
    for (const EquipmentType* type : types)
      if (type->has_activity) list.push_back("EA_" + std::string(type->code));
    return list;
  }();
  return tables;
}

ImportLayout ReadImportLayout(Database& working) {
  ImportLayout layout;
  for (const std::string& table : ImportTables()) layout.tables.push_back(ColumnsOf(working, table));
  return layout;
}

void CheckImportFile(Database& file, const ImportLayout& layout) {
  const std::string state = NullToEmpty(file.Single("PRAGMA integrity_check(1)"));
  if (state != "ok") throw Fault(fault_number::kDamaged, kSource, "The file is damaged (" + state + ").");
  CheckSchema(file);
  for (std::size_t i = 0; i < ImportTables().size(); ++i) {
    const std::string& table = ImportTables()[i];
    const Columns columns = CheckColumns(file, table, layout.tables[i]);
    CheckKeys(file, table);
    CheckValues(file, table, columns);
  }
}

}  // namespace merlu
