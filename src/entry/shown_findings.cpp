#include "entry/shown_findings.h"

#include <map>
#include <string>

#include "base/text.h"
#include "records/judge_records.h"
#include "session/messages.h"
#include "sheets/sheet_form.h"
#include "sheets/units.h"

namespace merlu {
namespace {

// The record that shows, with the form that holds its fields.
struct Shown {
  Form* form = nullptr;
  const SheetSpec* sheet = nullptr;  // null for a structure
  std::string tab;
};

Shown ShownRecord(Session& s) {
  if (s.current.Is(level::kStructure)) return {s.main, nullptr, "tabSTRUCTURE"};
  const SheetSpec* sheet = s.current.Is(level::kEquipment) ? FindSheet(s.current.EquipType) : nullptr;
  if (sheet == nullptr) return {};
  return {&SheetForm(s, *sheet), sheet, sheet->tab()};
}

using Findings = std::map<std::string, std::string>;  // by control

void AddJudged(Session& s, const Shown& shown, Findings& findings) {
  RecordKeys keys;
  if (shown.sheet == nullptr)
    (s.InActv() ? keys.SA_ID_AK : keys.PD_ID_AK) = s.InActv() ? s.SA_ID_AK : s.PD_ID_AK;
  else
    (s.InActv() ? keys.EA_ID_AK : keys.ED_ID_AK) = s.InActv() ? s.EA_ID_AK : s.ED_ID_AK;
  JudgeRecord(s.db, shown.sheet, s.mode, keys, [&](const JudgedRecord& record) {
    if (record.inactive || record.structure_inactive || (s.InActv() && !record.has_values)) return;
    for (const JudgedFinding& finding : StandingFindings(*record.verdicts))
      if (finding.field >= 0) findings[record.rules->fields()[finding.field].control] = std::string(finding.text);
  });
}

void AddLogged(Session& s, const Shown& shown, Findings& findings) {
  const QCLocation& at = s.current;
  Values values = {Trim(at.UserID),  std::int64_t{at.Month}, std::int64_t{at.Year},
                   Trim(at.CmplxID), Trim(at.StructID),      std::string(ModeText(s.mode)),
                   at.Level};
  std::string condition =
      "UserID=? AND [Month]=? AND [Year]=? AND CmplxID=? AND StructID=? AND EditMode=? AND [Level]=?";
  if (shown.sheet != nullptr) {
    condition += " AND EquipType=? AND EquipID=?";
    values.insert(values.end(), {shown.sheet->type, Trim(at.EquipID)});
  }
  s.db.ForEach("SELECT FieldID,[Desc] FROM QC WHERE " + condition, values, [&](const RowView& row) {
    for (const Control& control : shown.form->controls())
      if (!control.tag.empty() && IsSameTag(control.tag, row.Text(0)))
        findings.try_emplace(control.name, std::string(row.Text(1)));
  });
}

// The page that the control stands on; -1 for none of the tab.
int PageOf(const Form& form, const Control& control, const std::string& tab) {
  for (const Control* at = &control; !at->parent.empty();) {
    if (at->parent == tab) return at->page;
    at = form.Find(at->parent);
    if (at == nullptr) return -1;
  }
  return -1;
}

void Show(Session& s, bool judged) {
  OnSheet(s, [&] {
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
    for (Control& control : shown.form->controls()) {
      const auto found = findings.find(control.name);
      control.finding = found == findings.end() ? "" : found->second;
      if (control.finding.empty() || !control.visible) continue;
      const int page = PageOf(*shown.form, control, shown.tab);
      if (page >= 0) ++tab.counts[static_cast<std::size_t>(page)];
    }
  });
}

}  // namespace

void ShowFindings(Session& s) {
  Show(s, true);
}

void ShowFindingsOfRun(Session& s) {
  Show(s, !s.editing);
}

}  // namespace merlu
