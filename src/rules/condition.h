// Conditions as data: what is tested, from which both the test and its words are made.
#pragma once

#include <string>
#include <vector>

#include "rules/record_view.h"

namespace merlu {

// A test of a record's fields. Without a test it always holds.
class Test {
 public:
  enum class Kind {
    kAlways,
    kReads,
    kReadsNone,
    kChecked,
    kUnchecked,
    kFilled,
    kOverZero,
    kWithin,
    kNotNumeric,
    kBoth,
    kEither
  };

  Test() = default;
  Test(Kind kind, std::string field, std::vector<std::string> texts = {})
      : kind_(kind), field_(std::move(field)), texts_(std::move(texts)) {}
  Test(std::string field, double low, double high)
      : kind_(Kind::kWithin), field_(std::move(field)), low_(low), high_(high) {}
  Test(Kind kind, Test a, Test b) : kind_(kind), parts_{std::move(a), std::move(b)} {}

  explicit operator bool() const { return kind_ != Kind::kAlways; }
  bool operator()(const RecordView& view) const { return kind_ == Kind::kAlways || HoldsFor(view); }
  bool operator()(const Form& form) const;
  std::string Words() const;

  // Looks the fields up once, for the views of those fields only. `own` is the field of the rule.
  void Resolve(const RecordFields& fields, int own = -1);
  // Marks the fields that the test reads.
  void MarkRead(std::vector<bool>& read) const;

 private:
  bool HoldsFor(const RecordView& view) const;
  template <typename Record>
  bool Holds(const Record& record) const;

  Kind kind_ = Kind::kAlways;
  std::string field_;
  int index_ = -1;
  double low_ = 0, high_ = 0;
  std::vector<std::string> texts_;
  std::vector<Test> parts_;
};

// When a rule runs or a field is on. Its words for the reader are made from the test.
struct Condition {
  Condition() = default;
  Condition(Test test) : holds(std::move(test)) {}  // NOLINT: a test is a condition

  std::string Words() const { return holds.Words(); }

  Test holds;
};

// In the conditions of a check: the rule's own field.
inline constexpr const char* kTheField = "the field";

// The text of the list, or of any field, is one of the texts, or none of them.
Condition Reads(const std::string& list, std::vector<std::string> texts);
Condition ReadsNone(const std::string& list, std::vector<std::string> texts);
Condition IsSet(const std::string& option);  // an option button or check box
Condition IsOff(const std::string& check_box);
Condition IsFilledIn(const std::string& field);
Condition IsOverZero(const std::string& field);                         // and filled
Condition IsWithin(const std::string& field, double low, double high);  // both inclusive
Condition IsNotNumeric(const std::string& field);
Condition Both(const Condition& a, const Condition& b);
Condition Either(const Condition& a, const Condition& b);

}  // namespace merlu
