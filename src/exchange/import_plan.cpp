#include "exchange/import_plan.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <unordered_map>

#include "base/fault.h"
#include "base/text.h"
#include "exchange/import_differences.h"
#include "session/limits.h"
#include "session/types.h"

namespace merlu {
namespace {

constexpr int kMonths = 12;
using MonthCounts = std::array<int, kMonths + 1>;

struct FileEquipment {
  std::int64_t structure = 0;
  std::string type, id;
  int description_rows = 0;
  std::string stray;  // a table of another type that holds a row
  MonthCounts months{};
  std::string wrong_month;  // what is wrong with its months, in words
};

// What the file holds of everything, in one pass over each table.
struct FileContent {
  std::unordered_map<std::int64_t, MonthCounts> structure_months;
  std::unordered_map<std::int64_t, FileEquipment> equipment;
  std::unordered_map<std::int64_t, std::vector<std::int64_t>> of_structure;  // keys of equipment, in order
};

struct SameIds {
  bool operator()(const std::string& a, const std::string& b) const { return CompareIds(a, b) < 0; }
};

std::string MonthInWords(int month) {
  return "month " + std::to_string(month);
}

void ReadDescriptions(Database& file, FileContent& content) {
  file.ForEach("SELECT PD_ID_AK,PA_MO FROM PA_PLATFORM_ACTV", {}, [&](const RowView& row) {
    ++content.structure_months[row.Integer(0)].at(static_cast<std::size_t>(row.Integer(1)));
  });
  file.ForEach("SELECT ED_ID_AK,PD_ID_AK,ED_EQUIP_TYP,ED_MERLU_EQUIP_ID FROM ED_EQUIP_DESC ORDER BY rowid", {},
               [&](const RowView& row) {
                 FileEquipment& equipment = content.equipment[row.Integer(0)];
                 equipment.structure = row.Integer(1);
                 equipment.type = row.Text(2);
                 equipment.id = row.Text(3);
                 content.of_structure[equipment.structure].push_back(row.Integer(0));
               });
  for (const EquipmentType& type : EquipmentTypes())
    file.ForEach("SELECT ED_ID_AK FROM ED_" + std::string(type.code), {}, [&](const RowView& row) {
      const auto found = content.equipment.find(row.Integer(0));
      if (found == content.equipment.end()) return;
      if (found->second.type == type.code)
        ++found->second.description_rows;
      else
        found->second.stray = "ED_" + std::string(type.code);
    });
}

// A month of equipment that must have its row in its type's table.
struct OpenMonth {
  std::int64_t key;
  FileEquipment* equipment;
  int month;
  bool has_row = false;
};

void ReadMonths(Database& file, FileContent& content) {
  std::vector<OpenMonth> months;  // in the order of their keys
  file.ForEach("SELECT EA_ID_AK,ED_ID_AK,EA_MO,EA_EQUIP_TYP FROM EA_EQUIP_ACTV ORDER BY EA_ID_AK", {},
               [&](const RowView& row) {
                 const auto found = content.equipment.find(row.Integer(1));
                 if (found == content.equipment.end()) return;
                 FileEquipment& equipment = found->second;
                 const int month = static_cast<int>(row.Integer(2));
                 ++equipment.months.at(static_cast<std::size_t>(month));
                 if (row.Text(3) != equipment.type)
                   equipment.wrong_month = "is of another type in " + MonthInWords(month);
                 else if (FindType(equipment.type)->has_activity)
                   months.push_back({row.Integer(0), &equipment, month});
               });
  for (const EquipmentType& type : EquipmentTypes()) {
    if (!type.has_activity) continue;
    auto at = months.begin();
    file.ForEach("SELECT EA_ID_AK FROM EA_" + std::string(type.code) + " ORDER BY EA_ID_AK", {},
                 [&](const RowView& row) {
                   const std::int64_t key = row.Integer(0);
                   while (at != months.end() && at->key < key) ++at;
                   if (at != months.end() && at->key == key && at->equipment->type == type.code) at->has_row = true;
                 });
  }
  for (const OpenMonth& month : months)
    if (!month.has_row && month.equipment->wrong_month.empty())
      month.equipment->wrong_month =
          "lacks its row of " + MonthInWords(month.month) + " in EA_" + month.equipment->type;
}

// What makes a piece of equipment break an inventory; empty for a sound one.
std::string Complaint(const FileEquipment& equipment, const MonthCounts& structure) {
  if (equipment.description_rows == 0) return "lacks its row in ED_" + equipment.type;
  if (!equipment.stray.empty()) return "has a row in " + equipment.stray + ", which is not its type's table";
  if (!equipment.wrong_month.empty()) return equipment.wrong_month;
  for (int month = 1; month <= kMonths; ++month) {
    const auto at = static_cast<std::size_t>(month);
    if (equipment.months[at] > 1) return "has " + MonthInWords(month) + " twice";
    if (equipment.months[at] > 0 && structure[at] == 0) return "has " + MonthInWords(month) + ", its structure has not";
  }
  return "";
}

void JudgeStructure(const FileContent& content, std::int64_t key, PlannedStructure& planned) {
  const auto months = content.structure_months.find(key);
  const MonthCounts counts = months == content.structure_months.end() ? MonthCounts{} : months->second;
  for (int month = 1; month <= kMonths; ++month)
    if (counts[static_cast<std::size_t>(month)] > 1) planned.why = "It has " + MonthInWords(month) + " twice.";
  std::set<std::string, SameIds> names;
  const auto pieces = content.of_structure.find(key);
  if (pieces == content.of_structure.end()) return;
  for (const std::int64_t piece : pieces->second) {
    const FileEquipment& equipment = content.equipment.at(piece);
    const std::string name = TreeTypeName(equipment.type) + ": " + equipment.id;
    std::string complaint = Complaint(equipment, counts);
    if (!names.insert(name).second) complaint = "is there twice";
    if (!complaint.empty() && planned.why.empty()) planned.why = name + " " + complaint + ".";
    const auto held = std::count_if(equipment.months.begin(), equipment.months.end(), [](int n) { return n > 0; });
    planned.equipment.push_back({equipment.type, equipment.id, static_cast<int>(held)});
  }
}

// The structures of a file by their names.
class Named {
 public:
  explicit Named(Database& db) {
    db.ForEach(
        "SELECT PD_ID_AK,CMPLX_ID_NUM,STRUCT_NUM FROM PD_PLATFORM_DESC WHERE CMPLX_ID_NUM IS NOT NULL AND "
        "STRUCT_NUM IS NOT NULL ORDER BY PD_ID_AK",
        {}, [&](const RowView& row) {
          const StructureName name{std::string(row.Text(1)), std::string(row.Text(2))};
          ++keys_.try_emplace(name, Found{row.Integer(0), 0}).first->second.count;
        });
  }

