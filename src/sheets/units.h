// The sheets of the equipment types. Everything that dispatches on a type goes through this list; a further
// type is one file with its table and one row here.
#pragma once

#include <string_view>
#include <vector>

#include "sheets/spec.h"

namespace merlu {

const SheetSpec& TARNE_AMI();
const SheetSpec& TARNE_BOI();
const SheetSpec& TARNE_DIE();
const SheetSpec& TARNE_FLA();
const SheetSpec& TARNE_FUG();
const SheetSpec& TARNE_GLY();
const SheetSpec& TARNE_JAC();
const SheetSpec& TARNE_LOA();
const SheetSpec& TARNE_LOS();
const SheetSpec& TARNE_MUD();
const SheetSpec& TARNE_NGE();
const SheetSpec& TARNE_NGT();
const SheetSpec& TARNE_PNE();
const SheetSpec& TARNE_PRE();
const SheetSpec& TARNE_STO();
const SheetSpec& TARNE_VEN();

// Every type's sheet, in the order of type numbers.
const std::vector<const SheetSpec*>& AllSheets();

// The sheet of that type; null for an unknown code.
const SheetSpec* FindSheet(std::string_view code);

}  // namespace merlu
