#include "sheets/units.h"

namespace merlu {

const std::vector<const SheetSpec*>& AllSheets() {
  static const std::vector<const SheetSpec*> sheets = {
      &TARNE_AMI(), &TARNE_BOI(), &TARNE_DIE(), &TARNE_FLA(), &TARNE_FUG(), &TARNE_GLY(), &TARNE_JAC(), &TARNE_LOA(),
      &TARNE_NGE(), &TARNE_NGT(), &TARNE_STO(), &TARNE_VEN(), &TARNE_LOS(), &TARNE_MUD(), &TARNE_PNE(), &TARNE_PRE(),
  };
  return sheets;
}

const SheetSpec* FindSheet(std::string_view code) {
  for (const SheetSpec* sheet : AllSheets())
    if (sheet->type == code) return sheet;
  return nullptr;
}

}  // namespace merlu