  struct Found {
    std::int64_t key = 0;  // the lowest
    int count = 0;
  };
  Found Find(const StructureName& name) const {
    const auto found = keys_.find(name);
    return found == keys_.end() ? Found{} : found->second;
  }

 private:
  struct Before {
    bool operator()(const StructureName& a, const StructureName& b) const {
      const int complex = CompareIds(a.complex, b.complex);
      return complex != 0 ? complex < 0 : CompareIds(a.structure, b.structure) < 0;
    }
  };
  std::map<StructureName, Found, Before> keys_;
};

std::string InWords(const StructureName& name) {
  return name.complex + "/" + name.structure;
}

struct Sides {
  Database& working;
  Database& file;
  Named here, there;
};

void PlanOne(const Sides& sides, const FileContent& content, PlannedStructure& planned) {
  const Named::Found there = sides.there.Find(planned.name);
  if (there.count == 0)
    throw Fault(fault_number::kNoSuchItem, "MERLU import",
                "The structure " + InWords(planned.name) + " could not be read from the file.");
  if (there.count > 1) planned.why = "The file holds it twice.";
  JudgeStructure(content, there.key, planned);
  if (!planned.why.empty()) planned.action = ImportAction::kNotSound;
  const Named::Found here = sides.here.Find(planned.name);
  if (here.count == 0) return;
  planned.action = ImportAction::kExists;
  planned.differences = FindDifferences(sides.working, here.key, sides.file, there.key);
}

// The inventory takes over the months that it lacks, the structures get those that they lack, also before their first.
void PlanMonths(const FileContent& content, const Named& there, ImportPlan& plan) {
  plan.last_month = plan.last_month_here;
  std::vector<MonthCounts> months;
  for (const PlannedStructure& planned : plan.structures) {
    const auto found = content.structure_months.find(there.Find(planned.name).key);
    months.push_back(found == content.structure_months.end() ? MonthCounts{} : found->second);
    for (int month = kMonths; month > plan.last_month; --month)
      if (months.back()[static_cast<std::size_t>(month)] > 0) plan.last_month = month;
  }
  for (std::size_t i = 0; i < plan.structures.size(); ++i) {
    for (int month = 1; month <= plan.last_month; ++month) {
      if (month > plan.last_month_here) plan.structures[i].months_here.push_back(month);
      if (months[i][static_cast<std::size_t>(month)] == 0) plan.structures[i].months_there.push_back(month);
    }
  }
}

// What there would be too much of with all of them; empty when there is room.
std::string NoRoom(Database& working, const ImportPlan& plan) {
  InventorySize size = SizeOf(working, plan.last_month);
  for (const PlannedStructure& planned : plan.structures) {
    ++size.structures;
    for (const PlannedEquipment& equipment : planned.equipment) {
      ++size.equipment;
      if (FindType(equipment.type)->has_activity) ++size.equipment_with_months;
    }
  }
  return WhyTooLarge(size);
}

// One structure that cannot come in keeps all out.
void Refuse(Database& working, ImportPlan& plan) {
  const auto has = [&](ImportAction action) {
    return std::find_if(plan.structures.begin(), plan.structures.end(),
                        [action](const PlannedStructure& planned) { return planned.action == action; });
  };
  if (plan.year_here != plan.year_there) {
    plan.refusal = "Inventory Year of Import File (" + plan.year_there + ") does not match your database (" +
                   plan.year_here + ").";
    for (PlannedStructure& planned : plan.structures) planned.action = ImportAction::kOtherYear;
  } else if (has(ImportAction::kExists) != plan.structures.end()) {
    plan.refusal = "RIMA Structure ID already exists in database - import cancelled.";
  } else if (const auto bad = has(ImportAction::kNotSound); bad != plan.structures.end()) {
    plan.refusal =
        "The structure " + InWords(bad->name) + " cannot be imported. " + bad->why + " Nothing was imported.";
  } else if (const std::string why = NoRoom(working, plan); !why.empty()) {
    plan.refusal = why + " Nothing was imported.";
    for (PlannedStructure& planned : plan.structures) planned.action = ImportAction::kNotSound, planned.why = why;
  }
  plan.adds = plan.refusal.empty();
  if (plan.adds) return;
  for (PlannedStructure& planned : plan.structures) {
    if (planned.action == ImportAction::kAdd) planned.action = ImportAction::kHeldBack;
    planned.months_here.clear();
    planned.months_there.clear();
  }
}

}  // namespace

ImportPlan PlanImport(Database& working, Database& file, const std::vector<StructureName>& chosen) {
  constexpr const char* kYear = "SELECT sys_yr FROM SYS_CONFIG ORDER BY rowid LIMIT 1";
  ImportPlan plan;
  plan.year_here = NullToEmpty(working.Single(kYear));
  plan.year_there = NullToEmpty(file.Single(kYear));
  plan.last_month_here = static_cast<int>(ToInteger(working.Single("SELECT SYS_MAX_MO FROM SYS_CONFIG LIMIT 1")));
  FileContent content;
  ReadDescriptions(file, content);
  ReadMonths(file, content);
  const Sides sides{working, file, Named(working), Named(file)};
  for (const StructureName& name : chosen) {
    plan.structures.push_back({name});
    PlanOne(sides, content, plan.structures.back());
  }
  PlanMonths(content, sides.there, plan);
  Refuse(working, plan);
  return plan;
}

std::string ActionText(ImportAction action) {
  switch (action) {
    case ImportAction::kAdd: return "add";
    case ImportAction::kOtherYear: return "refused: another year";
    case ImportAction::kExists: return "refused: exists";
    case ImportAction::kNotSound: return "refused: not sound";
    case ImportAction::kHeldBack: return "not added: another one exists";
  }
  return "";
}

std::string MonthsText(const std::vector<int>& months) {
  std::string text;
  for (const int month : months) text += (text.empty() ? "" : ", ") + std::to_string(month);
  return text;
}

}  // namespace merlu
