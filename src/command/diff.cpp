#include "command/diff.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>
#include <unordered_map>

#include "base/text.h"
#include "session/place.h"
#include "session/types.h"

namespace merlu {
namespace {

// A family of records. Its query begins with the place: complex, structure, type, ID, year, month and the three texts
// of the structure; then come the columns that distinguish records of one place, then the compared columns.
struct Family {
  std::string table;
  std::string query;
  int detail = 0;     // number of columns after the place that belong to it
  std::string named;  // of a list: what its rows are called
};

constexpr std::size_t kPlaceColumns = 9;

std::string Select(const std::string& place, const std::string& from, const std::string& order) {
  return "SELECT " + place + ",t.* FROM " + from + " ORDER BY " + order;
}

std::vector<Family> Families() {
  const std::string none = "'','','','',0,0,'','',''", names = "p.Area,p.Block,p.Name";
  const std::string structure = "p.CMPLX_ID_NUM,p.STRUCT_NUM,'','',";
  const std::string equipment = "p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_EQUIP_TYP,d.ED_MERLU_EQUIP_ID,";
  const std::string described = " JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK";
  std::vector<Family> families = {
      {"SYS_CONFIG", Select(none, "SYS_CONFIG t", "t.rowid"), 0, "Inventory"},
      {"CO_COMPANY", Select(none, "CO_COMPANY t", "t.rowid"), 0, "Operator"},
      {"listPNE", Select(none + ",t.Mfr,t.Model", "listPNE t", "t.rowid"), 2, "Pump"},
      {"listPRE", Select(none + ",t.ServiceType,t.Mfr,t.Model", "listPRE t", "t.rowid"), 3, "Controller"},
      {"PD_PLATFORM_DESC",
       "SELECT t.CMPLX_ID_NUM,t.STRUCT_NUM,'','',0,0,t.Area,t.Block,t.Name,t.* FROM PD_PLATFORM_DESC t ORDER BY "
       "t.rowid"},
      {"PA_PLATFORM_ACTV", Select(structure + "t.PA_YR,t.PA_MO," + names,
                                  "PA_PLATFORM_ACTV t JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=t.PD_ID_AK", "t.rowid")},
      {"ED_EQUIP_DESC", Select(equipment + "0,0," + names,
                               "ED_EQUIP_DESC t JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=t.ED_ID_AK" + described, "t.rowid")},
      {"EA_EQUIP_ACTV", Select(equipment + "t.EA_YR,t.EA_MO," + names,
                               "EA_EQUIP_ACTV t JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=t.ED_ID_AK" + described, "t.rowid")},
  };
  for (const EquipmentType& type : EquipmentTypes()) {
    const std::string code(type.code);
    families.push_back(
        {"ED_" + code,
         Select(equipment + "0,0," + names,
                "ED_" + code + " t JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=t.ED_ID_AK" + described, "t.rowid")});
    if (!type.has_activity) continue;
    families.push_back({"EA_" + code, Select(equipment + "a.EA_YR,a.EA_MO," + names,
                                             "EA_" + code +
                                                 " t JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK JOIN "
                                                 "ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK" +
                                                 described,
                                             "t.rowid")});
  }
  families.push_back(
      {"QC",
       "SELECT NULLIF(t.CmplxID,'NA'),NULLIF(t.StructID,'NA'),NULLIF(t.EquipType,'NA'),NULLIF(t.EquipID,'NA'),"
       "t.[Year],t.[Month],p.Area,p.Block,p.Name,t.FieldID,t.* FROM QC t LEFT JOIN PD_PLATFORM_DESC p ON "
       "p.CMPLX_ID_NUM=t.CmplxID AND p.STRUCT_NUM=t.StructID ORDER BY t.rowid",
       1, "Finding"});
  return families;
}

struct Record {
  std::string complex, structure, type, id;
  int year = 0, month = 0;
  std::string text;    // of the structure
  std::string detail;  // distinguishes it from others of its place
  const Values* values = nullptr;

  std::string StructureKey() const { return Lower(Trim(complex)) + "/" + Lower(Trim(structure)); }
  std::string EquipmentKey() const { return StructureKey() + "/" + Lower(type) + "/" + Lower(Trim(id)); }
  std::string Month() const { return "@" + std::to_string(year) + "/" + std::to_string(month); }
  std::string Key() const { return EquipmentKey() + Month() + "\n" + Lower(detail); }
};

Record Read(const Family& family, const Values& values) {
  Record record;
  record.values = &values;
  std::array<std::string*, 4> ids = {&record.complex, &record.structure, &record.type, &record.id};
  for (std::size_t i = 0; i < ids.size(); ++i) *ids[i] = NullToEmpty(values[i]);
  record.year = static_cast<int>(ToInteger(values[4]));
  record.month = static_cast<int>(ToInteger(values[5]));
  if (!record.complex.empty() || !record.structure.empty())
    record.text = StructureText(NullToEmpty(values[6]), NullToEmpty(values[7]), NullToEmpty(values[8]));
  for (int i = 0; i < family.detail; ++i)
    record.detail += (i == 0 ? "" : " ") + Trim(NullToEmpty(values[kPlaceColumns + static_cast<std::size_t>(i)]));
  return record;
}

bool IsKey(const std::string& column) {
  return column.ends_with("_ID_AK");
}

bool IsNumber(const Value& value) {
  return std::holds_alternative<double>(value) || std::holds_alternative<std::int64_t>(value) ||
         std::holds_alternative<bool>(value);
}

bool AreEqual(const Value& a, const Value& b) {
  return IsNumber(a) && IsNumber(b) ? ToNumber(a) == ToNumber(b) : a == b;
}

class Comparison {
 public:
  Comparison(Database& a, Database& b) : a_(a), b_(b) {}

