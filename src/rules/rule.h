// What a rule is: a field, a check, and the condition under which it runs. Rules are data; Judge (rules/judge.h)
// runs them, and the catalogue, the help and the rule reference print them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "rules/condition.h"
#include "rules/context.h"
#include "session/location.h"

namespace merlu {

// Texts of findings that more than one rule raises, and those that are kept for files of older versions.
namespace finding {
inline constexpr const char* kBlank = "Required field left blank";
inline constexpr const char* kRetiredSum = "Value exceeded by equipment sum";
}  // namespace finding

// The mode that a field belongs to, or that a rule runs in.
enum class In { kDesc, kActv, kBoth };

inline bool RunsIn(In rule, Mode mode) {
  return rule == In::kBoth || (rule == In::kActv) == (mode == Mode::kActv);
}

class Judging;  // rules/judge.h

// What a rule does with its field, and how the catalogue calls it.
struct CheckSpec {
  std::string name;
  std::function<void(Judging&)> run;
  double low = 0, high = 0;  // both inclusive
  bool has_low = false, has_high = false;
  bool only_if_filled = false;     // a blank field is not looked at
  Test looks_when;                 // the check is skipped while it does not hold
  bool needs_month = false;        // nor does it when the structure's month is not found
  Test fails_when;                 // while it does not hold the value passes
  std::string text;                // of the finding, for a check that is no primitive
  std::string expected;            // what the check expects of the value: "0 to 744", "at least 0", "required"
  std::vector<std::string> reads;  // the other fields that it looks at
  std::vector<int> read_fields;    // of `reads`: their indexes in the rule set's fields
  Test passed_unless;              // while it does not hold the field only looks passed, and its finding stays

  // The part of the condition that the check itself tests, in words.
  std::string OwnConditions() const;
};

// What a rule whose condition is false does about its field's finding.
enum class Otherwise {
  kWithdraw,       // withdraws it, whatever its text
  kNothing,        // leaves it
  kWithdrawBlank,  // withdraws it when its text is finding::kBlank
  kWithdrawOwn     // withdraws it when its text is that of the check
};

struct Rule {
  int order = 0;
  In mode = In::kDesc;
  std::string field;
  CheckSpec check;
  Condition when;
  Otherwise otherwise = Otherwise::kWithdraw;
  int field_index = -1;  // in the rule set's fields

  // When the rule judges its field, in words; the check may look further.
  std::string When() const;
};

struct RuleGroup {
  std::string name;
  std::vector<Rule> rules;
};

// The rules of one kind of record with the fields that they refer to: their names looked up once. It stays where
// it is made, and outlives the views and verdicts made with it.
class RuleSet {
 public:
  RuleSet(std::vector<RecordField> fields, std::vector<RuleGroup> groups);
  RuleSet(const RuleSet&) = delete;
  RuleSet& operator=(const RuleSet&) = delete;

  const RecordFields& fields() const { return fields_; }
  const std::vector<RuleGroup>& groups() const { return groups_; }
  // Whether the rules of the mode read the field.
  bool Reads(Mode mode, int field) const {
    return (mode == Mode::kActv ? read_actv_ : read_desc_)[static_cast<std::size_t>(field)];
  }

 private:
  RecordFields fields_;
  std::vector<RuleGroup> groups_;
  std::vector<bool> read_desc_, read_actv_;
};

}  // namespace merlu
