#include "sheets/rules.h"

#include <algorithm>

#include "base/numbers.h"
#include "qc/checks.h"
#include "qc/qc_log.h"
#include "session/messages.h"
#include "session/records.h"

namespace merlu {
namespace {

CheckSpec WithBounds(std::string name, double low, double high, std::function<void(RuleRun&)> run) {
  CheckSpec check{std::move(name), std::move(run)};
  check.low = low;
  check.high = high;
  check.has_low = check.has_high = true;
  return check;
}

// A check with bounds that leaves a blank field alone.
CheckSpec IfFilled(std::string name, double low, double high, std::function<void(RuleRun&)> run) {
  CheckSpec check = WithBounds(std::move(name), low, high, [run = std::move(run)](RuleRun& r) {
    if (IsFilled(r.field)) run(r);
  });
  check.only_if_filled = true;
  return check;
}

bool IsOneOf(const Form& form, const std::string& list, const std::vector<std::string>& texts) {
  return std::find(texts.begin(), texts.end(), form.At(list).text) != texts.end();
}

std::string Words(const std::string& list, const char* verb, const std::vector<std::string>& texts) {
  std::string words = list + verb;
  for (std::size_t i = 0; i < texts.size(); ++i) words += (i == 0 ? "\"" : " or \"") + texts[i] + "\"";
  return words;
}

bool RunsIn(In rule, Mode mode) {
  return rule == In::kBoth || (rule == In::kActv) == (mode == Mode::kActv);
}

}  // namespace

CheckSpec RequiredRange(double low, double high) {
  return WithBounds("CheckRequiredRange", low, high,
                    [=](RuleRun& r) { CheckRequiredRange(r.s, r.location, r.field, low, high); });
}

CheckSpec Required(Marks marks) {
  return {"CheckRequired", [=](RuleRun& r) {
            const bool failed = CheckRequired(r.s, r.location, r.field);
            if (failed || marks == Marks::kEither) MarkField(r.s, failed, r.field);
          }};
}

CheckSpec RequiredMarked() {
  return {"CheckRequiredMarked", [](RuleRun& r) { CheckRequiredMarked(r.s, r.location, r.field); }};
}

CheckSpec RangeIfFilled(double low, double high) {
  return IfFilled("CheckRange", low, high, [=](RuleRun& r) {
    if (CheckRange(r.s, r.location, r.field, low, high)) MarkField(r.s, true, r.field);
  });
}

CheckSpec RequiredRangeIfFilled(double low, double high) {
  return IfFilled("CheckRequiredRange", low, high,
                  [=](RuleRun& r) { CheckRequiredRange(r.s, r.location, r.field, low, high); });
}

CheckSpec EmptyUnlessNumeric() {
  return When("the field's text is not numeric", {"EmptyUnlessNumeric", [](RuleRun& r) {
                                                    if (!IsNumericText(r.field.text)) r.field.text.clear();
                                                  }});
}

CheckSpec NotOver(const std::string& other, const std::string& text) {
  const auto check = [=](RuleRun& r) {
    const Control& limit = r.form.At(other);
    if (!IsFilled(r.field) || !IsFilled(limit)) return;
    const bool failed = WholeNumber(r.field.text) > WholeNumber(limit.text);
    Judge(r.s, r.location, r.field, failed, text);
    if (failed) MarkField(r.s, true, r.field);
  };
  return When("the field and " + other + " are filled", Own("NotOver " + other, text, check));
}

CheckSpec When(const std::string& words, CheckSpec check) {
  check.when = words;
  return check;
}

CheckSpec Own(const std::string& name, const std::string& text, std::function<void(RuleRun&)> run) {
  CheckSpec check{name, std::move(run)};
  check.text = text;
  return check;
}

bool ExceedsStructureTotal(Session& s, const std::string& column, const std::string& text) {
  const double stored = column.empty() ? 0 : ToNumber(s.At("PA_PLATFORM_ACTV").Field(column));
  const float total = static_cast<float>(stored);
  return static_cast<float>(LeadingNumber(text)) > total && RoundHalfToEven(total) != 0;
}

CheckSpec RangeIfFilledMarked(double low, double high) {
  return IfFilled("CheckRange", low, high,
                  [=](RuleRun& r) { MarkField(r.s, CheckRange(r.s, r.location, r.field, low, high), r.field); });
}

CheckSpec AtLeast(float minimum) {
  CheckSpec check{"CheckMin",
                  [=](RuleRun& r) { MarkField(r.s, CheckMin(r.s, r.location, r.field, minimum), r.field); }};
  check.low = minimum;
  check.has_low = true;
  return check;
}

CheckSpec OnlyWithdraws() {
  return {"none", [](RuleRun&) {}};
}

namespace {

// A filled field in its range and within the structure's total; true when it failed.
bool FailsRangeOrTotal(RuleRun& r, double low, double high, const std::string& column, const std::string& text) {
  bool failed = CheckRange(r.s, r.location, r.field, low, high);
  if (FindStructureRecord(r.s)) {
    const bool over = ExceedsStructureTotal(r.s, column, r.field.text);
    Judge(r.s, r.location, r.field, over, text);
    failed = failed || over;
  }
  return failed;
}

}  // namespace

CheckSpec RequiredRangeWithinTotal(double low, double high, const std::string& column, const std::string& text) {
  CheckSpec check = WithBounds("RequiredRangeWithinTotal " + column, low, high, [=](RuleRun& r) {
    bool failed = CheckRequired(r.s, r.location, r.field);
    if (IsFilled(r.field)) failed = FailsRangeOrTotal(r, low, high, column, text) || failed;
    MarkField(r.s, failed, r.field);
  });
  check.text = text;
  return check;
}

CheckSpec RangeWithinTotalIfFilled(double low, double high, const std::string& column, const std::string& text) {
  CheckSpec check = IfFilled("RangeWithinTotal " + column, low, high, [=](RuleRun& r) {
    CheckRequired(r.s, r.location, r.field);
    MarkField(r.s, FailsRangeOrTotal(r, low, high, column, text), r.field);
  });
  check.text = text;
  return check;
}

CheckSpec WithinStructureTotal(const std::string& text, std::function<std::string(const Form&)> column) {
  const auto check = [=](RuleRun& r) {
    if (!FindStructureRecord(r.s)) return;
    const bool failed = ExceedsStructureTotal(r.s, column(r.form), r.field.text);
    Judge(r.s, r.location, r.field, failed, text);
    if (failed) MarkField(r.s, true, r.field);
  };
  return When("the structure's month is found", Own("WithinStructureTotal", text, check));
}

Condition Reads(const std::string& list, std::vector<std::string> texts) {
  return {Words(list, " reads ", texts), [=](const Form& form) { return IsOneOf(form, list, texts); }};
}

Condition ReadsNone(const std::string& list, std::vector<std::string> texts) {
  return {Words(list, " does not read ", texts), [=](const Form& form) { return !IsOneOf(form, list, texts); }};
}

Condition Both(const Condition& a, const Condition& b) {
  return {a.words + " and " + b.words, [=](const Form& form) { return a.holds(form) && b.holds(form); }};
}

Condition Either(const Condition& a, const Condition& b) {
  return {"(" + a.words + ") or " + b.words, [=](const Form& form) { return a.holds(form) || b.holds(form); }};
}

void RunRules(Session& s, Form& form, QCLocation& location, const std::vector<RuleGroup>& groups) {
  for (const RuleGroup& group : groups) {
    // a fault ends its group, as one procedure; the next group runs
    OnSheet(s, [&] {
      for (const Rule& rule : group.rules) {
        if (!RunsIn(rule.mode, s.mode)) continue;
        RuleRun run{s, location, form, form.At(rule.field)};
        if (!rule.when.holds || rule.when.holds(form))
          rule.check.run(run);
        else if (rule.otherwise == Otherwise::kWithdraw)
          ClearQCField(s, location, run.field.tag);
        else if (rule.otherwise == Otherwise::kWithdrawBlank)
          ClearQCError(s, location, run.field.tag, finding::kBlank);
      }
    });
  }
}

}  // namespace merlu
