#include "help/help_pages.h"

#include "help/screen_pages.h"
#include "session/main_names.h"
#include "sheets/operator.h"
#include "sheets/structure.h"
#include "sheets/structure_names.h"
#include "sheets/survey.h"
#include "sheets/units.h"
#include "shell/help.h"

namespace merlu {
namespace {

// Rules that raise no finding are not listed.
void AddRules(HelpPage& page, const std::vector<RuleGroup>& groups) {
  for (const RuleGroup& group : groups)
    for (const Rule& rule : group.rules)
      if (rule.check.name != "none" && rule.check.name != "WithdrawRetired") page.rules.push_back(rule);
}

void AddControls(HelpPage& page, const Form& form) {
  for (const Control& control : form.controls())
    if ((control.kind == Kind::kListView || control.kind == Kind::kButton) && control.visible)
      page.controls.push_back({control.name, control.caption});
}

HelpPage OperatorPage() {
  HelpPage page{.title = "Operator", .file = HelpFile(level::kUser, ""), .prose = "User.md", .by_mode = false};
  Form form(names::frmMain, "");
  PutOperatorSheet(form);
  for (const Control& control : form.controls()) {
    if (control.kind != Kind::kText && control.kind != Kind::kMasked) continue;
    FieldSpec field = Text(In::kBoth, control.name, control.caption, "", "");
    field.block = "Registered user";
    page.fields.push_back(field);
  }
  AddControls(page, form);
  return page;
}

HelpPage SurveyPage() {
  HelpPage page{.title = "Survey", .file = HelpFile(level::kSurvey, ""), .prose = "Survey.md", .by_mode = false};
  Form form(names::frmMain, "");
  PutSurveySheet(form);
  AddControls(page, form);
  return page;
}

HelpPage StructurePage() {
  HelpPage page{.title = "Structure", .file = HelpFile(level::kStructure, ""), .prose = "Structure.md"};
  page.fields = StructureSheet().fields;
  AddRules(page, StructureSheet().rules);
  page.controls = {{names::chkSTRUCTURE_Status, "No Emissions to Report"},
                   {names::cmdSTRUCTURE_AddEquip, "New Equipment"},
                   {names::lvwSTRUCTURE_QCResults, "QC Results"},
                   {names::cmdSTRUCTURE_EditQCComment, "Edit QC Comment"}};
  return page;
}

HelpPage EquipmentPage(const SheetSpec& sheet) {
  HelpPage page{.title = sheet.title,
                .file = HelpFile(level::kEquipment, sheet.type),
                .prose = sheet.type + ".md",
                .pages = sheet.pages,
                .enablings = sheet.enablings};
  for (const FieldSpec& field : sheet.fields)
    if (field.page != kOffPage) page.fields.push_back(field);
  AddRules(page, sheet.rules);
  if (sheet.has_activity) page.controls.push_back({sheet.status_box(), "No Emissions to Report"});
  page.controls.push_back({sheet.comments(), sheet.comments_caption});
  page.controls.push_back({sheet.list(), "QC Results"});
  page.controls.push_back({sheet.comment_button(), "Edit QC Comment"});
  return page;
}

}  // namespace

const std::vector<HelpPage>& HelpPages() {
  static const std::vector<HelpPage> pages = [] {
    std::vector<HelpPage> made = {OperatorPage(), SurveyPage(), StructurePage()};
    for (const SheetSpec* sheet : AllSheets()) made.push_back(EquipmentPage(*sheet));
    for (HelpPage& page : ScreenPages()) made.push_back(std::move(page));
    return made;
  }();
  return pages;
}

}  // namespace merlu
