#include "rules/bounds.h"

#include <gtest/gtest.h>

#include "base/numbers.h"
#include "rules/judge.h"
#include "session/types.h"
#include "sheets/record_rows.h"

namespace merlu::test {
namespace {

// A record of the sheet and a log of its findings by tag.
class Trial {
 public:
  explicit Trial(const BoundCase& bound_case)
      : case_(bound_case), rules_(RulesOf(FindType(case_.type)->sheet())), view_(rules_.fields()) {
    context_.year = 2017;
    context_.month = case_.mode == Mode::kActv ? 1 : 0;
    context_.month_found = case_.mode == Mode::kActv;
    context_.has_equipment = true;
    for (const auto& [control, text] : case_.description) Put(control, text);
    for (const auto& [control, text] : case_.base) Put(control, text);
  }

  // Sets every field by its bound, judges, and compares the field's finding with what is expected.
  template <typename ValueOf, typename Expected>
  void Try(const char* what, ValueOf value_of, Expected expected) {
    for (const auto* list : {&case_.required, &case_.if_filled})
      for (const Bound& bound : *list) Put(bound.control, value_of(bound));
    Run();
    for (const auto* list : {&case_.required, &case_.if_filled})
      for (const Bound& bound : *list) {
        const bool required = list == &case_.required;
        EXPECT_EQ(Finding(bound.tag), expected(bound, required)) << case_.type << " " << bound.control << " " << what;
      }
  }

 private:
  using Found = std::pair<std::string, std::string>;  // tag, text

  void Put(const std::string& control, const std::string& text) { view_.SetText(view_.fields().At(control), text); }

  // The log after a run: a field has one finding, and one that no verdict is about stays.
  void Run() {
    const Verdicts verdicts = Judge(rules_, case_.mode, view_, context_);
    ASSERT_TRUE(verdicts.faults.empty());
    for (const Verdict& verdict : verdicts.all) {
      std::erase_if(log_, [&](const Found& found) {
        return IsSameTag(found.first, verdict.tag) &&
               (verdict.log == Verdict::Log::kRaise || Withdraws(verdict, found.second));
      });
      if (verdict.log == Verdict::Log::kRaise) log_.emplace_back(verdict.tag, verdict.text);
    }
  }

  std::string Finding(const std::string& tag) const {
    for (const auto& [of, text] : log_)
      if (IsSameTag(of, tag)) return text;
    return "";
  }

  BoundCase case_;
  const RuleSet& rules_;
  RecordView view_;
  Context context_;
  std::vector<Found> log_;
};

}  // namespace

std::string RangeFinding(double low, double high) {
  return "Value not in expected range (" + GeneralNumber(low) + " to " + GeneralNumber(high) + ")";
}

void TryBounds(const BoundCase& bound_case) {
  Trial trial(bound_case);
  const auto none = [](const Bound&, bool) { return std::string(); };
  const auto range = [](const Bound& bound, bool) { return RangeFinding(bound.low, bound.high); };
  const auto blank = [&](const Bound& bound, bool required) {
    return required ? kBlankFinding : RangeFinding(bound.low, bound.high);
  };
  const double step = bound_case.step;
  trial.Try(
      "at the low bound", [](const Bound& b) { return GeneralNumber(b.low); }, none);
  trial.Try(
      "at the high bound", [](const Bound& b) { return GeneralNumber(b.high); }, none);
  trial.Try(
      "below", [=](const Bound& b) { return GeneralNumber(b.low - step); }, range);
  trial.Try(
      "above", [=](const Bound& b) { return GeneralNumber(b.high + step); }, range);
  // a blank that is not required is not checked, so the previous finding remains
  trial.Try(
      "blank", [](const Bound&) { return std::string(); }, blank);
  trial.Try(
      "at the low bound again", [](const Bound& b) { return GeneralNumber(b.low); }, none);
}

}  // namespace merlu::test
