// The sheets: of the equipment types, which session/types lists, and of the records above them.
#pragma once

#include <string_view>
#include <vector>

#include "session/types.h"
#include "sheets/spec.h"

namespace merlu {

// Every type's sheet, in the order of type numbers.
const std::vector<const SheetSpec*>& AllSheets();

// The sheet of that type; null for an unknown code.
const SheetSpec* FindSheet(std::string_view code);

// The sheet of a location's record: operator, structure, or equipment of its type; null for a survey, which has none.
const SheetSpec* SheetOf(const QCLocation& location);

}  // namespace merlu
