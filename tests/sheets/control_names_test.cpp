// Every name of a control that a sheet's table speaks of is on that sheet.
#include <gtest/gtest.h>

#include <set>

#include "sheets/sheet_form.h"
#include "sheets/structure.h"
#include "sheets/units.h"
#include "support/test_run.h"

namespace merlu::test {
namespace {

using Names = std::set<std::string>;

// The names in a condition's words: those that begin like a control's.
void AddWords(const std::string& words, Names& names) {
  static const std::set<std::string> kinds = {"txt", "cmb", "cbo", "chk", "opt"};
  for (std::size_t at = 0; at < words.size();) {
    const std::size_t end = std::min(words.find_first_of(" ()\"", at), words.size());
    if (const std::string word = words.substr(at, end - at); kinds.contains(word.substr(0, 3))) names.insert(word);
    at = end + 1;
  }
}

void AddRules(const std::vector<RuleGroup>& groups, Names& names) {
  for (const RuleGroup& group : groups)
    for (const Rule& rule : group.rules) {
      names.insert(rule.field);
      names.insert(rule.check.reads.begin(), rule.check.reads.end());
      AddWords(rule.When(), names);
      AddWords(rule.check.OwnConditions(), names);
    }
}

void AddFields(const std::vector<FieldSpec>& fields, Names& names) {
  for (const FieldSpec& field : fields) {
    names.insert({field.control, field.label, field.frame, field.note_label, field.destination});
    AddWords(field.kept_when.Words(), names);
    AddWords(field.shown_when.Words(), names);
  }
}

void ExpectThere(const Form& form, Names names) {
  names.erase("");
  EXPECT_GT(names.size(), 2u);
  for (const std::string& name : names) EXPECT_NE(form.Find(name), nullptr) << form.name() << " has no " << name;
}

class NamesOfSheet : public testing::TestWithParam<const SheetSpec*> {};

TEST_P(NamesOfSheet, are_names_of_its_controls) {
  const SheetSpec& sheet = *GetParam();
  TestRun run;
  run.StartWithStructure();
  Names names = {sheet.focus_actv, sheet.focus_desc, sheet.destination,  sheet.sent_to,    sheet.frame(),
                 sheet.tab(),      sheet.list(),     sheet.date_label(), sheet.comments(), sheet.comment_button()};
  if (sheet.has_activity) names.insert(sheet.status_box());
  AddFields(sheet.fields, names);
  AddRules(sheet.rules, names);
  for (const Enabling& row : sheet.enablings) {
    names.insert(row.lists.begin(), row.lists.end());
    names.insert(row.fields.begin(), row.fields.end());
    AddWords(row.when.Words(), names);
  }
  for (const Control& control : sheet.extra) names.insert(control.name);
  ExpectThere(SheetForm(run.s, sheet), names);
}

INSTANTIATE_TEST_SUITE_P(, NamesOfSheet, testing::ValuesIn(AllSheets()),
                         [](const testing::TestParamInfo<const SheetSpec*>& info) { return info.param->type; });

TEST(NamesOfStructure, are_names_of_the_main_form_s_controls) {
  TestRun run;
  run.StartWithStructure();
  Names names = {kStructureStatus};
  AddFields(StructureSheet().fields, names);
  AddRules(StructureSheet().rules, names);
  ExpectThere(*run.s.main, names);
}

}  // namespace
}  // namespace merlu::test
