#include "rules/checks.h"

#include <algorithm>

#include "base/numbers.h"

namespace merlu {
namespace {

CheckSpec WithBounds(std::string name, double low, double high, std::function<void(Judging&)> run) {
  CheckSpec check{std::move(name), std::move(run)};
  check.low = low;
  check.high = high;
  check.has_low = check.has_high = true;
  check.expected = GeneralNumber(low) + " to " + GeneralNumber(high);
  return check;
}

// A check with bounds that leaves a blank field alone.
CheckSpec IfFilled(std::string name, double low, double high, std::function<void(Judging&)> run) {
  CheckSpec check = WithBounds(std::move(name), low, high, std::move(run));
  check.only_if_filled = true;
  return check;
}

CheckSpec Requirement(std::string name, std::function<void(Judging&)> run) {
  CheckSpec check{std::move(name), std::move(run)};
  check.expected = "required";
  return check;
}

// The comparison alone, in single precision.
bool IsOverTotal(const Judging& j, Total which) {
  const auto total = static_cast<float>(j.context().totals[static_cast<std::size_t>(which)]);
  return static_cast<float>(j.Number()) > total && RoundHalfToEven(static_cast<double>(total)) != 0;
}

// A filled field in its range and within the structure's total; true when it failed.
bool FailsRangeOrTotal(Judging& j, double low, double high, const std::string& range_text, Total total,
                       const std::string& text) {
  bool failed = JudgeRange(j, low, high, range_text);
  if (j.HasMonth()) {
    const bool over = IsOverTotal(j, total);
    j.Say(over, text);
    failed = failed || over;
  }
  return failed;
}

void JudgeTotal(Judging& j, Total total, const std::string& text) {
  const bool failed = IsOverTotal(j, total);
  j.Say(failed, text);
  if (failed) j.Mark(Mark::kFlag);
}

}  // namespace

bool IsFilled(std::string_view text) {
  return text.find_first_not_of(' ') != std::string_view::npos;
}

bool HasTooFewDigits(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }) < 10;
}

std::string RangeText(double low, double high) {
  return "Value not in expected range (" + GeneralNumber(low) + " to " + GeneralNumber(high) + ")";
}

std::string MinText(float minimum) {
  return "Value under minimum of " + GeneralNumber(minimum);
}

bool JudgeRequired(Judging& j) {
  const bool failed = !j.IsFilled();
  j.Say(failed, finding::kBlank);
  return failed;
}

bool JudgeRange(Judging& j, double low, double high, const std::string& range_text) {
  const double number = j.Number();
  const bool failed = number > high || number < low;
  j.Say(failed, range_text);
  return failed;
}

bool JudgeRequiredRange(Judging& j, double low, double high, const std::string& range_text) {
  const bool filled = j.IsFilled();
  const double number = filled ? j.Number() : 0;
  const bool outside = filled && (number > high || number < low);
  if (!filled) {
    j.Say(true, finding::kBlank);
  } else if (outside) {
    j.Withdraw(finding::kBlank);
    j.Say(true, range_text);
  } else {
    j.Withdraw(finding::kBlank, range_text);
  }
  j.MarkEither(!filled || outside);
  return !filled || outside;
}

CheckSpec RequiredRange(double low, double high) {
  return WithBounds("CheckRequiredRange", low, high,
                    [low, high, text = RangeText(low, high)](Judging& j) { JudgeRequiredRange(j, low, high, text); });
}

CheckSpec Required(Marks marks) {
  return Requirement("CheckRequired", [marks](Judging& j) {
    const bool failed = JudgeRequired(j);
    if (failed || marks == Marks::kEither) j.MarkEither(failed);
  });
}

CheckSpec RequiredMarked() {
  return Requirement("CheckRequiredMarked", [](Judging& j) { j.MarkEither(JudgeRequired(j)); });
}

CheckSpec RangeIfFilled(double low, double high) {
  return IfFilled("CheckRange", low, high, [low, high, text = RangeText(low, high)](Judging& j) {
    if (JudgeRange(j, low, high, text)) j.Mark(Mark::kFlag);
  });
}

CheckSpec RequiredRangeIfFilled(double low, double high) {
  return IfFilled("CheckRequiredRange", low, high,
                  [low, high, text = RangeText(low, high)](Judging& j) { JudgeRequiredRange(j, low, high, text); });
}

