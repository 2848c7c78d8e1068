#include "rules/judge.h"

#include <algorithm>

namespace merlu {
namespace {

bool Looks(const CheckSpec& check, const RecordView& view, const Judging& judging) {
  if (check.only_if_filled && !judging.IsFilled()) return false;
  return check.looks_when(view) && (!check.needs_month || judging.HasMonth());
}

void JudgeRule(const Rule& rule, RecordView& view, const Context& context, Verdicts& verdicts) {
  Judging judging(rule, view, context, verdicts);
  if (rule.when.holds(view)) {
    if (!rule.check.passed_unless(view))
      judging.Mark(Mark::kPlain);
    else if (Looks(rule.check, view, judging))
      rule.check.run(judging);
  } else if (rule.otherwise == Otherwise::kWithdraw) {
    judging.WithdrawAny();
  } else if (rule.otherwise == Otherwise::kWithdrawBlank) {
    judging.Withdraw(finding::kBlank);
  } else if (rule.otherwise == Otherwise::kWithdrawOwn) {
    judging.Withdraw(rule.check.text);
  }
}

std::string_view TrimmedTag(std::string_view tag) {
  while (!tag.empty() && tag.back() == ' ') tag.remove_suffix(1);
  return tag;
}

void AddWords(std::string& words, const std::string& more) {
  if (!more.empty()) words += (words.empty() ? "" : " and ") + more;
}

char LowerLetter(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string CheckSpec::OwnConditions() const {
  std::string words = looks_when.Words();
  if (only_if_filled) AddWords(words, IsFilledIn(kTheField).Words());
  if (needs_month) AddWords(words, "the structure's month is found");
  AddWords(words, fails_when.Words());
  return words;
}

std::string Rule::When() const {
  std::string words = when.Words();
  AddWords(words, check.passed_unless.Words());
  return words;
}

RuleSet::RuleSet(std::vector<RecordField> fields, std::vector<RuleGroup> groups)
    : fields_(std::move(fields)), groups_(std::move(groups)) {
  read_desc_.resize(static_cast<std::size_t>(fields_.size()));
  read_actv_ = read_desc_;
  for (RuleGroup& group : groups_)
    for (Rule& rule : group.rules) {
      rule.field_index = fields_.At(rule.field);
      Test* const tests[] = {&rule.when.holds, &rule.check.passed_unless, &rule.check.looks_when,
                             &rule.check.fails_when};
      for (Test* test : tests) test->Resolve(fields_, rule.field_index);
      for (const std::string& name : rule.check.reads) rule.check.read_fields.push_back(fields_.At(name));
      for (const Mode mode : {Mode::kDesc, Mode::kActv}) {
        if (!RunsIn(rule.mode, mode)) continue;
        std::vector<bool>& read = mode == Mode::kActv ? read_actv_ : read_desc_;
        read[static_cast<std::size_t>(rule.field_index)] = true;
        for (const int field : rule.check.read_fields) read[static_cast<std::size_t>(field)] = true;
        for (const Test* test : tests) test->MarkRead(read);
      }
    }
}

void Judge(const RuleSet& rules, Mode mode, RecordView& view, const Context& context, Verdicts& verdicts) {
  verdicts.Clear();
  for (const RuleGroup& group : rules.groups()) {
    try {
      for (const Rule& rule : group.rules)
        if (RunsIn(rule.mode, mode)) JudgeRule(rule, view, context, verdicts);
    } catch (const Fault& fault) {
      verdicts.faults.push_back({verdicts.all.size(), fault});
    }
  }
}

Verdicts Judge(const RuleSet& rules, Mode mode, RecordView view, const Context& context) {
  Verdicts verdicts;
  Judge(rules, mode, view, context, verdicts);
  return verdicts;
}

std::vector<JudgedFinding> StandingFindings(const Verdicts& verdicts) {
  std::vector<JudgedFinding> standing;
  for (const Verdict& verdict : verdicts.all) {
    if (verdict.log == Verdict::Log::kNothing) continue;
    const bool raises = verdict.log == Verdict::Log::kRaise;
    if (!raises && standing.empty()) continue;
    const auto found = std::find_if(standing.begin(), standing.end(),
                                    [&](const JudgedFinding& other) { return IsSameTag(other.tag, verdict.tag); });
    if (raises) {
      const JudgedFinding raised{verdict.field, verdict.tag, verdict.text, verdict.rule->check.expected};
      if (found == standing.end())
        standing.push_back(raised);
      else if (found->text != verdict.text)
        *found = {raised.field, found->tag, raised.text, raised.expected};
      continue;
    }
    if (found != standing.end() && Withdraws(verdict, found->text)) standing.erase(found);
  }
  return standing;
}

bool Withdraws(const Verdict& verdict, std::string_view text) {
  return verdict.log == Verdict::Log::kWithdrawAny ||
         (verdict.log == Verdict::Log::kWithdraw &&
          (text == verdict.text || (!verdict.other_text.empty() && text == verdict.other_text)));
}

std::string_view ExpectedOf(const RuleSet& rules, std::string_view tag, std::string_view text) {
  for (const RuleGroup& group : rules.groups())
    for (const Rule& rule : group.rules) {
      if (!IsSameTag(rules.fields()[rule.field_index].tag, tag) || rule.check.expected.empty()) continue;
      const bool same = text == finding::kBlank || text == rule.check.text ||
                        text.find("(" + rule.check.expected + ")") != std::string_view::npos;
      if (same) return rule.check.expected;
    }
  return {};
}

bool IsSameTag(std::string_view a, std::string_view b) {
  a = TrimmedTag(a);
  b = TrimmedTag(b);
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return LowerLetter(x) == LowerLetter(y); });
}

void Judging::NeedContext() const {
  if (context_.unreadable) throw *context_.unreadable;
}

bool Judging::HasMonth() const {
  NeedContext();
  return context_.month_found;
}

Verdict& Judging::Add() {
  Verdict& verdict = verdicts_.all.emplace_back();
  verdict.rule = &rule_;
  verdict.field = rule_.field_index;
  verdict.tag = tag_.data() != nullptr ? tag_ : std::string_view(view_.fields()[rule_.field_index].tag);
  verdict.as_tip = as_tip_;
  return verdict;
}

void Judging::Say(bool failed, std::string_view text) {
  Verdict& verdict = Add();
  verdict.log = failed ? Verdict::Log::kRaise : Verdict::Log::kWithdraw;
  verdict.text = text;
}

void Judging::Withdraw(std::string_view text, std::string_view or_this) {
  Verdict& verdict = Add();
  verdict.log = Verdict::Log::kWithdraw;
  verdict.text = text;
  verdict.other_text = or_this;
}

void Judging::WithdrawAny() {
  Add().log = Verdict::Log::kWithdrawAny;
}

void Judging::Mark(merlu::Mark mark) {
  Verdict& verdict = verdicts_.all.size() > first_ ? verdicts_.all.back() : Add();
  verdict.mark = mark;
}

void Judging::Change(FieldChange change) {
  view_.SetText(change.field, change.text);
  Add().change = static_cast<int>(verdicts_.changes.size());
  verdicts_.changes.push_back(std::move(change));
}

void Judging::Become(std::string text) {
  Change({rule_.field_index, std::move(text), -1, ""});
}

void Judging::FallBack(int list, std::string text, int item, std::string message) {
  Change({list, std::move(text), item, std::move(message)});
}

}  // namespace merlu
