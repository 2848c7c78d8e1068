// What happens to a field on its way to the store and back.
#pragma once

#include <optional>
#include <string_view>

#include "sheets/spec.h"

namespace merlu {

// The number of a numeric text, Null for any other. With a thousands comma only the digits before it are stored.
Value FieldNumber(std::string_view text);
// The text unchanged, Null when empty.
Value FieldText(std::string_view text);
// Null for empty text, otherwise whether it is "YES" in any case.
Value FieldYesNo(std::string_view text);

// The column's form of a remote vent or flare ("Flare: F1" is FLAF1, anything else Null), and its item back.
Value StoredDestination(std::string_view item);
std::string DestinationItem(std::string_view stored);

// The text that a stored value shows as in the field. What the field cannot show in its own form (a text in
// the column of a number, or one that is no item of the list) shows as it is stored.
std::string ShownText(const FieldSpec& spec, const Value& stored);

// The value of a field as it is saved.
struct FieldContent {
  std::string_view text;
  bool checked = false;
  bool touched = false;  // the user has changed it since it was loaded
};
// What a save writes into the field's column; nothing when the column stays as it is: what the user has not changed,
// and a list whose text is no item with a code.
std::optional<Value> ValueToStore(const FieldSpec& spec, const Value& stored, const FieldContent& field);
// Sets the field's column in a cursor under change.
void StoreField(Cursor& row, const FieldSpec& spec, const Control& field);
// Shows the column. Null leaves a text as the clear left it; a value that the list lacks selects nothing.
void ShowField(Form& form, const FieldSpec& spec, const Value& value);

}  // namespace merlu
