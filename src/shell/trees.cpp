#include "shell/trees.h"

#include <array>
#include <cstdio>
#include <unordered_map>

#include "base/text.h"
#include "session/equipment_index.h"
#include "session/limits.h"
#include "session/node_keys.h"
#include "session/place.h"
#include "session/types.h"
#include "shell/messages.h"
#include "shell/program_end.h"
#include "shell/sheet_acts.h"
#include "shell/tree_find.h"

namespace merlu {
namespace {

constexpr std::size_t kMostEquipmentMonths = 40000;
constexpr const char* kFarewell = "Sorry, cannot proceed without User Information - TARNE is shutting down now...";

std::vector<std::string> Operators(Session& s) {
  std::vector<std::string> ids;
  s.db.ForEach("SELECT RIMA_CO_NUM FROM CO_COMPANY ORDER BY rowid", {},
               [&](const RowView& row) { ids.emplace_back(row.Text(0)); });
  return ids;
}

void AddOperators(Session& s, const std::vector<std::string>& ids) {
  for (const std::string& id : ids) s.tree.Add("", UserKey(id), "Operator: " + Trim(id));
}

void AddSurveys(Session& s, const std::vector<std::string>& ids) {
  for (const std::string& id : ids)
    for (int month = 1; month <= s.last_month; ++month)
      s.tree.Add(UserKey(id), SurveyKey(id, month, s.year), SurveyText(s.year, month));
}

// Rows whose structure or equipment is missing: they have no place in the tree.
struct Orphans {
  int count = 0;
  std::string first;
};

void Count(Orphans& orphans, const char* what, std::int64_t id) {
  if (orphans.count++ == 0) orphans.first = std::string(what) + " ID " + std::to_string(id) + " not found!";
}

// One box for all of them.
void TellOrphans(Session& s, const Orphans& orphans) {
  if (orphans.count == 1) Tell(s, orphans.first);
  if (orphans.count > 1)
    Tell(s, orphans.first + "\nRows that have no place in the tree: " + std::to_string(orphans.count) + ".");
}

void AddStructureMonths(Session& s, Orphans& orphans) {
  s.structure_month_list.Reset();
  s.db.ForEach(
      "SELECT a.SA_ID_AK,a.PA_MO,a.PA_YR,a.status,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,p.Area,p.Block,p.Name,"
      "p.PD_ID_AK,a.PD_ID_AK FROM PA_PLATFORM_ACTV a LEFT JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK ORDER BY "
      "a.SA_ID_AK",
      {}, [&](const RowView& row) {
        if (row.IsNull(10)) return Count(orphans, "Platform Desc", row.Integer(11));
        const std::string_view user = row.Text(4);
        const int month = static_cast<int>(row.Integer(1)), year = static_cast<int>(row.Integer(2));
        const std::string key = StructureMonthKey(user, month, year, row.Text(5), row.Text(6));
        s.structure_month_list.RequireRoom();
        s.tree.Add(SurveyKey(user, month, year), key, StructureText(row.Text(7), row.Text(8), row.Text(9)));
        s.structure_month_list.Add(key, row.Integer(0));
        s.activity_record.Append(row.Integer(0), key, FirstCharacters(row.Text(3), 1));
      });
}

void AddStructures(Session& s) {
  s.structure_list.Reset();
  s.db.ForEach(
      "SELECT PD_ID_AK,RIMA_CO_NUM,CMPLX_ID_NUM,STRUCT_NUM,Area,Block,Name FROM PD_PLATFORM_DESC ORDER BY "
      "PD_ID_AK",
      {}, [&](const RowView& row) {
        const std::string key = StructureKey(row.Text(1), row.Text(2), row.Text(3));
        s.structure_list.RequireRoom();
        s.tree.Add(UserKey(row.Text(1)), key, StructureText(row.Text(4), row.Text(5), row.Text(6)));
        s.structure_list.Add(key, row.Integer(0));
      });
}

void EndAtTheLimit(Session& s) {
  s.ui.Beep();
  Ask(s, {"An internal array is not large enough for your structures. Please contact Technical Support.",
          "Program shutting down",
          Icon::kStop,
          {Button::kOK},
          0,
          kLimitsInWords});
  EndProgram(s);
}

// The nodes of structure months under which equipment was put, so that their keys are made once.
class MonthNodes {
 public:
  int Require(const Tree& tree, const IndexedStructure& at, int month, int year) {
    std::vector<Node>& nodes = nodes_[&at];
    for (const Node& node : nodes)
      if (node.month == month && node.year == year) return node.index;
    const int index = tree.Require(StructureMonthKey(at.user, month, year, at.complex, at.structure));
    nodes.push_back({month, year, index});
    return index;
  }

