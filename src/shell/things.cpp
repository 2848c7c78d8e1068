#include "shell/things.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <unordered_map>

#include "session/main_names.h"
#include "session/node_keys.h"
#include "session/place.h"
#include "session/types.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "sheets/wording.h"
#include "shell/help.h"
#include "shell/trees.h"

namespace merlu {
namespace {

constexpr int kRecentBonus = 150;
constexpr int kShowingBonus = 100;  // more than a longer name costs
constexpr const char* kStructure = "Structure";
constexpr const char* kNoEmissions = "No Emissions to Report";

void Add(std::vector<Thing>& things, Thing thing) {
  // nobody types the dots of a command that asks for more
  const std::string_view what = thing.what;
  thing.name = FuzzyText(what.ends_with("...") ? what.substr(0, what.size() - 3) : what);
  thing.place = FuzzyText(thing.where);
  things.push_back(std::move(thing));
}

ThingKind KindOfNode(const std::string& key) {
  switch (CountCharacters(key)) {
    case kSurveyKeyLength: return ThingKind::kMonth;
    case kEquipmentMonthKeyLength:
    case kEquipmentKeyLength: return ThingKind::kEquipment;
    default: return ThingKind::kStructure;
  }
}

// The nodes in the order of the tree; those of the user's structure in the present month come first, then the month's.
std::vector<int> NearestFirst(const Session& s) {
  std::vector<int> order = s.tree.InOrder();
  QCLocation above = s.current;
  const auto below = [&](const char* at) {
    above.Level = at;
    const std::string key = KeyOf(above, s.mode);
    const auto is_below = [&](int node) { return s.tree.nodes[static_cast<std::size_t>(node)].key.starts_with(key); };
    std::stable_partition(order.begin(), order.end(), is_below);
  };
  if (s.InActv() && s.current.Month > 0) below(level::kSurvey);
  if (s.current.Is(level::kStructure) || s.current.Is(level::kEquipment)) below(level::kStructure);
  return order;
}

void AddNodes(const Session& s, std::vector<Thing>& things) {
  const std::vector<int> order = NearestFirst(s);
  for (const int node : order) {
    const TreeNode& at = s.tree.nodes[static_cast<std::size_t>(node)];
    if (at.key.size() <= kUserKeyLength) continue;
    std::string where;
    for (int parent = at.parent; parent >= 0; parent = s.tree.nodes[static_cast<std::size_t>(parent)].parent) {
      const TreeNode& above = s.tree.nodes[static_cast<std::size_t>(parent)];
      if (above.key.size() > kUserKeyLength) where += (where.empty() ? "" : " · ") + above.text;
    }
    Add(things, {KindOfNode(at.key), at.text, where, node});
  }
}

Thing OfOtherMode(ThingKind kind, const std::string& what, const std::string& where, const std::string& key,
                  Mode mode) {
  Thing thing;
  thing.kind = kind;
  thing.what = what;
  thing.where = where;
  thing.key = key;
  thing.mode = mode;
  return thing;
}

// Months have no nodes in description mode, and fugitives none in activity mode.
void AddNodesOfOtherMode(Session& s, std::vector<Thing>& things) {
  if (s.InDesc()) {
    s.db.ForEach("SELECT RIMA_CO_NUM FROM CO_COMPANY ORDER BY rowid", {}, [&](const RowView& row) {
      for (int month = 1; month <= s.last_month; ++month) {
        const QCLocation at{level::kSurvey, std::string(row.Text(0)), month, s.year, "", "", "", ""};
        Add(things, OfOtherMode(ThingKind::kMonth, SurveyText(s.year, month), "", KeyOf(at, Mode::kActv), Mode::kActv));
      }
    });
    return;
  }
  if (!s.InActv()) return;
  s.db.ForEach(
      "SELECT p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_MERLU_EQUIP_ID,p.Area,p.Block,p.Name FROM ED_EQUIP_DESC d "
      "JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK WHERE d.ED_EQUIP_TYP='FUG' ORDER BY d.ED_ID_AK",
      {}, [&](const RowView& row) {
        const auto text = [&row](int column) { return std::string(row.Text(column)); };
        const QCLocation at{level::kEquipment, text(0), 0, 0, text(1), text(2), "FUG", text(3)};
        Add(things,
            OfOtherMode(ThingKind::kEquipment, EquipmentText("FUG", text(3)),
                        StructureText(row.Text(4), row.Text(5), row.Text(6)), KeyOf(at, Mode::kDesc), Mode::kDesc));
      });
}

// A caption without its marks of access keys.
std::string Plain(const std::string& caption) {
  std::string plain;
  for (std::size_t at = 0; at < caption.size(); ++at)
    if (caption[at] != '&' || (at + 1 < caption.size() && caption[at + 1] == '&')) {
      plain += caption[at];
      if (caption[at] == '&') ++at;
    }
  return plain;
}

void AddCommands(const Session& s, std::vector<Thing>& things) {
  const Form& main = *s.main;
  for (const Control& control : main.controls()) {
    if (control.kind != Kind::kMenu || !main.Handles(control.name, Event::kClick) || control.name == names::mnuRFind)
      continue;
    if (!IsVisible(main, control) || !IsEnabled(main, control)) continue;
    const Control* menu = main.Find(control.parent);
    const bool help = control.parent == names::mnuHOther || control.name.starts_with("mnuHL") ||
                      control.name.starts_with("mnuHCurrent");
    Add(things, {help ? ThingKind::kHelp : ThingKind::kCommand, Plain(control.caption),
                 menu == nullptr ? "" : Plain(menu->caption), -1, "", control.name});
  }
}

// The pages that the menu does not name.
void AddHelpPages(std::vector<Thing>& things) {
  for (const std::string& file : ScreenHelpFiles())
    Add(things, {ThingKind::kHelp, file.substr(0, file.rfind(" help")), "Help", -1, "", "", file});
}

void AddField(const std::string& caption, const std::string& control, bool monthly, const std::string& where,
              const std::string& type, std::vector<Thing>& things) {
  Add(things,
      {ThingKind::kField, BareCaption(caption), where, -1, "", control, type, monthly ? Mode::kActv : Mode::kDesc});
}

// The caption. Of fields with one caption on a page the later ones are named by their set or their heading too, lists
// under one heading by what they offer.
std::string NameOf(const std::vector<FieldSpec>& fields, const std::string& control) {
  const std::string caption = CaptionOf(fields, control);
  const auto field = std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.control == control; });
  if (field == fields.end()) return caption;
  const auto other = std::find_if(fields.begin(), fields.end(), [&](const FieldSpec& each) {
    return each.control != control && each.page == field->page && CaptionOf(fields, each.control) == caption;
  });
  if (other == fields.end()) return caption;
  if (other->block != field->block) {
    const std::string set = SetOf(*field, other->block);
    return other > field ? caption : (set.empty() ? field->block : set) + ": " + caption;
  }
  std::string items;
  for (const Item& item : field->items) items += (items.empty() ? "" : ", ") + item.text;
  return items.empty() ? caption : BareCaption(caption) + " (" + items + ")";
}

