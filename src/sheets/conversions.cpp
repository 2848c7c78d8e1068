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
  // a vent is told by its word and colon, a flare by its word alone
  if (item.starts_with("Vent:")) return std::string("VEN").append(item.substr(std::min<std::size_t>(6, item.size())));
  if (item.starts_with("Flare")) return std::string("FLA").append(item.substr(std::min<std::size_t>(7, item.size())));
  return Null{};
}

std::string DestinationItem(std::string_view stored) {
  if (stored.starts_with("VEN")) return std::string("Vent: ").append(stored.substr(3));
  if (stored.starts_with("FLA")) return std::string("Flare: ").append(stored.substr(3));
  return "";
}

void StoreField(Cursor& row, const FieldSpec& spec, const Control& field) {
  switch (spec.stored) {
    case Stored::kNumber:
    case Stored::kComputed: return row.SetField(spec.column, FieldNumber(field.text));
    case Stored::kText:
    case Stored::kItemText: return row.SetField(spec.column, FieldText(field.text));
    case Stored::kYesNo:
      return row.SetField(spec.column, spec.kind == Kind::kOption ? Value(field.checked) : FieldYesNo(field.text));
    case Stored::kDestination: return row.SetField(spec.column, StoredDestination(field.text));
    case Stored::kCode: {
      const int index = IndexOf(spec, field.text, &Item::text);
      if (index >= 0) row.SetField(spec.column, spec.items[static_cast<std::size_t>(index)].code);
      return;
    }
    case Stored::kNone: return;
  }
}

namespace {

// Item of a coded or text list for a stored value.
int ItemFor(const FieldSpec& spec, const Value& value) {
  int index = -1;
  if (!IsNull(value))
    index = IndexOf(spec, NullToEmpty(value), spec.stored == Stored::kCode ? &Item::code : &Item::text);
  const bool known = index >= 0 && (spec.known_items < 0 || index < spec.known_items);
  return known ? index : spec.fallback;
}

void ShowYesNo(Form& form, const FieldSpec& spec, const Value& value) {
  if (spec.kind == Kind::kOption)
    form.At(spec.control).checked = ToNumber(value) != 0;
  else
    SelectItem(form, spec.control, IsNull(value) ? -1 : ToNumber(value) != 0 ? 0 : 1);
}

}  // namespace

std::string ShownText(const FieldSpec& spec, const Value& value) {
  const auto item = [&](int index) { return index < 0 ? std::string() : spec.items[static_cast<std::size_t>(index)].text; };
  switch (spec.stored) {
    case Stored::kItemText:
      if (spec.free_text && !IsNull(value)) return NullToEmpty(value);
      if (const int index = ItemFor(spec, value); index >= 0 || !spec.shows_unlisted) return item(index);
      return NullToEmpty(value);
    case Stored::kCode: return item(ItemFor(spec, value));
    case Stored::kYesNo: return IsNull(value) ? "" : item(ToNumber(value) != 0 ? 0 : 1);
    case Stored::kDestination: return DestinationItem(NullToEmpty(value));
    case Stored::kNone: return "";
    default: return NullToEmpty(value);
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
      if (spec.free_text && !IsNull(value)) return SelectText(form, spec.control, NullToEmpty(value));
      SelectItem(form, spec.control, ItemFor(spec, value));
      if (spec.shows_unlisted && form.At(spec.control).index < 0) form.At(spec.control).text = NullToEmpty(value);
      return;
    case Stored::kCode: return SelectItem(form, spec.control, ItemFor(spec, value));
    case Stored::kYesNo: return ShowYesNo(form, spec, value);
    case Stored::kDestination: return SelectText(form, spec.control, DestinationItem(NullToEmpty(value)));
    case Stored::kNone: return;
  }
}

}  // namespace merlu
