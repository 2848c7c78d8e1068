#include "rules/condition.h"

#include <algorithm>

#include "base/numbers.h"
#include "forms/form.h"

namespace merlu {
namespace {

// What a test asks of a record, of either make.
const std::string& TextOf(const RecordView& view, const std::string& field, int index) {
  return index >= 0 ? view.Text(index) : view.Text(field);
}
const std::string& TextOf(const Form& form, const std::string& field, int) {
  return form.At(field).text;
}
double NumberOf(const RecordView& view, const std::string& field, int index) {
  return index >= 0 ? view.Number(index) : view.Number(field);
}
double NumberOf(const Form& form, const std::string& field, int) {
  return LeadingNumber(form.At(field).text);
}
bool CheckedOf(const RecordView& view, const std::string& field, int index) {
  return index >= 0 ? view.IsChecked(index) : view.IsChecked(field);
}
bool CheckedOf(const Form& form, const std::string& field, int) {
  return form.At(field).checked;
}

std::string ListWords(const std::string& list, const char* verb, const std::vector<std::string>& texts) {
  std::string words = list + verb;
  for (std::size_t i = 0; i < texts.size(); ++i) words += (i == 0 ? "\"" : " or \"") + texts[i] + "\"";
  return words;
}

}  // namespace

template <typename Record>
bool Test::Holds(const Record& record) const {
  const auto text = [&]() -> const std::string& { return TextOf(record, field_, index_); };
  const auto reads = [&] { return std::find(texts_.begin(), texts_.end(), text()) != texts_.end(); };
  switch (kind_) {
    case Kind::kAlways: return true;
    case Kind::kReads: return reads();
    case Kind::kReadsNone: return !reads();
    case Kind::kChecked: return CheckedOf(record, field_, index_);
    case Kind::kUnchecked: return !CheckedOf(record, field_, index_);
    case Kind::kFilled: return text().find_first_not_of(' ') != std::string::npos;
    case Kind::kOverZero: return NumberOf(record, field_, index_) > 0;
    case Kind::kWithin: {
      const double number = NumberOf(record, field_, index_);
      return number >= low_ && number <= high_;
    }
    case Kind::kNotNumeric: return !IsNumericText(text());
    case Kind::kBoth: return parts_[0].Holds(record) && parts_[1].Holds(record);
    case Kind::kEither: return parts_[0].Holds(record) || parts_[1].Holds(record);
  }
  return true;
}

bool Test::HoldsFor(const RecordView& view) const {
  return Holds(view);
}

bool Test::operator()(const Form& form) const {
  return Holds(form);
}

std::string Test::Words() const {
  switch (kind_) {
    case Kind::kAlways: return "";
    case Kind::kReads: return ListWords(field_, " reads ", texts_);
    case Kind::kReadsNone: return ListWords(field_, " does not read ", texts_);
    case Kind::kChecked: return field_ + " is set";
    case Kind::kUnchecked: return field_ + " is off";
    case Kind::kFilled: return field_ + " is filled";
    case Kind::kOverZero: return field_ + " is filled and over 0";
    case Kind::kWithin: return field_ + " is within " + GeneralNumber(low_) + " to " + GeneralNumber(high_);
    case Kind::kNotNumeric: return field_ + " holds no number";
    case Kind::kBoth: return parts_[0].Words() + " and " + parts_[1].Words();
    case Kind::kEither: return "(" + parts_[0].Words() + ") or " + parts_[1].Words();
  }
  return "";
}

void Test::Resolve(const RecordFields& fields, int own) {
  if (!field_.empty()) index_ = field_ == kTheField ? own : fields.At(field_);
  for (Test& part : parts_) part.Resolve(fields, own);
}

void Test::MarkRead(std::vector<bool>& read) const {
  if (index_ >= 0) read[static_cast<std::size_t>(index_)] = true;
  for (const Test& part : parts_) part.MarkRead(read);
}

Condition Reads(const std::string& list, std::vector<std::string> texts) {
  return Test(Test::Kind::kReads, list, std::move(texts));
}

Condition ReadsNone(const std::string& list, std::vector<std::string> texts) {
  return Test(Test::Kind::kReadsNone, list, std::move(texts));
}

Condition IsSet(const std::string& option) {
  return Test(Test::Kind::kChecked, option);
}

Condition IsOff(const std::string& check_box) {
  return Test(Test::Kind::kUnchecked, check_box);
}

Condition IsFilledIn(const std::string& field) {
  return Test(Test::Kind::kFilled, field);
}

Condition IsOverZero(const std::string& field) {
  return Test(Test::Kind::kOverZero, field);
}

Condition IsWithin(const std::string& field, double low, double high) {
  return Test(field, low, high);
}

Condition IsNotNumeric(const std::string& field) {
  return Test(Test::Kind::kNotNumeric, field);
}

Condition Both(const Condition& a, const Condition& b) {
  return Test(Test::Kind::kBoth, a.holds, b.holds);
}

Condition Either(const Condition& a, const Condition& b) {
  return Test(Test::Kind::kEither, a.holds, b.holds);
}

}  // namespace merlu