void AddFields(const SheetSpec& sheet, std::vector<Thing>& things) {
  for (const FieldSpec& field : sheet.fields) {
    if (field.page == kOffPage || field.kind == Kind::kLabel) continue;
    const std::string page = static_cast<std::size_t>(field.page) < sheet.pages.size()
                                 ? " · " + sheet.pages[static_cast<std::size_t>(field.page)]
                                 : "";
    AddField(NameOf(sheet.fields, field.control), field.control, field.mode == In::kActv, sheet.title + page,
             sheet.type, things);
  }
  const std::string where = sheet.title + " · " + sheet.pages.front();
  if (sheet.has_activity) AddField(kNoEmissions, sheet.status_box(), true, where, sheet.type, things);
  AddField(sheet.comments_caption, sheet.comments(), sheet.has_activity, where, sheet.type, things);
}

void AddStructureFields(std::vector<Thing>& things) {
  for (const FieldSpec& field : StructureSheet().fields)
    AddField(CaptionOf(StructureSheet().fields, field.control), field.control, field.mode == In::kActv,
             std::string(kStructure) + " · " + field.block, "", things);
  AddField(kNoEmissions, kStructureStatus, true, std::string(kStructure) + " · Comments", "", things);
}

void AddRules(const std::vector<FieldSpec>& fields, const std::vector<RuleGroup>& rules, const std::string& title,
              const std::string& type, std::vector<Thing>& things) {
  for (const RuleGroup& group : rules)
    for (const Rule& rule : group.rules) {
      if (rule.check.name == "none" || rule.check.name == "WithdrawRetired") continue;
      const std::string caption = NameOf(fields, rule.field);
      const std::string of = caption == rule.field ? "" : BareCaption(caption) + ": ";  // not of a field
      const std::string what = of + DemandText(rule.check);
      Add(things, {ThingKind::kRule, what, title, -1, "", rule.field, type});
    }
}

}  // namespace

