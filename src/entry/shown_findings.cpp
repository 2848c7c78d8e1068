#include "entry/shown_findings.h"

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "records/judge_records.h"
#include "session/notices.h"
#include "sheets/sheet_form.h"
#include "sheets/structure.h"
#include "sheets/units.h"

namespace merlu {
namespace {

// The record that shows, with the form that holds its fields.
struct Shown {
  Form* form = nullptr;
  const SheetSpec* sheet = nullptr;
  std::string tab;
};

Shown ShownRecord(Session& s) {
  if (s.current.Is(level::kStructure)) return {s.main, &StructureSheet(), names::tabSTRUCTURE};
  const SheetSpec* sheet = s.current.Is(level::kEquipment) ? FindSheet(s.current.EquipType) : nullptr;
  if (sheet == nullptr) return {};
  return {&SheetForm(s, *sheet), sheet, sheet->tab()};
}

struct UnderTag {
  std::string tag, text;
};
using Findings = std::vector<UnderTag>;  // one under a tag

const UnderTag* FindingUnder(const Findings& findings, std::string_view tag) {
  if (Trim(tag).empty()) return nullptr;
  const auto found =
      std::find_if(findings.begin(), findings.end(), [&](const UnderTag& f) { return IsSameTag(f.tag, tag); });
  return found == findings.end() ? nullptr : &*found;
}

void Add(Findings& findings, std::string_view tag, std::string_view text) {
  if (FindingUnder(findings, tag) == nullptr) findings.push_back({std::string(tag), std::string(text)});
}

void AddJudged(Session& s, const Shown& shown, Findings& findings) {
  RecordKeys keys;
  if (shown.sheet == &StructureSheet())
    (s.InActv() ? keys.SA_ID_AK : keys.PD_ID_AK) = s.InActv() ? s.SA_ID_AK : s.PD_ID_AK;
  else
    (s.InActv() ? keys.EA_ID_AK : keys.ED_ID_AK) = s.InActv() ? s.EA_ID_AK : s.ED_ID_AK;
  JudgeRecord(s.db, *shown.sheet, s.mode, keys, [&](const JudgedRecord& record) {
    if (record.inactive || record.structure_inactive || (s.InActv() && !record.has_values)) return;
    for (const JudgedFinding& finding : StandingFindings(*record.verdicts)) Add(findings, finding.tag, finding.text);
  });
}

void AddLogged(Session& s, const Shown& shown, Findings& findings) {
  const QCLocation& at = s.current;
  Values values = {Trim(at.UserID), std::int64_t{at.Month}, Trim(at.CmplxID), Trim(at.StructID), at.Level};
  std::string condition = "UserID=? AND [Month]=? AND CmplxID=? AND StructID=? AND [Level]=?";
  if (shown.sheet != &StructureSheet()) {
    condition += " AND EquipType=? AND EquipID=?";
    values.insert(values.end(), {shown.sheet->type, Trim(at.EquipID)});
  }
  s.db.ForEach("SELECT FieldID,[Desc] FROM QC WHERE " + condition, values,
               [&](const RowView& row) { Add(findings, row.Text(0), row.Text(1)); });
}

// The page that holds the control; -1 for none of the tab.
int PageOf(const Form& form, const Control& control, const std::string& tab) {
  for (const Control* at = &control; !at->parent.empty();) {
    if (at->parent == tab) return at->page;
    at = form.Find(at->parent);
    if (at == nullptr) return -1;
  }
  return -1;
}

void Show(Session& s, bool judged) {
  NotingSheetFaults(s.notices, [&] {
    const Shown shown = ShownRecord(s);
    if (shown.form == nullptr) return;
    Findings findings;
    if (judged) AddJudged(s, shown, findings);
    try {
      AddLogged(s, shown, findings);
    } catch (const Fault&) {
      // the list of results has shown it
    }
    Control& tab = shown.form->At(shown.tab);
    tab.counts.assign(tab.items.size(), 0);
    std::set<std::pair<int, const UnderTag*>> counted;  // two fields under one tag share a finding
    for (Control& control : shown.form->controls()) {
      const UnderTag* found = FindingUnder(findings, control.tag);
      control.finding = found == nullptr ? "" : found->text;
      if (found == nullptr || !control.visible) continue;
      const int page = PageOf(*shown.form, control, shown.tab);
      if (page >= 0 && counted.emplace(page, found).second) ++tab.counts[static_cast<std::size_t>(page)];
    }
  });
}

}  // namespace

void ShowFieldFindings(Session& s) {
  Show(s, true);
}

void ShowFieldFindingsOfRun(Session& s) {
  Show(s, !s.editing);
}

}  // namespace merlu
