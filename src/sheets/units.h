// The sheets of the equipment types. Everything that dispatches on a type goes through this list; a further
// type is one file with its table and one row here.
#pragma once

#include <string_view>
#include <vector>

#include "sheets/spec.h"

namespace merlu {

const SheetSpec& TARNE_FLA();
const SheetSpec& TARNE_VEN();
const SheetSpec& TARNE_BOI();

// Every type's sheet, in the order of type numbers. A type without a table of its own has the common
// controls of all sheets.
const std::vector<const SheetSpec*>& AllSheets();

// The sheet of that type; null for an unknown code.
const SheetSpec* FindSheet(std::string_view code);

// Whether the type has a table of its own.
bool HasOwnTable(const SheetSpec& sheet);

}  // namespace merlu