  std::vector<Difference> Run() {
    for (const Family& family : Families()) Compare(family);
    std::stable_sort(found_.begin(), found_.end(), [](const Found& x, const Found& y) { return x.order < y.order; });
    std::vector<Difference> differences;
    differences.reserve(found_.size());
    for (Found& one : found_) differences.push_back(std::move(one.difference));
    return differences;
  }

 private:
  // Files first, then descriptions, then the months; structures in their order, first those of the first file.
  using Order = std::tuple<bool, int, int, std::size_t, std::string>;
  struct Found {
    Order order;
    Difference difference;
  };

  void Compare(const Family& family) {
    const Rows a = a_.Query(family.query), b = b_.Query(family.query);
    std::unordered_map<std::string, std::vector<Record>> others;
    for (const Values& values : b.rows) {
      Record record = Read(family, values);
      others[record.Key()].push_back(std::move(record));
    }
    std::unordered_map<std::string, std::size_t> met;
    for (const Values& values : a.rows) {
      const Record record = Read(family, values);
      const std::string key = record.Key();
      const auto other = others.find(key);
      const std::size_t number = met[key]++;
      if (other == others.end() || number >= other->second.size())
        AddMissing(family, record, true);
      else
        AddDifferences(family, record, other->second[number], a.columns, b.columns);
    }
    // in the order of their file
    std::unordered_map<std::string, std::size_t> seen;
    for (const Values& values : b.rows) {
      const Record record = Read(family, values);
      const std::string key = record.Key();
      const auto in_a = met.find(key);
      if (seen[key]++ >= (in_a == met.end() ? 0 : in_a->second)) AddMissing(family, record, false);
    }
  }

  void AddDifferences(const Family& family, const Record& a, const Record& b, const std::vector<std::string>& columns,
                      const std::vector<std::string>& other_columns) {
    for (std::size_t i = kPlaceColumns + static_cast<std::size_t>(family.detail); i < columns.size(); ++i) {
      if (IsKey(columns[i])) continue;
      // a file from elsewhere may have its columns in another order
      std::size_t at = i;
      if (at >= other_columns.size() || !EqualsIgnoringCase(other_columns[at], columns[i])) {
        const auto same = [&](const std::string& name) { return EqualsIgnoringCase(name, columns[i]); };
        const auto first = other_columns.begin() + static_cast<std::ptrdiff_t>(kPlaceColumns);
        at = static_cast<std::size_t>(std::find_if(first, other_columns.end(), same) - other_columns.begin());
      }
      const Value other = at < other_columns.size() ? (*b.values)[at] : Value();
      if (AreEqual((*a.values)[i], other)) continue;
      Add(a, {PlaceOf(family, a), family.table, columns[i], (*a.values)[i], other});
    }
  }

  void AddMissing(const Family& family, const Record& record, bool in_a) {
    std::set<std::string>& missing = missing_[in_a ? 0 : 1];
    const std::string structure = record.StructureKey(), equipment = record.EquipmentKey();
    // what holds it is missing too
    for (const std::string& holder : {structure, structure + record.Month(), equipment, equipment + record.Month()})
      if (missing.contains(holder)) return;
    if (family.named.empty())
      missing.insert((record.type.empty() ? structure : equipment) + (record.month > 0 ? record.Month() : ""));
    Add(record, {PlaceOf(family, record), family.table, "", in_a, !in_a});
  }

  void Add(const Record& record, Difference difference) {
    const std::string structure = record.StructureKey();
    const std::size_t place = structures_.emplace(structure, structures_.size()).first->second;
    const bool inside = !record.complex.empty() || !record.structure.empty();
    found_.push_back({{inside, record.year, record.month, place, record.EquipmentKey()}, std::move(difference)});
  }

  static std::string PlaceOf(const Family& family, const Record& record) {
    std::string place = JoinPlace(record.month, record.year, record.text,
                                  record.type.empty() ? "" : EquipmentText(record.type, record.id));
    if (!family.named.empty()) place += (place.empty() ? "" : " · ") + family.named;
    return place + (record.detail.empty() ? "" : ": " + record.detail);
  }

  Database &a_, &b_;
  std::vector<Found> found_;
  std::array<std::set<std::string>, 2> missing_;
  std::unordered_map<std::string, std::size_t> structures_;
};

}  // namespace

std::vector<Difference> CompareInventories(Database& a, Database& b) {
  return Comparison(a, b).Run();
}

}  // namespace merlu
