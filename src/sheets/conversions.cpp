#include "sheets/conversions.h"

#include "base/numbers.h"
#include "base/text.h"

namespace merlu {
namespace {

int IndexOf(const FieldSpec& spec, std::string_view text, std::string Item::*part) {
  for (std::size_t i = 0; i < spec.items.size(); ++i)
    if (spec.items[i].*part == text) return static_cast<int>(i);
  return -1;
}

}  // namespace

Value FieldNumber(std::string_view text) {
  if (!IsNumericText(text)) return Null{};
  return LeadingNumber(text);
}

Value FieldText(std::string_view text) {
  if (text.empty()) return Null{};
  return std::string(text);
}

Value FieldYesNo(std::string_view text) {
  if (text.empty()) return Null{};
  return Upper(text) == "YES";
}

void StoreField(Cursor& row, const FieldSpec& spec, const Control& field) {
  switch (spec.stored) {
    case Stored::kNumber:
    case Stored::kComputed: return row.SetField(spec.column, FieldNumber(field.text));
    case Stored::kText:
    case Stored::kItemText: return row.SetField(spec.column, FieldText(field.text));
    case Stored::kYesNo: return row.SetField(spec.column, FieldYesNo(field.text));
    case Stored::kCode: {
      const int index = IndexOf(spec, field.text, &Item::text);
      if (index >= 0) row.SetField(spec.column, spec.items[static_cast<std::size_t>(index)].code);
      return;
    }
    case Stored::kDestination:
    case Stored::kNone: return;
  }
}

void ShowField(Form& form, const FieldSpec& spec, const Value& value) {
  switch (spec.stored) {
    case Stored::kNumber:
    case Stored::kComputed:
    case Stored::kText:
      if (!IsNull(value)) form.At(spec.control).text = NullToEmpty(value);
      return;
    case Stored::kItemText:
      if (!IsNull(value)) SelectText(form, spec.control, NullToEmpty(value));
      return;
    case Stored::kYesNo: {
      const bool known = !IsNull(value);
      return SelectItem(form, spec.control, known ? (ToNumber(value) != 0 ? 0 : 1) : -1);
    }
    case Stored::kCode:
      return SelectItem(form, spec.control, IsNull(value) ? -1 : IndexOf(spec, NullToEmpty(value), &Item::code));
    case Stored::kDestination:
    case Stored::kNone: return;
  }
}

}  // namespace merlu
