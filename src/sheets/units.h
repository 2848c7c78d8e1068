// The sheets of the equipment types, which session/types lists.
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

}  // namespace merlu
