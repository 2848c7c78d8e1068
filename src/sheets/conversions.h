// What happens to a field on its way to the store and back.
#pragma once

#include <string_view>

#include "sheets/spec.h"

namespace merlu {

// The number of a numeric text, Null for any other. A thousands comma is numeric, and only what stands
// before it is stored.
Value FieldNumber(std::string_view text);
// The text as it stands, Null when empty.
Value FieldText(std::string_view text);
// Null for empty text, otherwise whether it is "YES" in any case.
Value FieldYesNo(std::string_view text);

// The column's form of a remote vent or flare ("Flare: F1" is FLAF1, anything else Null), and its item back.
Value StoredDestination(std::string_view item);
std::string DestinationItem(std::string_view stored);

// The text that a stored value shows as in the field. What the field cannot show in its own form (a text in
// the column of a number, or one that is no item of the list) shows as it is stored.
std::string ShownText(const FieldSpec& spec, const Value& stored);

// Sets the field's column in a cursor under change. What the user has not changed stays as it is stored, and so
// does a list whose text is no item with a code.
void StoreField(Cursor& row, const FieldSpec& spec, const Control& field);
// Shows the column. Null leaves a text as the clear left it; a value that the list lacks selects nothing.
void ShowField(Form& form, const FieldSpec& spec, const Value& value);

}  // namespace merlu
