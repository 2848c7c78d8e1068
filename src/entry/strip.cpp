#include "entry/strip.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "entry/month_record.h"
#include "entry/month_rows.h"
#include "session/notices.h"
#include "sheets/conversions.h"

namespace merlu {
namespace {

constexpr std::size_t kFewest = 5;  // other months that a judgement needs
constexpr double kNormal = 0.6745;  // of the median deviation, in standard deviations
constexpr double kUnusual = 3.5;

double Median(std::vector<double>& values) {
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

const FieldSpec* FieldOf(const MonthRecord& record, const Control& control) {
  for (const FieldSpec* field : record.fields)
    if (field->control == control.name) return field;
  return nullptr;
}

// The bounds of the rule that applies to the field with the form's present values.
void ReadBounds(const MonthRecord& record, const FieldSpec& field, Strip& strip) {
  const SheetSpec* sheet = record.sheet;
  for (const RuleGroup& group : MonthKindOf(sheet).rules->groups())
    for (const Rule& rule : group.rules) {
      if (!EqualsIgnoringCase(rule.field, field.control) || !RunsIn(rule.mode, Mode::kActv)) continue;
      if ((!rule.check.has_low && !rule.check.has_high) || !rule.when.holds(*record.form)) continue;
      if (rule.check.has_low && strip.least.empty()) strip.least = GeneralNumber(rule.check.low);
      if (rule.check.has_high && strip.most.empty()) strip.most = GeneralNumber(rule.check.high);
    }
}

// The field's stored values of the year by month.
void ReadMonths(Session& s, const MonthRecord& record, const FieldSpec& field, Strip& strip) {
  const std::string sql = record.table == "PA_PLATFORM_ACTV"
                              ? "SELECT t.PA_MO,t.[" + field.column +
                                    "] FROM PA_PLATFORM_ACTV t WHERE t.PD_ID_AK=(SELECT PD_ID_AK FROM PA_PLATFORM_ACTV "
                                    "WHERE SA_ID_AK=?) AND "
                                    "t.PA_YR=?"
                              : "SELECT a.EA_MO,t.[" + field.column + "] FROM EA_EQUIP_ACTV a JOIN " + record.table +
                                    " t ON t.EA_ID_AK=a.EA_ID_AK WHERE a.ED_ID_AK=(SELECT ED_ID_AK FROM EA_EQUIP_ACTV "
                                    "WHERE EA_ID_AK=?) AND "
                                    "a.EA_YR=?";
  for (const Values& row : s.db.Query(sql, {record.key, std::int64_t{s.current.Year}}).rows) {
    const std::int64_t month = ToInteger(row[0]);
    if (month >= 1 && month <= 12) strip.months[static_cast<std::size_t>(month - 1)] = ShownText(field, row[1]);
  }
}

}  // namespace

std::string AdviceOn(double value, std::vector<double> others) {
  if (others.size() < kFewest) return "";
  const double middle = Median(others), least = others.front(), most = others.back();
  std::vector<double> distances;
  distances.reserve(others.size());
  for (double other : others) distances.push_back(std::abs(other - middle));
  const double spread = Median(distances);
  if (spread == 0 || kNormal * std::abs(value - middle) / spread <= kUnusual) return "";
  return "Unusual: the other months lie between " + GeneralNumber(least) + " and " + GeneralNumber(most) + ".";
}

Strip StripOf(Session& s, const Control& control) {
  Strip strip;
  strip.caption = control.caption;
  const std::optional<MonthRecord> record = ShownMonth(s);
  const FieldSpec* field = record ? FieldOf(*record, control) : nullptr;
  if (field == nullptr) return strip;
  NotingSheetFaults(s.notices, [&] { ReadMonths(s, *record, *field, strip); });
  ReadBounds(*record, *field, strip);
  strip.present = std::clamp(s.current.Month, 1, 12);
  const auto present = static_cast<std::size_t>(strip.present - 1);
  strip.months[present] = control.text;
  if (!control.numeric || !IsNumericText(control.text)) return strip;
  std::vector<double> others;
  for (std::size_t month = 0; month < strip.months.size(); ++month)
    if (month != present && IsNumericText(strip.months[month])) others.push_back(LeadingNumber(strip.months[month]));
  strip.advice = AdviceOn(LeadingNumber(control.text), std::move(others));
  return strip;
}

}  // namespace merlu
