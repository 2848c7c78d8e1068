#include "script/rule_reference.h"

#include "sheets/units.h"
#include "sheets/wording.h"

namespace merlu {
namespace {

// A text in a cell of a table.
std::string Cell(std::string text) {
  for (std::size_t at = 0; (at = text.find('|', at)) != std::string::npos; at += 2) text.insert(at, "\\");
  return text;
}

std::string Row(const std::vector<std::string>& cells) {
  std::string row = "|";
  for (const std::string& cell : cells) row += " " + Cell(cell) + " |";
  return row + "\n";
}

const char* When(In mode) {
  return mode == In::kActv ? "each month" : mode == In::kDesc ? "description" : "description and each month";
}

std::string Fields(const SheetSpec& sheet) {
  std::string text = Row({"Field", "Name in findings", "Entered", "Choices"}) + Row({"---", "---", "---", "---"});
  for (const FieldSpec& field : sheet.fields) {
    if (field.page == kOffPage) continue;
    std::string choices;
    for (const Item& item : field.items) choices += (choices.empty() ? "" : "; ") + item.text;
    text += Row({field.caption, field.tag, When(field.mode), choices});
  }
  return text;
}

std::string Rules(const SheetSpec& sheet) {
  std::string text = Row({"Field", "Held to", "When", "Checked"}) + Row({"---", "---", "---", "---"});
  for (const RuleGroup& group : sheet.rules)
    for (const Rule& rule : group.rules) {
      if (rule.check.name == "none") continue;
      text += Row({CaptionOf(sheet.fields, rule.field), DemandText(rule.check),
                   ConditionText(sheet.fields, rule.When(), {"*", "*"}), When(rule.mode)});
    }
  return text;
}

}  // namespace

std::string RuleReference() {
  std::string text =
      "# Rule reference\n\nEvery field of every equipment sheet and every rule that it is held to. This page is made "
      "from the\n"
      "tables that the program runs on, by `tools/make-docs`. Bounds are inclusive. A structure's total that is\n"
      "blank, or that rounds to 0, limits nothing.\n";
  for (const SheetSpec* sheet : AllSheets())
    text += "\n## " + sheet->title + " (" + sheet->type + ")\n\n" + Fields(*sheet) + "\n" + Rules(*sheet);
  return text;
}

}  // namespace merlu
