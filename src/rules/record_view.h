// A record as its rules read it: the texts of its fields and what is checked, as the record's sheet shows them.
// It is a plain copy: no form, no session, no store. A rule that empties or computes a text changes the view.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"

namespace merlu {

class Form;

// A field that rules refer to: its control, and the tag that its findings are kept under.
struct RecordField {
  std::string control;
  std::string tag;
};

// The fields of a kind of record in a fixed order, found by control name. One a kind of record, for all its views.
class RecordFields {
 public:
  explicit RecordFields(std::vector<RecordField> fields);

  int size() const { return static_cast<int>(fields_.size()); }
  const RecordField& operator[](int field) const { return fields_[static_cast<std::size_t>(field)]; }
  // Index of the control's field, without regard to case; -1 without one.
  int Find(std::string_view control) const;
  // The same; a programming error when there is none.
  int At(std::string_view control) const;

 private:
  std::vector<RecordField> fields_;
  std::unordered_map<std::string, int, TextHash, std::equal_to<>> by_lower_name_;
};

// Used by one thread at a time. `fields` outlives it.
class RecordView {
 public:
  explicit RecordView(const RecordFields& fields)
      : fields_(&fields), values_(static_cast<std::size_t>(fields.size())) {}

  const RecordFields& fields() const { return *fields_; }

  const std::string& Text(int field) const;
  // The number that the text begins with, 0 when there is none.
  double Number(int field) const;
  // Whether the text holds more than blanks.
  bool IsFilled(int field) const;
  bool IsNumeric(int field) const;
  bool IsChecked(int field) const { return At(field).checked; }

  const std::string& Text(std::string_view control) const { return Text(fields_->At(control)); }
  double Number(std::string_view control) const { return Number(fields_->At(control)); }
  bool IsFilled(std::string_view control) const { return IsFilled(fields_->At(control)); }
  bool IsChecked(std::string_view control) const { return IsChecked(fields_->At(control)); }

  void SetText(int field, std::string_view text);
  // The text of a number is made on demand.
  void SetNumber(int field, double number);
  void SetChecked(int field, bool checked) { At(field).checked = checked; }
  // Empties all fields.
  void Clear();

 private:
  struct Content {
    mutable std::string text;
    double number = 0;
    bool is_number = false;        // `number` is what was set
    mutable bool has_text = true;  // `text` is made
    bool checked = false;
  };
  const Content& At(int field) const { return values_[static_cast<std::size_t>(field)]; }
  Content& At(int field) { return values_[static_cast<std::size_t>(field)]; }

  const RecordFields* fields_;
  std::vector<Content> values_;
};

// The record as its form shows it.
RecordView ViewOfForm(const RecordFields& fields, const Form& form);

}  // namespace merlu
