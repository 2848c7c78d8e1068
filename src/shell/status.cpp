#include "shell/status.h"

#include <algorithm>

#include "base/fault.h"
#include "base/text.h"
#include "qc/comment_key.h"
#include "review/place_counts.h"
#include "shell/findings_dock.h"

namespace merlu {
namespace {

constexpr std::int64_t kNotCounted = -1;

struct Question {
  std::string sql;
  Values values;
};

// Of a month with all its structures, or of a structure or a piece of equipment.
PlaceCounts FindingsAt(Session& s) {
  const QCLocation& at = s.current;
  if (!at.Is(level::kSurvey))
    return CountFindingsAt(s.db, at, s.mode, {s.PD_ID_AK, s.SA_ID_AK, s.ED_ID_AK, s.EA_ID_AK});
  PlaceCounts counts;
  const Review& review = Findings(s).review();
  const auto is_own = [&at](const std::string& user) { return EqualsIgnoringCase(Trim(user), Trim(at.UserID)); };
  std::vector<bool> own;  // of the structures
  for (const ReviewedStructure& structure : review.structures) own.push_back(is_own(structure.user));
  for (const ReviewedRecord& record : review.records) {
    if (record.month != at.Month) continue;
    const bool counts_here = record.gone ? is_own(record.gone->UserID)
                                         : record.structure >= 0 && own[static_cast<std::size_t>(record.structure)];
    if (!counts_here) continue;
    counts.findings += static_cast<int>(record.findings.size());
    counts.unexplained += record.open;
  }
  return counts;
}

// What a run in the middle of an edit has found: it has judged what is typed, and not what is stored.
PlaceCounts LoggedAt(Session& s) {
  const QCLocation& at = s.current;
  std::string sql = "SELECT Comments FROM QC WHERE UserID=? AND [Month]=? AND [Year]=? AND CmplxID=? AND StructID=?";
  Values values = {Trim(at.UserID), std::int64_t{at.Month}, std::int64_t{at.Year}};
  values.emplace_back(Trim(at.CmplxID));
  values.emplace_back(Trim(at.StructID));
  if (at.Is(level::kEquipment)) {
    sql += " AND EquipType=? AND EquipID=?";
    values.emplace_back(Trim(at.EquipType));
    values.emplace_back(Trim(at.EquipID));
  }
  PlaceCounts counts;
  s.db.ForEach(sql, values, [&counts](const RowView& row) {
    ++counts.findings;
    if (!Explains(row.Text(0))) ++counts.unexplained;
  });
  return counts;
}

// Rows of the place that have no date of last QC. A description of equipment gets none from a run: that of its
// structure counts while nothing else is known.
Question Unchecked(const Session& s) {
  const QCLocation& at = s.current;
  if (at.Is(level::kSurvey)) {
    Question question{
        "SELECT EXISTS(SELECT 1 FROM PA_PLATFORM_ACTV a JOIN PD_PLATFORM_DESC p ON p.PD_ID_AK=a.PD_ID_AK WHERE "
        "a.PA_MO=? AND a.PA_YR=? AND a.PA_QC_DT IS NULL AND a.status IS NOT 'I' AND p.RIMA_CO_NUM=?)",
        {std::int64_t{at.Month}, std::int64_t{at.Year}}};
    question.values.emplace_back(Trim(at.UserID));
    return question;
  }
  if (at.Is(level::kStructure) && s.InActv())
    return {"SELECT PA_QC_DT IS NULL FROM PA_PLATFORM_ACTV WHERE SA_ID_AK=?", {s.SA_ID_AK}};
  if (at.Is(level::kStructure)) return {"SELECT PD_QC_DT IS NULL FROM PD_PLATFORM_DESC WHERE PD_ID_AK=?", {s.PD_ID_AK}};
  if (s.InActv()) return {"SELECT EA_QC_DT IS NULL FROM EA_EQUIP_ACTV WHERE EA_ID_AK=?", {s.EA_ID_AK}};
  return {
      "SELECT coalesce(d.ED_QC_DT,p.PD_QC_DT) IS NULL FROM ED_EQUIP_DESC d JOIN PD_PLATFORM_DESC p ON "
      "p.PD_ID_AK=d.PD_ID_AK WHERE d.ED_ID_AK=?",
      {s.ED_ID_AK}};
}

// Whether a structure of the place was saved behind its last run.
bool HasUnjudgedStructure(Session& s) {
  const QCLocation& at = s.current;
  if (at.Is(level::kStructure)) return s.unjudged_structures.contains({s.mode, s.InActv() ? s.SA_ID_AK : s.PD_ID_AK});
  if (!at.Is(level::kSurvey)) return false;
  return std::any_of(s.unjudged_structures.begin(), s.unjudged_structures.end(), [&](const auto& structure) {
    return structure.first == Mode::kActv &&
           !IsNull(s.db.Single("SELECT 1 FROM PA_PLATFORM_ACTV WHERE SA_ID_AK=? AND PA_MO=? AND PA_YR=?",
                               {structure.second, std::int64_t{at.Month}, std::int64_t{at.Year}}));
  });
}

}  // namespace

void Say(Session& s, const std::string& message) {
  s.message = message;
}

std::string NewsSince(const Session& s, const std::string& before) {
  const std::string& why_not = s.companion.why_not();
  return !why_not.empty() && s.message == why_not && s.message != before ? ". " + why_not : "";
}

void UpdateStatus(Session& s) {
  const QCLocation& at = s.current;
  if (s.status_of == at && s.status_changes == s.db.ChangeCount()) return;
  s.status_of = at;
  s.status_changes = s.db.ChangeCount();
  s.findings = s.unexplained = 0;
  s.checked = true;
  const bool judged = at.Is(level::kSurvey) || at.Is(level::kStructure) || at.Is(level::kEquipment);
  if (!judged || !s.db.IsOpen()) return;
  try {
    const bool description = s.InDesc() && at.Is(level::kEquipment);
    const Question unchecked = Unchecked(s);
    const auto known = s.checked_descriptions.find(s.ED_ID_AK);
    s.checked = description && known != s.checked_descriptions.end()
                    ? known->second
                    : !HasUnjudgedStructure(s) && ToInteger(s.db.Single(unchecked.sql, unchecked.values)) == 0;
    const PlaceCounts counts = s.editing && s.checked && !at.Is(level::kSurvey) ? LoggedAt(s) : FindingsAt(s);
    s.findings = counts.findings;
    s.unexplained = counts.unexplained;
  } catch (const Fault&) {
    s.status_changes = kNotCounted;
  }
}

bool IsStatusKnown(const Session& s) {
  return s.status_changes != kNotCounted;
}

}  // namespace merlu
