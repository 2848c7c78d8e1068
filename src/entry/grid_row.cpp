#include "entry/grid_row.h"

namespace merlu {

void MonthGrid::Row::TakeStored() {
  comments = stored.Comments();
  inactive = stored.inactive;
  shown.clear();
  for (std::size_t i = 0; i < fields().size(); ++i) shown.push_back(stored.view.Text(IndexOf(i)));
  before.resize(fields().size());
  copied.resize(fields().size());
  kept.resize(fields().size());
  clash.assign(fields().size(), false);
}

bool MonthGrid::Row::IsChanged() const {
  if (inactive != stored.inactive || comments != stored.Comments()) return true;
  for (std::size_t i = 0; i < fields().size(); ++i)
    if (IsTyped(i) || (kept[i] && !copied[i])) return true;
  return false;
}

TypedRecord MonthGrid::Row::Typed() const {
  TypedRecord typed;
  typed.sheet = stored.sheet;
  typed.at = stored.at;
  typed.keys = stored.keys;
  typed.structure_inactive = stored.structure_inactive;
  typed.texts.reserve(4);  // seldom more
  for (std::size_t i = 0; i < fields().size(); ++i)
    if (IsTyped(i)) typed.texts.emplace_back(fields()[i]->control, view.Text(IndexOf(i)));
  if (comments != stored.Comments()) typed.texts.emplace_back(stored.kind->comments, comments);
  if (inactive != stored.inactive) typed.no_emissions = inactive;
  return typed;
}

void MonthGrid::Row::Rebase(MonthRow now) {
  const TypedRecord typed = Typed();
  const std::vector<std::string> old = shown;
  stored = std::move(now);
  view = stored.view;
  TakeStored();
  for (const auto& [control, text] : typed.texts) {
    if (control == stored.kind->comments) comments = text;
    for (std::size_t i = 0; i < fields().size(); ++i) {
      if (fields()[i]->control != control) continue;
      view.SetText(IndexOf(i), text);
      clash[i] = shown[i] != old[i];
    }
  }
  inactive = typed.no_emissions.value_or(inactive);
  view.SetChecked(stored.kind->status_index, inactive);
  locked_.clear();
  Unjudge();
}

const std::vector<bool>& MonthGrid::Row::Locked() const {
  if (locked_.empty()) locked_ = LockedFields(stored.sheet, stored.view);
  return locked_;
}

const std::map<std::string, std::string, std::less<>>& MonthGrid::Row::Findings() const {
  if (judged_) return findings_;
  judged_ = true;
  findings_.clear();
  bool any = false;
  for (std::size_t i = 0; i < fields().size() && !any; ++i) any = view.IsFilled(IndexOf(i));
  if (inactive || stored.structure_inactive || !any) return findings_;
  const RuleSet& rules = *stored.kind->rules;
  const Context& context = contexts->Of(stored.keys.PD_ID_AK, stored.at.Year, stored.at.Month);
  const Verdicts verdicts = Judge(rules, Mode::kActv, view, context);
  for (const JudgedFinding& finding : StandingFindings(verdicts))
    if (finding.field >= 0) findings_[rules.fields()[finding.field].control] = std::string(finding.text);
  return findings_;
}

}  // namespace merlu
