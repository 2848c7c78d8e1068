#include "exchange/import_differences.h"

#include <map>

#include "base/text.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "sheets/wording.h"

namespace merlu {
namespace {

// Rows of one table that belong to the structure, by their place in it.
struct Compared {
  std::string table;
  std::string month, equipment;  // SQL of the two parts of the place
  std::string from;   // SQL after FROM, in which the table is called t, with the structure's key as parameter
  std::string type;   // of equipment, else empty
  bool first = true;  // of its record's tables: reports when the record is missing
};

// A record within its structure: its month, 0 for a description, and its equipment in words.
using RowPlace = std::pair<int, std::string>;
struct Before {
  bool operator()(const RowPlace& a, const RowPlace& b) const {
    return a.first != b.first ? a.first < b.first : CompareIds(a.second, b.second) < 0;
  }
};
struct PlacedRow {
  std::vector<std::string> columns;
  Values values;
};
using PlacedRows = std::map<RowPlace, PlacedRow, Before>;

constexpr const char* kRowMissing = "(missing)";

std::vector<Compared> ComparedTables() {
  const std::string of_structure = " WHERE t.PD_ID_AK=?", of_equipment = " WHERE e.PD_ID_AK=?";
  std::vector<Compared> tables = {
      {"PD_PLATFORM_DESC", "0", "''", "PD_PLATFORM_DESC t" + of_structure, ""},
      {"PA_PLATFORM_ACTV", "t.PA_MO", "''", "PA_PLATFORM_ACTV t" + of_structure, ""},
  };
  for (const EquipmentType& type : EquipmentTypes()) {
    const std::string code(type.code);
    const std::string name = "'" + std::string(type.tree_name) + ": '||e.ED_MERLU_EQUIP_ID";
    const std::string is_type = of_equipment + " AND e.ED_EQUIP_TYP='" + code + "'";
    tables.push_back(
        {"ED_EQUIP_DESC", "0", name, "ED_EQUIP_DESC t JOIN ED_EQUIP_DESC e USING (ED_ID_AK)" + is_type, code});
    tables.push_back(
        {"ED_" + code, "0", name, "ED_" + code + " t JOIN ED_EQUIP_DESC e USING (ED_ID_AK)" + is_type, code, false});
    tables.push_back({"EA_EQUIP_ACTV", "a.EA_MO", name,
                      "EA_EQUIP_ACTV t JOIN EA_EQUIP_ACTV a USING (EA_ID_AK) JOIN ED_EQUIP_DESC e ON "
                      "e.ED_ID_AK=a.ED_ID_AK" +
                          is_type,
                      code});
    if (type.has_activity)
      tables.push_back({"EA_" + code, "a.EA_MO", name,
                        "EA_" + code +
                            " t JOIN EA_EQUIP_ACTV a USING (EA_ID_AK) JOIN ED_EQUIP_DESC e ON "
                            "e.ED_ID_AK=a.ED_ID_AK" +
                            is_type,
                        code, false});
  }
  return tables;
}

PlacedRows Read(Database& db, const Compared& table, std::int64_t key) {
  const Rows rows =
      db.Query("SELECT " + table.month + " AS place," + table.equipment + " AS place,t.* FROM " + table.from, {key});
  PlacedRows placed;
  for (const Values& values : rows.rows)
    placed[{static_cast<int>(ToInteger(values[0])), NullToEmpty(values[1])}] = {rows.columns, values};
  return placed;
}

// Keys, and columns that an import takes from the target inventory.
bool IsCompared(const std::string& column) {
  const std::string name = Upper(column);
  return !name.ends_with("_ID_AK") && name != "RIMA_CO_NUM" && name != "PLACE";
}

// As the sheet calls it, or as the table does.
std::string FieldName(const Compared& table, const std::string& column) {
  const SheetSpec* sheet = table.type.empty() ? nullptr : FindSheet(table.type);
  if (!table.type.empty() && sheet == nullptr) return column;
  const std::vector<FieldSpec>& fields = sheet == nullptr ? StructureSheet().fields : sheet->fields;
  const std::string months = sheet == nullptr ? "PA_PLATFORM_ACTV" : "EA_" + table.type;
  const std::string description = sheet == nullptr ? "PD_PLATFORM_DESC" : "ED_" + table.type;
  for (const FieldSpec& field : fields)
    if (EqualsIgnoringCase(field.column, column) && table.table == (field.mode == In::kActv ? months : description))
      return field.tag.empty() ? BareCaption(field.caption) : field.tag;
  return column;
}

const Value* ValueOf(const PlacedRow& row, const std::string& column) {
  for (std::size_t i = 0; i < row.columns.size(); ++i)
    if (EqualsIgnoringCase(row.columns[i], column)) return &row.values[i];
  return nullptr;
}

void CompareRows(const Compared& table, const std::string& place, const PlacedRow& here, const PlacedRow& there,
                 std::vector<ImportDifference>& differences) {
  for (std::size_t i = 0; i < here.columns.size(); ++i) {
    const std::string& column = here.columns[i];
    const Value* theirs = IsCompared(column) ? ValueOf(there, column) : nullptr;
    if (theirs == nullptr) continue;
    const std::string one = NullToEmpty(here.values[i]), other = NullToEmpty(*theirs);
    if (one != other) differences.push_back({place, FieldName(table, column), one, other});
  }
}

}  // namespace

std::vector<ImportDifference> FindDifferences(Database& working, std::int64_t here, Database& file,
                                              std::int64_t there) {
  std::vector<ImportDifference> differences;
  const auto year = static_cast<int>(ToInteger(working.Single("SELECT sys_yr FROM SYS_CONFIG LIMIT 1")));
  std::string structure;
  working.ForEach("SELECT Area,Block,Name FROM PD_PLATFORM_DESC WHERE PD_ID_AK=?", {here},
                  [&](const RowView& row) { structure = StructureText(row.Text(0), row.Text(1), row.Text(2)); });
  const auto words = [&](const RowPlace& place) { return JoinPlace(place.first, year, structure, place.second); };
  for (const Compared& table : ComparedTables()) {
    const PlacedRows ours = Read(working, table, here), theirs = Read(file, table, there);
    for (const auto& [place, row] : ours) {
      const auto found = theirs.find(place);
      if (found != theirs.end())
        CompareRows(table, words(place), row, found->second, differences);
      else if (table.first)
        differences.push_back({words(place), "", "", kRowMissing});
    }
    for (const auto& [place, row] : theirs)
      if (table.first && !ours.contains(place)) differences.push_back({words(place), "", kRowMissing, ""});
  }
  return differences;
}

}  // namespace merlu
