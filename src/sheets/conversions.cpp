#include "sheets/conversions.h"

#include <algorithm>

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

Value StoredDestination(std::string_view item) {
  // a vent is recognised by "Vent:", a flare by "Flare" alone
  if (item.starts_with("Vent:")) return std::string("VEN").append(item.substr(std::min<std::size_t>(6, item.size())));
  if (item.starts_with("Flare")) return std::string("FLA").append(item.substr(std::min<std::size_t>(7, item.size())));
  return Null{};
}

std::string DestinationItem(std::string_view stored) {
  if (stored.starts_with("VEN")) return std::string("Vent: ").append(stored.substr(3));
  if (stored.starts_with("FLA")) return std::string("Flare: ").append(stored.substr(3));
  return "";
}

namespace {

bool KeepsUnlisted(const FieldSpec& spec) {
  return spec.stored == Stored::kItemText && spec.shows_unlisted;
}

int ItemOfText(const FieldSpec& spec, std::string_view text) {
  for (std::size_t i = 0; i < spec.items.size(); ++i)
    if (spec.any_case ? EqualsIgnoringCase(spec.items[i].text, text) : spec.items[i].text == text)
      return static_cast<int>(i);
  return -1;
}

std::string MaskedText(const FieldSpec& spec, const std::string& stored) {
  if (spec.mask.empty() || (!stored.empty() && !FitsMask(spec.mask, stored))) return stored;
  return Masked(spec.mask, stored);
}

// Item of a coded or text list for a stored value.
int ItemFor(const FieldSpec& spec, const Value& value) {
  int index = -1;
  if (!IsNull(value) && KeepsUnlisted(spec))
    index = ItemOfText(spec, NullToEmpty(value));
  else if (!IsNull(value))
    index = IndexOf(spec, NullToEmpty(value), spec.stored == Stored::kCode ? &Item::code : &Item::text);
  const bool known = index >= 0 && (spec.known_items < 0 || index < spec.known_items);
  return known ? index : spec.fallback;
}

// Whether the field can show the value in its own form.
bool Fits(const FieldSpec& spec, const Value& stored) {
  if (IsNull(stored)) return true;
  const auto* text = std::get_if<std::string>(&stored);
  if (text != nullptr && text->empty()) return true;  // a blank field
  switch (spec.stored) {
    case Stored::kNumber:
    case Stored::kComputed: return text == nullptr || IsNumericText(*text);
    case Stored::kYesNo: return text == nullptr || spec.kind == Kind::kOption;
    case Stored::kItemText: return !KeepsUnlisted(spec) || ItemOfText(spec, NullToEmpty(stored)) >= 0;
    default: return true;
  }
}

// Saving one field must not change imported values of the others: neither a text that the field has no form for, nor
// the last digits of a number, nor the case of an item.
bool StaysAsStored(const FieldSpec& spec, const Value& stored, const FieldContent& field) {
  const bool by_text = spec.stored == Stored::kNumber || spec.stored == Stored::kComputed ||
                       (spec.stored == Stored::kYesNo && spec.kind == Kind::kList) || KeepsUnlisted(spec);
  if (!by_text || !spec.loads || IsNull(stored)) return false;
  if (!field.text.empty() && field.text == ShownText(spec, stored)) return true;
  return spec.stored != Stored::kComputed && !field.touched && !Fits(spec, stored);
}

}  // namespace

std::string ShownText(const FieldSpec& spec, const Value& stored) {
  if (!Fits(spec, stored)) return NullToEmpty(stored);
  const auto item = [&](int index) {
    return index < 0 ? std::string() : spec.items[static_cast<std::size_t>(index)].text;
  };
  switch (spec.stored) {
    case Stored::kItemText:
      return spec.free_text && !IsNull(stored) ? NullToEmpty(stored) : item(ItemFor(spec, stored));
    case Stored::kCode: return item(ItemFor(spec, stored));
    case Stored::kYesNo: return NullToEmpty(stored).empty() ? "" : ToNumber(stored) != 0 ? "Yes" : "No";
    case Stored::kDestination: return DestinationItem(NullToEmpty(stored));
    case Stored::kText: return MaskedText(spec, NullToEmpty(stored));
    case Stored::kNone: return "";
    default: return NullToEmpty(stored);
  }
}

std::optional<Value> ValueToStore(const FieldSpec& spec, const Value& stored, const FieldContent& field) {
  if (StaysAsStored(spec, stored, field)) return std::nullopt;
  switch (spec.stored) {
    case Stored::kNumber:
    case Stored::kComputed: return FieldNumber(field.text);
    case Stored::kText:
    case Stored::kItemText: return FieldText(field.text);
    case Stored::kYesNo: return spec.kind == Kind::kOption ? Value(field.checked) : FieldYesNo(field.text);
    case Stored::kDestination: return StoredDestination(field.text);
    case Stored::kCode: {
      const int index = IndexOf(spec, field.text, &Item::text);
      if (index < 0) return std::nullopt;
      return spec.items[static_cast<std::size_t>(index)].code;
    }
    case Stored::kNone: break;
  }
  return std::nullopt;
}

void StoreField(Cursor& row, const FieldSpec& spec, const Control& field) {
  const std::optional<Value> value =
      ValueToStore(spec, row.Field(spec.column), {field.text, field.checked, field.touched});
  if (value) row.SetField(spec.column, *value);
}

namespace {

void ShowUnlisted(Control& list, const Value& value) {
  list.index = -1;
  list.text = NullToEmpty(value);
}

void ShowYesNo(Form& form, const FieldSpec& spec, const Value& value) {
  if (spec.kind == Kind::kOption)
    form.At(spec.control).checked = ToNumber(value) != 0;
  else if (Fits(spec, value))
    SelectItem(form, spec.control, NullToEmpty(value).empty() ? -1 : ToNumber(value) != 0 ? 0 : 1);
  else
    ShowUnlisted(form.At(spec.control), value);
}

}  // namespace

void ShowField(Form& form, const FieldSpec& spec, const Value& value) {
  form.At(spec.control).touched = false;
  switch (spec.stored) {
    case Stored::kNumber:
    case Stored::kComputed:
    case Stored::kText:
      if (!IsNull(value)) form.At(spec.control).text = ShownText(spec, value);
      return;
    case Stored::kItemText:
      if (spec.free_text && !IsNull(value)) return SelectText(form, spec.control, NullToEmpty(value));
      if (!Fits(spec, value)) return ShowUnlisted(form.At(spec.control), value);
      return SelectItem(form, spec.control, ItemFor(spec, value));
    case Stored::kCode: return SelectItem(form, spec.control, ItemFor(spec, value));
    case Stored::kYesNo: return ShowYesNo(form, spec, value);
    case Stored::kDestination: return SelectText(form, spec.control, DestinationItem(NullToEmpty(value)));
    case Stored::kNone:
      if (!spec.column.empty()) form.At(spec.control).text = NullToEmpty(value);
      return;
  }
}

}  // namespace merlu
