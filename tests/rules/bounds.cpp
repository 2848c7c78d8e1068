#include "rules/bounds.h"

#include <gtest/gtest.h>

#include "base/numbers.h"

namespace merlu::test {
namespace {

// A record of the sheet, tried with one value after the other.
class Trial {
 public:
  explicit Trial(const BoundCase& bound_case) : case_(bound_case), record_(case_.type, case_.mode, case_.description) {
    record_.Put(case_.base);
    for (const std::string& option : case_.checked) record_.Check(option);
    if (case_.forgets) record_.ForgetBeforeEachRun();
  }

  // Sets every field by its bound, judges, and compares the field's finding with what is expected.
  template <typename ValueOf, typename Expected>
  void Try(const char* what, ValueOf value_of, Expected expected) {
    for (const auto* list : {&case_.required, &case_.if_filled})
      for (const Bound& bound : *list) record_.Set(bound.control, value_of(bound));
    record_.Run();
    for (const auto* list : {&case_.required, &case_.if_filled})
      for (const Bound& bound : *list) {
        const bool required = list == &case_.required;
        EXPECT_EQ(record_.Finding(bound.tag), expected(bound, required))
            << case_.type << " " << bound.control << " " << what;
      }
  }

 private:
  BoundCase case_;
  SheetRecord record_;
};

}  // namespace

std::string RangeFinding(double low, double high) {
  return "Value not in expected range (" + GeneralNumber(low) + " to " + GeneralNumber(high) + ")";
}

void TryBounds(const BoundCase& bound_case) {
  Trial trial(bound_case);
  const auto none = [](const Bound&, bool) { return std::string(); };
  const auto range = [](const Bound& bound, bool) { return RangeFinding(bound.low, bound.high); };
  // a blank that is not required is not checked, so the previous finding remains
  const auto blank = [&](const Bound& bound, bool required) {
    if (required) return std::string(kBlankFinding);
    return bound_case.forgets ? std::string() : RangeFinding(bound.low, bound.high);
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
  trial.Try(
      "blank", [](const Bound&) { return std::string(); }, blank);
  trial.Try(
      "at the low bound again", [](const Bound& b) { return GeneralNumber(b.low); }, none);
}

}  // namespace merlu::test
