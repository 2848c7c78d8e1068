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

// What a field of texts, a list's or not, shows of its column.
std::string ShownText(const FieldSpec& spec, const Value& value);

// Sets the field's column in a cursor under change. A list whose text is no item with a code leaves the
// column as it was.
void StoreField(Cursor& row, const FieldSpec& spec, const Control& field);
// Shows the column. Null leaves a text as the clear left it; a value that the list lacks selects nothing.
void ShowField(Form& form, const FieldSpec& spec, const Value& value);

}  // namespace merlu
