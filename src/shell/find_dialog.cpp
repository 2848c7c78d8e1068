#include "shell/find_dialog.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "session/node_keys.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/help.h"
#include "shell/messages.h"
#include "shell/navigation.h"
#include "shell/things.h"

namespace merlu {
namespace {

constexpr const char *kText = names::txtGOT_Text, *kList = names::lvwGOT_List;
constexpr const char *kSection = "GoTo", *kRecent = "Recent";
constexpr std::size_t kMostShown = 200, kMostRecent = 20;
constexpr char kBetween = '\n';

// What the dialog shows: the things of the moment, and those that fit.
class Found : public ListModel {
 public:
  std::vector<Thing> things;
  std::vector<int> fits;
  std::vector<std::string> recent;
  std::optional<Thing> chosen;
  std::uint64_t revision = 0;

  const Thing& At(int row) const { return things[static_cast<std::size_t>(fits[static_cast<std::size_t>(row)])]; }
  int RowCount() const override { return static_cast<int>(fits.size()); }
  std::string Text(int row, int column) const override {
    const Thing& thing = At(row);
    return column == 0 ? KindName(thing.kind) : column == 1 ? thing.what : thing.where;
  }
  std::uint64_t Revision() const override { return revision; }
};

std::vector<std::string> ReadRecent(Session& s) {
  std::vector<std::string> recent;
  const std::string text = s.host.Setting(kSection, kRecent);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find(kBetween, at), text.size());
    recent.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return recent;
}

void KeepRecent(Session& s, std::vector<std::string> recent, const std::string& chosen) {
  std::erase(recent, chosen);
  recent.insert(recent.begin(), chosen);
  if (recent.size() > kMostRecent) recent.resize(kMostRecent);
  std::string text;
  for (const std::string& one : recent) text += (text.empty() ? "" : std::string(1, kBetween)) + one;
  KeepSetting(s, kSection, kRecent, text);
}

void Fill(Form& form, Found& found) {
  Control& list = form.At(kList);
  found.fits = FindThings(found.things, form.At(kText).text, found.recent, kMostShown);
  ++found.revision;
  list.picked.clear();
  list.at_row = -1;
}

// The piece of equipment of the type that is nearest to the user's place in the mode.
QCLocation FirstOf(Session& s, const std::string& type, Mode mode) {
  const bool months = mode == Mode::kActv;
  const std::string sql =
      months
          ? "SELECT p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_MERLU_EQUIP_ID,a.EA_MO,a.EA_YR FROM EA_EQUIP_ACTV a "
            "JOIN ED_EQUIP_DESC d ON d.ED_ID_AK=a.ED_ID_AK JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK WHERE "
            "d.ED_EQUIP_TYP=? ORDER BY a.EA_MO<>?,p.CMPLX_ID_NUM<>? OR p.STRUCT_NUM<>?,d.ED_MERLU_EQUIP_ID<>?,a.EA_MO,"
            "a.EA_ID_AK LIMIT 1"
          : "SELECT p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,d.ED_MERLU_EQUIP_ID,0,0 FROM ED_EQUIP_DESC d JOIN "
            "PD_PLATFORM_DESC p ON p.PD_ID_AK=d.PD_ID_AK WHERE d.ED_EQUIP_TYP=? AND ?=? ORDER BY p.CMPLX_ID_NUM<>? OR "
            "p.STRUCT_NUM<>?,d.ED_MERLU_EQUIP_ID<>?,d.ED_ID_AK LIMIT 1";
  const Value month = std::int64_t{s.current.Month};
  Values values;
  values.emplace_back(type);
  values.push_back(month);
  if (!months) values.push_back(month);
  values.emplace_back(s.current.CmplxID);
  values.emplace_back(s.current.StructID);
  values.emplace_back(s.current.EquipID);
  QCLocation place;
  s.db.ForEach(sql, values, [&](const RowView& row) {
    place = {level::kEquipment,
             std::string(row.Text(0)),
             static_cast<int>(row.Integer(4)),
             static_cast<int>(row.Integer(5)),
             std::string(row.Text(1)),
             std::string(row.Text(2)),
             type,
             std::string(row.Text(3))};
  });
  return place;
}

// The same of a structure.
QCLocation FirstStructure(Session& s, Mode mode) {
  const bool months = mode == Mode::kActv;
  const std::string sql =
      months ? "SELECT p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,a.PA_MO,a.PA_YR FROM PA_PLATFORM_ACTV a JOIN "
               "PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK ORDER BY a.PA_MO<>?,p.CMPLX_ID_NUM<>? OR "
               "p.STRUCT_NUM<>?,a.PA_MO,a.SA_ID_AK LIMIT 1"
             : "SELECT p.RIMA_CO_NUM,p.CMPLX_ID_NUM,p.STRUCT_NUM,0,0 FROM PD_PLATFORM_DESC p WHERE ? NOTNULL ORDER BY "
               "p.CMPLX_ID_NUM<>? OR p.STRUCT_NUM<>?,p.PD_ID_AK LIMIT 1";
  Values values = {std::int64_t{s.current.Month}};
  values.emplace_back(s.current.CmplxID);
  values.emplace_back(s.current.StructID);
  QCLocation place;
  s.db.ForEach(sql, values, [&](const RowView& row) {
    const auto text = [&row](int column) { return std::string(row.Text(column)); };
    place = {level::kStructure,
             text(0),
             static_cast<int>(row.Integer(3)),
             static_cast<int>(row.Integer(4)),
             text(1),
             text(2),
             "",
             ""};
  });
  return place;
}

std::string HelpOf(const Thing& thing) {
  return HelpFile(thing.sheet.empty() ? level::kStructure : level::kEquipment, thing.sheet);
}

void GoToFieldOf(Session& s, const Thing& thing) {
  if (s.current.EquipType == thing.sheet && s.mode == thing.mode && GoToField(s, thing.control)) return;
  const QCLocation place = thing.sheet.empty() ? FirstStructure(s, thing.mode) : FirstOf(s, thing.sheet, thing.mode);
  // without such equipment the field's help is shown
  if (place.Level.empty()) return ShowHelp(s, HelpOf(thing), thing.control);
  GoTo(s, place, thing.mode, thing.control);
}

bool GoToNodeOf(Session& s, const Thing& thing) {
  if (thing.node < 0)
    return GoTo(s, thing.mode == Mode::kActv ? ParseNodeKey(thing.key) : ParseDescNodeKey(thing.key), thing.mode);
  s.tree.ExpandAncestors(thing.node);
  return GoToNode(s, thing.node);
}

void Do(Session& s, const Thing& thing) {
  switch (thing.kind) {
    case ThingKind::kStructure:
    case ThingKind::kEquipment:
    case ThingKind::kMonth:
      if (GoToNodeOf(s, thing)) FocusTree(s);
      return;
    case ThingKind::kField: return GoToFieldOf(s, thing);
    case ThingKind::kHelp:
      if (thing.control.empty()) return ShowHelp(s, thing.sheet);
      [[fallthrough]];
    case ThingKind::kCommand: act::Click(s.desk, *s.main, thing.control); return;
    case ThingKind::kRule: return ShowHelp(s, HelpOf(thing), thing.control);
  }
}

Form& MakeForm(Session& s) {
  return DialogForm(s, names::frmFind, "Go To", [&s](Form& form) {
    const auto found = std::make_shared<Found>();
    AddText(form, kText, "Go to:");
    AddListView(form, kList, "Found:", {"Kind", "What", "Where"}, found).many = false;
    AddDialogButtons(form, names::cmdOK, names::cmdCANCEL);
    form.On(kText, Event::kClick, [&form, found] { Fill(form, *found); });
    const auto choose = [&s, &form, found] {
      const std::vector<int>& picked = form.At(kList).picked;
      const int row = picked.empty() ? 0 : picked.front();
      if (row >= found->RowCount()) return;
      found->chosen = found->At(row);
      s.desk.Hide(form);
    };
    form.On(names::cmdOK, Event::kClick, choose);
    form.On(kList, Event::kDoubleClick, choose);
  });
}

}  // namespace

void MakeGoToDialog(Session& s) {
  MakeForm(s);
}

void OpenGoTo(Session& s) {
  Form& form = MakeForm(s);
  auto& found = static_cast<Found&>(*form.At(kList).model);
  found.things = CollectThings(s);
  found.recent = ReadRecent(s);
  Fill(form, found);
  form.focus = kText;
  OpenDialog(s, form);
  const std::optional<Thing> chosen = std::exchange(found.chosen, std::nullopt);
  found.things.clear();
  found.fits.clear();
  ++found.revision;
  if (!chosen) return;
  KeepRecent(s, found.recent, RecentText(*chosen));
  Do(s, *chosen);
}

}  // namespace merlu
