#include "shell/entry_commands.h"

#include <algorithm>

#include "base/text.h"
#include "entry/month_record.h"
#include "entry/shown_findings.h"
#include "session/act.h"
#include "session/node_keys.h"
#include "session/types.h"
#include "sheets/units.h"
#include "shell/edit_cycle.h"
#include "shell/messages.h"
#include "shell/sheet_acts.h"
#include "shell/status.h"
#include "shell/strip_dock.h"

namespace merlu {
namespace {

constexpr const char* kEditing = " - EDIT DATA";

// "Flare F1"; of a structure its text in the tree.
std::string NameOfRecord(Session& s) {
  const SheetSpec* sheet = s.current.Is(level::kEquipment) ? FindSheet(s.current.EquipType) : nullptr;
  if (sheet == nullptr) return s.tree.selected < 0 ? "" : s.tree.nodes[static_cast<std::size_t>(s.tree.selected)].text;
  std::string title = sheet->edit_title;
  if (title.ends_with(kEditing)) title.resize(title.size() - std::string_view(kEditing).size());
  return title + " " + s.current.EquipID;
}

std::string Count(int count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Whether the node's record can be edited: it and its structure report for the month.
bool IsActive(Session& s, const std::string& key) {
  if (!s.InActv()) return true;
  const TreeRecord::Row* structure = s.activity_record.FindTag(FirstCharacters(key, kStructureMonthKeyLength));
  if (structure != nullptr && structure->Status == "I") return false;
  const std::int64_t* id =
      CountCharacters(key) == kEquipmentMonthKeyLength ? s.equipment_month_list.Find(key) : nullptr;
  return id == nullptr ||
         NullToEmpty(s.db.Single("SELECT EA_STATUS FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?", {*id})) != "I";
}

// The next record of the kind, of the same month, that can be edited; -1 for none.
int NextRecord(Session& s, int from, int step) {
  const std::vector<int> order = s.tree.InOrder();
  const auto key_of = [&](int node) -> const std::string& { return s.tree.nodes[static_cast<std::size_t>(node)].key; };
  const std::string& here = key_of(from);
  const std::size_t length = CountCharacters(here), month = s.InActv() ? kSurveyKeyLength : kUserKeyLength;
  auto at = std::find(order.begin(), order.end(), from) - order.begin();
  for (at += step; at >= 0 && at < static_cast<std::ptrdiff_t>(order.size()); at += step) {
    const std::string& key = key_of(order[static_cast<std::size_t>(at)]);
    if (CountCharacters(key) != length || FirstCharacters(key, month) != FirstCharacters(here, month)) continue;
    if (IsActive(s, key)) return order[static_cast<std::size_t>(at)];
  }
  return -1;
}

void SaveAndGo(Session& s, int step) {
  const bool record = s.current.Is(level::kStructure) || s.current.Is(level::kEquipment);
  if (!s.editing || !record) return;
  const std::string name = NameOfRecord(s), before = s.message;
  const std::vector<std::string> messages = SaveExitWithoutBox(s);
  if (s.save_failed) return;
  const std::string news = NewsSince(s, before);
  UpdateStatus(s);  // by what is stored: a text that was no number has become a blank
  std::string saved = name + " saved, " + Count(s.findings, "finding");
  for (const std::string& text : messages) saved += ". " + text;
  const int next = NextRecord(s, s.tree.selected, step);
  if (next < 0) {
    s.message =
        saved + (step > 0 ? ". It is the last record" : ". It is the first record") + (news.empty() ? "." : news);
    return;
  }
  ClickNode(s, next);
  BeginEdit(s);
  s.message = saved + news;
}

}  // namespace

void CopyPreviousMonth(Session& s) {
  const int copied = CopyMonthBefore(s);
  s.message = copied == 0 ? "Nothing to copy" : Count(copied, "value") + " copied";
}

void ConfirmCopiedValues(Session& s) {
  const std::vector<Control*> copied = CopiedFields(s);
  // while the record is edited its save decides which values are confirmed
  if (!s.editing && !copied.empty()) {
    const Act act(s, "Confirm Copied Values");
    if (!act.MayWrite() || !Plainly(s, [&] { ForgetCopiedOfShown(s); })) return;
  }
  for (Control* control : copied) control->copied = false;
  s.message = Count(static_cast<int>(copied.size()), "value") + " confirmed";
}

void SaveAndNext(Session& s) {
  SaveAndGo(s, 1);
}

void SaveAndPrevious(Session& s) {
  SaveAndGo(s, -1);
}

void ShowEntryMarks(Session& s) {
  ShowMonthBefore(s);
  ShowCopied(s);
  ShowFieldFindings(s);
  FollowFocus(s);
}

}  // namespace merlu
