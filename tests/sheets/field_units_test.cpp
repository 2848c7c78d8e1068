#include <gtest/gtest.h>

#include "entry/month_grid.h"
#include "sheets/operator.h"
#include "sheets/sheet_form.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

std::vector<const SheetSpec*> Sheets() {
  std::vector<const SheetSpec*> sheets = AllSheets();
  sheets.insert(sheets.end(), {&StructureSheet(), &OperatorSheet()});
  return sheets;
}

// The words in the first brackets of a caption or heading.
std::string InBrackets(const std::string& text) {
  const std::size_t open = text.find('('), close = text.find(')');
  return open < close && close != std::string::npos ? text.substr(open + 1, close - open - 1) : "";
}

TEST(FieldUnits, are_what_the_captions_of_numbers_show_in_brackets) {
  int shown = 0, unseen = 0;
  for (const SheetSpec* sheet : Sheets())
    for (const FieldSpec& field : sheet->fields) {
      const bool number = field.stored == Stored::kNumber || field.stored == Stored::kComputed;
      const std::string in_caption = InBrackets(field.caption);
      if (!number) {
        EXPECT_EQ(field.unit, "") << field.control;
      } else if (!in_caption.empty()) {
        EXPECT_EQ(field.unit, in_caption) << field.control;
      } else if (!field.caption.empty() && !field.unit.empty()) {
        EXPECT_EQ(field.unit, InBrackets(field.block)) << field.control << " has a unit that the sheet does not show";
      }
      if (!field.unit.empty()) ++(in_caption.empty() ? unseen : shown);
    }
  EXPECT_GT(shown, 240);
  EXPECT_EQ(unseen, 14);  // the composition of the amine unit's gas, and the horsepower on diesel
}

TEST(FieldUnits, go_with_the_fields_onto_the_sheets) {
  TestRun run;
  run.StartWith("FLA", "F1");
  int units = 0;
  for (const SheetSpec* sheet : Sheets()) {
    const Form& form = SheetForm(run.s, *sheet);
    for (const FieldSpec& field : sheet->fields) {
      EXPECT_EQ(form.At(field.control).unit, field.unit) << field.control;
      units += field.unit.empty() ? 0 : 1;
    }
  }
  EXPECT_GT(units, 250);
}

TEST(FieldUnits, go_with_the_fields_into_the_grid) {
  TestRun run;
  run.StartWith("FLA", "F1");
  MonthGrid grid(run.s);
  grid.ShowMonth(&TARNE_FLA(), 1);
  const GridColumn& hours = grid.Columns().at(static_cast<std::size_t>(grid.FindColumn("txtFLA_HrsOperated")));
  EXPECT_EQ(hours.caption, "Hours Operated (hrs), including upsets");
  EXPECT_EQ(hours.unit, "hrs");
}

}  // namespace
}  // namespace merlu::test
