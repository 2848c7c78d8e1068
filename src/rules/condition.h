// Conditions as data: what is tested, from which both the test and its words are made.
#pragma once

#include <string>
#include <vector>

#include "rules/record_view.h"

namespace merlu {

// A test of a record's fields. Without a test it always holds.
class Test {
 public:
  enum class Kind { kAlways, kReads, kReadsNone, kChecked, kUnchecked, kFilled, kOverZero, kBoth, kEither };

  Test() = default;
  Test(Kind kind, std::string field, std::vector<std::string> texts = {})
      : kind_(kind), field_(std::move(field)), texts_(std::move(texts)) {}
  Test(Kind kind, Test a, Test b) : kind_(kind), parts_{std::move(a), std::move(b)} {}

  explicit operator bool() const { return kind_ != Kind::kAlways; }
  bool operator()(const RecordView& view) const;
  bool operator()(const Form& form) const;
  std::string Words() const;

  // Looks the fields up once, for the views of those fields only.
  void Resolve(const RecordFields& fields);
  // Marks the fields that the test reads.
  void MarkRead(std::vector<bool>& read) const;

 private:
  template <typename Record>
  bool Holds(const Record& record) const;

  Kind kind_ = Kind::kAlways;
  std::string field_;
  int place_ = -1;
  std::vector<std::string> texts_;
  std::vector<Test> parts_;
};

// A test with its words for the reader.
struct Condition {
  Condition() = default;
  Condition(Test test) : words(test.Words()), holds(std::move(test)) {}  // NOLINT: a test is a condition

  std::string words;
  Test holds;
};

// The text of the list, or of any field, is one of the texts, or none of them.
Condition Reads(const std::string& list, std::vector<std::string> texts);
Condition ReadsNone(const std::string& list, std::vector<std::string> texts);
Condition IsSet(const std::string& option);  // an option button or check box
Condition IsOff(const std::string& check_box);
Condition IsFilledIn(const std::string& field);
Condition IsOverZero(const std::string& field);  // and filled
Condition Both(const Condition& a, const Condition& b);
Condition Either(const Condition& a, const Condition& b);

}  // namespace merlu