CheckSpec RangeIfFilledMarked(double low, double high) {
  return IfFilled("CheckRange", low, high, [low, high, text = RangeText(low, high)](Judging& j) {
    j.MarkEither(JudgeRange(j, low, high, text));
  });
}

CheckSpec AtLeast(float minimum) {
  CheckSpec check{"CheckMin", [minimum, text = MinText(minimum)](Judging& j) {
                    bool failed = JudgeRequired(j);
                    if (!failed) {
                      failed = static_cast<float>(j.Number()) < minimum;
                      j.Say(failed, text);
                    }
                    j.MarkEither(failed);
                  }};
  check.low = static_cast<double>(minimum);
  check.has_low = true;
  check.expected = "at least " + GeneralNumber(minimum);
  return check;
}

CheckSpec OnlyWithdraws() {
  return {"none", [](Judging&) {}};
}

CheckSpec EmptyUnlessNumeric() {
  return LooksWhen(IsNotNumeric(kTheField), {"EmptyUnlessNumeric", [](Judging& j) { j.Become(""); }});
}

CheckSpec NotOver(const std::string& other, const std::string& text) {
  const auto check = [text](Judging& j) {
    const bool failed = WholeNumber(j.Text()) > WholeNumber(j.view().Text(j.Other(0)));
    j.Say(failed, text);
    if (failed) j.Mark(Mark::kFlag);
  };
  return LooksWhen(Both(IsFilledIn(kTheField), IsFilledIn(other)), Own("NotOver " + other, text, {other}, check));
}

CheckSpec Own(const std::string& name, const std::string& text, std::vector<std::string> reads,
              std::function<void(Judging&)> run) {
  CheckSpec check{name, std::move(run)};
  check.text = text;
  check.reads = std::move(reads);
  return check;
}

CheckSpec LooksWhen(const Condition& condition, CheckSpec check) {
  check.looks_when = condition.holds;
  return check;
}

CheckSpec FailsWhen(const Condition& condition, CheckSpec check) {
  check.fails_when = condition.holds;
  return check;
}

CheckSpec WithMonth(CheckSpec check) {
  check.needs_month = true;
  return check;
}

CheckSpec PassedUnless(const Condition& condition, CheckSpec check) {
  check.passed_unless = condition.holds;
  return check;
}

CheckSpec WithinStructureTotal(const std::string& text, Total total) {
  const auto check = [text, total](Judging& j) { JudgeTotal(j, total, text); };
  return WithMonth(Own("WithinStructureTotal", text, {}, check));
}

CheckSpec WithinStructureTotal(const std::string& text, const std::string& list,
                               std::vector<std::pair<std::string, Total>> totals) {
  const auto check = [text, totals = std::move(totals)](Judging& j) {
    const std::string& chosen = j.view().Text(j.Other(0));
    const auto found =
        std::find_if(totals.begin(), totals.end(), [&](const auto& total) { return total.first == chosen; });
    JudgeTotal(j, found == totals.end() ? Total::kNone : found->second, text);
  };
  return WithMonth(Own("WithinStructureTotal", text, {list}, check));
}

CheckSpec RequiredRangeWithinTotal(double low, double high, Total total, const std::string& text) {
  CheckSpec check = WithBounds(std::string("RequiredRangeWithinTotal ") + ColumnOf(total), low, high,
                               [=, range_text = RangeText(low, high)](Judging& j) {
                                 bool failed = JudgeRequired(j);
                                 if (j.IsFilled())
                                   failed = FailsRangeOrTotal(j, low, high, range_text, total, text) || failed;
                                 j.MarkEither(failed);
                               });
  check.text = text;
  return check;
}

CheckSpec RangeWithinTotalIfFilled(double low, double high, Total total, const std::string& text) {
  CheckSpec check = IfFilled(std::string("RangeWithinTotal ") + ColumnOf(total), low, high,
                             [=, range_text = RangeText(low, high)](Judging& j) {
                               JudgeRequired(j);
                               j.MarkEither(FailsRangeOrTotal(j, low, high, range_text, total, text));
                             });
  check.text = text;
  return check;
}

}  // namespace merlu
