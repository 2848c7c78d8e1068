// Compressors: a type that the program does not have, as its author would add it.
#include "extensions.h"
#include "rules/checks.h"
#include "sheets/units.h"

namespace merlu {

namespace {

SheetSpec Compressor() {
  SheetSpec sheet;
  sheet.type = "COM";
  sheet.number = 17;
  sheet.letters = "COM";
  sheet.title = "Compressor";
  sheet.edit_title = "Compressor - EDIT DATA";
  sheet.pages = {"General Information", "QC Results"};
  sheet.focus_actv = "txtCOM_HrsOperated";
  sheet.focus_desc = "txtCOM_Model";
  sheet.Add(0, "Compressor",
            {
                Text(In::kDesc, "txtCOM_Model", "Model No.:", "Model No.", "MODEL"),
                Number(In::kActv, "txtCOM_HrsOperated", "Hours Operated (hrs):", "Hours Operated", "OP_HR", "hrs"),
            });
  sheet.rules = {{"CheckCOMFields",
                  {
                      {1, In::kDesc, "txtCOM_Model", Required(Marks::kEither)},
                      {2, In::kActv, "txtCOM_HrsOperated", RequiredRange(0, 744)},
                  }}};
  return sheet;
}

}  // namespace

const SheetSpec& TARNE_COM() {
  static const SheetSpec sheet = Compressor();
  return sheet;
}

}  // namespace merlu