 private:
  struct Node {
    int month, year, index;
  };
  std::unordered_map<const IndexedStructure*, std::vector<Node>> nodes_;
};

// What the equipment months of a build share.
struct EquipmentNodes {
  explicit EquipmentNodes(Database& db) : equipment(db) {}
  EquipmentIndex equipment;
  MonthNodes months;
};

// Nodes of one type; false when the limit was met and the program has ended.
bool AddEquipNode(Session& s, std::string_view type, EquipmentNodes& nodes, Orphans& orphans) {
  bool full = false;
  const std::string name = TreeTypeName(type) + ": ";
  s.db.ForEach(
      "SELECT t.EA_ID_AK,a.EA_ID_AK,a.ED_ID_AK,a.EA_MO,a.EA_YR FROM EA_" + std::string(type) +
          " t LEFT JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK ORDER BY t.EA_ID_AK",
      {}, [&](const RowView& row) {
        if (full) return;
        if (row.IsNull(1)) return Count(orphans, "Equip Activity", row.Integer(0));
        const IndexedPiece* piece = row.IsNull(2) ? nullptr : nodes.equipment.Find(row.Integer(2));
        if (piece == nullptr) return Count(orphans, "Equip Desc", row.Integer(2));
        if (piece->structure == nullptr) return Count(orphans, "Platform Desc", piece->structure_key);
        s.EA_ID_AK = row.Integer(1);
        s.ED_ID_AK = row.Integer(2);
        s.PD_ID_AK = piece->structure_key;
        const int parent = nodes.months.Require(s.tree, *piece->structure, static_cast<int>(row.Integer(3)),
                                                static_cast<int>(row.Integer(4)));
        std::string key;
        key.reserve(kEquipmentMonthKeyLength);
        key.append(s.tree.nodes[static_cast<std::size_t>(parent)].key).append(EquipmentSuffix(type, piece->id));
        s.equipment_month_list.Add(key, row.Integer(0));
        s.tree.AddUnder(parent, std::move(key), name + Trim(piece->id));
        full = s.equipment_month_list.size() == kMostEquipmentMonths;
      });
  if (full) EndAtTheLimit(s);
  return !full;
}

void AddDescEquipNode(Session& s, std::string_view type, Orphans& orphans) {
  const std::string name = TreeTypeName(type) + ": ";
  s.db.ForEach(
      "SELECT "
      "t.ED_ID_AK,d.ED_MERLU_EQUIP_ID,d.PD_ID_AK,p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_ID_AK,p.PD_ID_AK "
      "FROM ED_" +
          std::string(type) +
          " t LEFT JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=t.ED_ID_AK "
          "LEFT JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK ORDER BY t.ED_ID_AK",
      {}, [&](const RowView& row) {
        if (row.IsNull(6)) return Count(orphans, "Equip Desc", row.Integer(0));
        if (row.IsNull(7)) return Count(orphans, "Platform Desc", row.Integer(2));
        std::string key = StructureKey(row.Text(3), row.Text(4), row.Text(5));
        s.ED_ID_AK = row.Integer(6);
        s.PD_ID_AK = row.Integer(7);
        const int parent = s.tree.Require(key);
        key += EquipmentSuffix(type, row.Text(1));
        s.equipment_list.Add(key, row.Integer(0));
        s.tree.AddUnder(parent, std::move(key), name + Trim(row.Text(1)));
      });
}

void FinishTree(Session& s) {
  s.tree.Sort();
  if (!s.tree.nodes.empty()) s.tree.nodes.front().expanded = true;
  FilterTree(s);
}

void ClickExisting(Session& s, const std::string& key) {
  const int node = s.tree.Find(key);
  if (node < 0) throw Fault(fault_number::kNoSuchNode, "MERLU tree", "Element not found");
  ClickNode(s, node);
}

// After a change of mode: month and year from the last activity location, the rest from the current one.
void SelectAfterModeChangeToActv(Session& s) {
  QCLocation target = s.current;
  target.Month = s.last_actv.Month;
  target.Year = s.last_actv.Year;
  const bool no_month = target.Month == 0 && target.Year == 0;
  const std::string key = no_month || target.Is(level::kUser) ? "" : KeyOf(target, Mode::kActv);
  if (key.empty())
    SelectRoot(s);
  else
    ClickExisting(s, key);
}

void SelectAfterModeChangeToDesc(Session& s) {
  if (s.current.Is(level::kUser)) return SelectRoot(s);
  if (s.current.Is(level::kStructure) || s.current.Is(level::kEquipment))
    ClickExisting(s, KeyOf(s.current, Mode::kDesc));
}

// The tree of activity without its selection; false when the program has ended.
bool BuildActivityTree(Session& s) {
  s.tree.Clear();
  if (s.At("CO_COMPANY").IsEmpty() && !ShowNewOperator(s, kFarewell)) return false;
  const std::vector<std::string> ids = Operators(s);
  AddOperators(s, ids);
  AddSurveys(s, ids);
  Orphans orphans;
  AddStructureMonths(s, orphans);
  s.equipment_month_list.Reset();
  EquipmentNodes nodes(s.db);
  for (const EquipmentType* type : TypesBy(&EquipmentType::in_tree))
    if (type->has_activity && !AddEquipNode(s, type->code, nodes, orphans)) return false;
  FinishTree(s);
  TellOrphans(s, orphans);
  return true;
}

// The tree of descriptions without its selection; false, after a message, when there was no room for all of it.
bool BuildDescriptionTree(Session& s) {
  s.tree.Clear();
  AddOperators(s, Operators(s));
  Orphans orphans;
  bool whole = true;
  try {
    AddStructures(s);
    s.equipment_list.Reset();
    for (const EquipmentType* type : TypesBy(&EquipmentType::in_tree)) AddDescEquipNode(s, type->code, orphans);
  } catch (const Fault& fault) {
    if (fault.number != fault_number::kSubscript) throw;
    TellFault(s, fault);
    whole = false;
  }
  FinishTree(s);
  TellOrphans(s, orphans);
  return whole;
}

void TellOfTree(Session& s, const Fault& fault) {
  const bool is_full = fault.number == fault_number::kSubscript;
  Ask(s, {fault.description, "Error", Icon::kNone, {Button::kOK}, 0, is_full ? kLimitsInWords : ""});
}

// Selects nothing, so that what shows stays in front.
void Build(Session& s) {
  try {
    if (s.InActv())
      BuildActivityTree(s);
    else
      BuildDescriptionTree(s);
  } catch (const Fault& fault) {
    if (s.InActv()) TellOfTree(s, fault);
  }
}

}  // namespace

void RefreshTree(Session& s) {
  const Busy busy(s);
  try {
    if (!BuildActivityTree(s)) return;
    if (s.mode_changed_to_actv)
      SelectAfterModeChangeToActv(s);
    else
      SelectRoot(s);
    s.mode_changed_to_actv = false;
  } catch (const Fault& fault) {
    TellOfTree(s, fault);
  }
}

void RefreshDescTree(Session& s) {
  const Busy busy(s);
  try {
    const bool whole = BuildDescriptionTree(s);
    if (s.mode_changed_to_desc && whole)
      SelectAfterModeChangeToDesc(s);
    else
      SelectRoot(s);
    s.mode_changed_to_desc = false;
  } catch (const Fault&) {
    // a description tree that cannot be built, or a node that no longer exists, is ignored here
  }
}

void RebuildTree(Session& s) {
  const Busy busy(s);
  std::vector<std::string> expanded;
  for (const TreeNode& node : s.tree.nodes)
    if (node.expanded) expanded.push_back(node.key);
  const std::string selected = s.tree.selected < 0 ? "" : s.tree.nodes[static_cast<std::size_t>(s.tree.selected)].key;
  Build(s);
  for (const std::string& key : expanded)
    if (const int node = s.tree.Find(key); node >= 0) s.tree.nodes[static_cast<std::size_t>(node)].expanded = true;
  ++s.tree.expansion;
  s.tree.selected = s.tree.Find(selected);
}

void RequireRoomForStructure(Session& s) {
  const auto rows = [&s](const char* table) {
    return ToInteger(s.db.Single(std::string("SELECT COUNT(*) FROM ") + table));
  };
  const bool room = rows("PD_PLATFORM_DESC") < s.structure_list.capacity() &&
                    rows("PA_PLATFORM_ACTV") + s.last_month <= s.structure_month_list.capacity();
  if (!room) throw Fault(fault_number::kSubscript, "MERLU tree", "Subscript out of range");
}

std::string SurveyText(int year, int month) {
  std::array<char, 48> text;
  std::snprintf(text.data(), text.size(), "Monthly Survey %d/%02d", year, month);
  return text.data();
}

void SaveTreeExpansion(Session& s) {
  s.tree_expansion.clear();
  for (const TreeNode& node : s.tree.nodes) s.tree_expansion.push_back(node.expanded);
}

void RestoreTreeExpansion(Session& s) {
  for (std::size_t i = 0; i < s.tree.nodes.size() && i < s.tree_expansion.size(); ++i)
    s.tree.nodes[i].expanded = s.tree_expansion[i];
  ++s.tree.expansion;
}

bool ReselectLocation(Session& s) {
  const std::string wanted = KeyOf(s.current, s.mode);
  for (TreeNode& node : s.tree.nodes)
    if (node.key.size() < wanted.size() && wanted.starts_with(node.key)) node.expanded = true;
  ++s.tree.expansion;
  const int node = s.tree.Find(wanted);
  if (node >= 0) ClickNode(s, node);
  return node >= 0;
}

void SelectRoot(Session& s) {
  if (s.tree.nodes.empty()) return;
  s.tree.nodes.front().expanded = true;
  ++s.tree.expansion;
  ClickNode(s, 0);
}

void AddAndSelect(Session& s, const std::string& parent_key, const std::string& key, const std::string& text) {
  const int node = s.tree.Add(parent_key, key, text);
  s.tree.SortChildren(s.tree.nodes[static_cast<std::size_t>(node)].parent);
  ClickNode(s, node);
}

}  // namespace merlu
