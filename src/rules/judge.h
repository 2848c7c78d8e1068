// Rules judge a record: a view and its context in, verdicts out. Nothing is read, written, shown or shared, so
// records can be judged on many threads at once.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "rules/rule.h"

namespace merlu {

// The field's look after a rule: flagged; as an unflagged field (editable or read-only by the edit); as a field that
// is never editable.
enum class Mark { kUntouched, kFlag, kPlain, kFace };

// One result of a rule. A rule with several results makes several verdicts, in its order. The texts live as long as the
// rule set.
struct Verdict {
  enum class Log { kNothing, kRaise, kWithdraw, kWithdrawAny };

  const Rule* rule = nullptr;
  int field = -1;        // index in the record's fields
  std::string_view tag;  // that the finding is kept under
  Log log = Log::kNothing;
  std::string_view text;        // of the finding raised, or withdrawn when its text is this one ...
  std::string_view other_text;  // ... or this one, unless empty
  bool as_tip = true;           // a finding raised is the field's tip too
  Mark mark = Mark::kUntouched;
  int change = -1;  // what the rule changes in the record: number among the changes, or -1
};

// A field of the record that a rule gave another text.
struct FieldChange {
  int field = -1;  // index in the record's fields
  std::string text;
  int item = -1;        // of a list: select this item, as a user would; -1 sets the text alone
  std::string message;  // shown to the user
};

// A group of rules that ended with a fault; its earlier verdicts remain, and the next group was judged.
struct GroupFault {
  std::size_t before = 0;  // the fault came before the verdict of this number
  Fault fault;
};

struct Verdicts {
  std::vector<Verdict> all;  // in the order of the rules
  std::vector<FieldChange> changes;
  std::vector<GroupFault> faults;

  void Clear() {
    all.clear();
    changes.clear();
    faults.clear();
  }
};

// Judges the record by the rules of the mode. Changes that a rule makes are put into the view, so that later rules read
// them.
void Judge(const RuleSet& rules, Mode mode, RecordView& view, const Context& context, Verdicts& verdicts);
Verdicts Judge(const RuleSet& rules, Mode mode, RecordView view, const Context& context);

// Whether a verdict that withdraws takes a finding of that text away.
bool Withdraws(const Verdict& verdict, std::string_view text);

// A finding that remains after the verdicts, for a log that held none.
struct JudgedFinding {
  int field = -1;
  std::string_view tag, text, expected;
};
std::vector<JudgedFinding> StandingFindings(const Verdicts& verdicts);

// What the rule expects ("0 to 744") that raises this text under this tag; empty when there is no such rule, or it has
// no words for it.
std::string_view ExpectedOf(const RuleSet& rules, std::string_view tag, std::string_view text);

// Tags are equal without regard to case and to blanks at the end.
bool IsSameTag(std::string_view a, std::string_view b);

// A rule in the middle of its judgement: what a check is written with.
class Judging {
 public:
  Judging(const Rule& rule, RecordView& view, const Context& context, Verdicts& verdicts)
      : rule_(rule), view_(view), context_(context), verdicts_(verdicts), first_(verdicts.all.size()) {}

  // The rule's own field
  const std::string& Text() const { return view_.Text(rule_.field_index); }
  double Number() const { return view_.Number(rule_.field_index); }
  bool IsFilled() const { return view_.IsFilled(rule_.field_index); }
  bool IsNumeric() const { return view_.IsNumeric(rule_.field_index); }

  // Whether the check's condition to fail a value holds.
  bool MayFail() const { return rule_.check.fails_when(view_); }

  // The other fields that the check reads, by number
  int Other(std::size_t number) const { return rule_.check.read_fields[number]; }
  const RecordView& view() const { return view_; }
  const Context& context() const { return context_; }
  // Passes on the fault that reading the context met.
  void NeedContext() const;
  // The structure's month is there. Needs the context.
  bool HasMonth() const;

  // Raises the text, or withdraws it. It must outlive the verdicts.
  void Say(bool failed, std::string_view text);
  void Withdraw(std::string_view text, std::string_view or_this = {});
  void WithdrawAny();
  void Mark(merlu::Mark mark);
  void MarkEither(bool failed) { Mark(failed ? merlu::Mark::kFlag : merlu::Mark::kPlain); }
  void Become(std::string text);
  // Sets a list to the text, or to the item, and adds the message for the user.
  void FallBack(int list, std::string text, int item, std::string message);

  // The next ones are kept under another tag than the field's, and are no tip of it.
  void Under(std::string_view tag) { tag_ = tag; }
  void WithoutTip() { as_tip_ = false; }

 private:
  Verdict& Add();
  void Change(FieldChange change);

  const Rule& rule_;
  RecordView& view_;
  const Context& context_;
  Verdicts& verdicts_;
  std::size_t first_;
  std::string_view tag_;
  bool as_tip_ = true;
};

}  // namespace merlu