const char* KindName(ThingKind kind) {
  constexpr std::array<const char*, 7> kNames = {"Structure", "Equipment", "Field", "Month", "Command", "Help", "Rule"};
  return kNames[static_cast<std::size_t>(kind)];
}

std::string RecentText(const Thing& thing) {
  return std::string(KindName(thing.kind)) + "\t" + thing.what + "\t" + thing.where;
}

std::vector<Thing> CollectThings(Session& s) {
  std::vector<Thing> things;
  things.reserve(s.tree.nodes.size() + 2000);
  AddNodes(s, things);
  AddNodesOfOtherMode(s, things);
  AddCommands(s, things);
  AddHelpPages(things);
  AddStructureFields(things);
  for (const SheetSpec* sheet : AllSheets()) AddFields(*sheet, things);
  AddRules(StructureSheet().fields, StructureSheet().rules, kStructure, "", things);
  for (const SheetSpec* sheet : AllSheets()) AddRules(sheet->fields, sheet->rules, sheet->title, sheet->type, things);
  const bool structure = s.current.Is(level::kStructure);
  for (Thing& thing : things)
    if (thing.kind == ThingKind::kField || thing.kind == ThingKind::kRule)
      thing.shows = thing.sheet.empty() ? structure : thing.sheet == s.current.EquipType;
  return things;
}

std::vector<int> FindThings(const std::vector<Thing>& things, const std::string& typed,
                            const std::vector<std::string>& recent, std::size_t most) {
  std::unordered_map<std::string, int> known;  // the last one first
  for (std::size_t i = 0; i < recent.size(); ++i) known.emplace(recent[i], static_cast<int>(recent.size() - i));
  const FuzzyWords words(typed);
  std::vector<std::pair<int, int>> fits;  // how well, and which
  for (std::size_t i = 0; i < things.size(); ++i) {
    const Thing& thing = things[i];
    int fit = words.empty() ? 1 : words.Fit(thing.name, thing.place);
    if (fit == 0) continue;
    if (thing.shows && !words.empty()) fit += kShowingBonus;
    if (!known.empty())
      if (const auto before = known.find(RecentText(thing)); before != known.end())
        fit += kRecentBonus + before->second;
    fits.emplace_back(fit, static_cast<int>(i));
  }
  const auto better = [](const auto& a, const auto& b) {
    return a.first != b.first ? a.first > b.first : a.second < b.second;
  };
  const auto end = fits.begin() + static_cast<std::ptrdiff_t>(std::min(most, fits.size()));
  std::partial_sort(fits.begin(), end, fits.end(), better);
  std::vector<int> found;
  for (auto fit = fits.begin(); fit != end; ++fit) found.push_back(fit->second);
  return found;
}

}  // namespace merlu
