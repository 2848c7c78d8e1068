#include "rules/record_view.h"

#include <cmath>
#include <stdexcept>

#include "base/numbers.h"
#include "forms/form.h"

namespace merlu {
namespace {

// Whether the number is exactly its text of 15 digits, as numbers with few digits are.
bool SurvivesItsText(double number) {
  constexpr double kThousandths = 1000, kMost = 1e12;
  const double scaled = number * kThousandths;
  return std::abs(scaled) < kMost && std::nearbyint(scaled) == scaled && scaled / kThousandths == number;
}

}  // namespace

RecordFields::RecordFields(std::vector<RecordField> fields) : fields_(std::move(fields)) {
  for (std::size_t i = 0; i < fields_.size(); ++i)
    by_lower_name_.emplace(Lower(fields_[i].control), static_cast<int>(i));
}

int RecordFields::Find(std::string_view control) const {
  const auto found = by_lower_name_.find(Lower(control));
  return found == by_lower_name_.end() ? -1 : found->second;
}

int RecordFields::At(std::string_view control) const {
  const int field = Find(control);
  if (field < 0) throw std::logic_error("no field " + std::string(control));
  return field;
}

const std::string& RecordView::Text(int field) const {
  const Content& content = At(field);
  if (!content.has_text) {
    content.text = GeneralNumber(content.number);
    content.has_text = true;
  }
  return content.text;
}

double RecordView::Number(int field) const {
  const Content& content = At(field);
  return content.is_number && SurvivesItsText(content.number) ? content.number : LeadingNumber(Text(field));
}

bool RecordView::IsFilled(int field) const {
  const Content& content = At(field);
  return content.is_number || content.text.find_first_not_of(' ') != std::string::npos;
}

bool RecordView::IsNumeric(int field) const {
  const Content& content = At(field);
  return content.is_number ? std::isfinite(content.number) : IsNumericText(content.text);
}

void RecordView::SetText(int field, std::string_view text) {
  Content& content = At(field);
  content.text = text;
  content.is_number = false;
  content.has_text = true;
}

void RecordView::SetNumber(int field, double number) {
  Content& content = At(field);
  content.number = number;
  content.is_number = true;
  content.has_text = false;
}

void RecordView::Clear() {
  for (Content& content : values_) {
    content.text.clear();
    content.is_number = content.checked = false;
    content.has_text = true;
  }
}

RecordView ViewOfForm(const RecordFields& fields, const Form& form) {
  RecordView view(fields);
  for (int field = 0; field < fields.size(); ++field) {
    const Control& control = form.At(fields[field].control);
    view.SetText(field, control.text);
    view.SetChecked(field, control.checked);
  }
  return view;
}

}  // namespace merlu
