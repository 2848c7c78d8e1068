#include "bounds.h"

#include <gtest/gtest.h>

#include "base/numbers.h"

namespace merlu::test {
namespace {

class Trial {
 public:
  explicit Trial(const BoundCase& bound_case) : case_(bound_case) {
    run_.StartWith(case_.type, "X1");
    if (!case_.description.empty()) run_.Keep(case_.description);
    run_.GoTo(case_.type, "X1", case_.mode);
    run_.Click("cmdEdit");
    run_.Put(case_.base);
  }

  // Sets every field by its bound, runs, and compares the field's finding with what is expected.
  template <typename ValueOf, typename Expected>
  void Try(const char* what, ValueOf value_of, Expected expected) {
    for (const auto* list : {&case_.required, &case_.if_filled})
      for (const Bound& bound : *list) run_.Set(bound.control, value_of(bound));
    run_.Click("cmdQC");
    run_.TakeBoxes();
    for (const auto* list : {&case_.required, &case_.if_filled})
      for (const Bound& bound : *list) {
        const bool required = list == &case_.required;
        EXPECT_EQ(run_.Finding(bound.tag, mode_), expected(bound, required))
            << case_.type << " " << bound.control << " " << what;
      }
  }

 private:
  BoundCase case_;
  TestRun run_;
  std::string mode_ = case_.mode == Mode::kActv ? "EditMode='ACTV'" : "EditMode='DESC'";
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
  // a blank that is not required is not looked at, so the finding from before stands
  trial.Try(
      "blank", [](const Bound&) { return std::string(); }, blank);
  trial.Try(
      "at the low bound again", [](const Bound& b) { return GeneralNumber(b.low); }, none);
}

}  // namespace merlu::test
