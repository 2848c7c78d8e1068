#include "shell/import_plan_dialog.h"

#include "forms/dialog.h"
#include "forms/dialog_buttons.h"
#include "session/types.h"
#include "shell/dialog_form.h"
#include "shell/dialog_names.h"
#include "shell/messages.h"

namespace merlu {
namespace {

constexpr const char* kStructures = names::lvwPLN_Structures;
constexpr const char* kDetails = names::lvwPLN_Details;

Form& Dialog(Session& s) {
  return DialogForm(s, names::frmImportPlan, "Import, Seen Before", [](Form& form) {
    AddListView(form, kStructures,
                "Structures:", {"Structure", "What happens", "Equipment", "Months added here", "Months added there"});
    AddListView(form, kDetails, "Details of the structure:", {});
    AddButton(form, names::cmdClose, "Close");
    form.default_button = names::cmdClose;
    form.cancel_button = names::cmdClose;
  });
}

// The equipment of a structure that comes in, what is wrong with one that is refused.
void ShowDetails(Control& list, const PlannedStructure& planned) {
  list.rows.clear();
  list.picked.clear();
  switch (planned.action) {
    case ImportAction::kExists:
      list.columns = {"Place", "Field", "Here", "There"};
      for (const ImportDifference& one : planned.differences)
        list.rows.push_back({one.place, one.field, one.here, one.there});
      return;
    case ImportAction::kNotSound:
      list.columns = {"Why"};
      list.rows.push_back({planned.why});
      return;
    default:
      list.columns = {"Type", "ID", "Months"};
      for (const PlannedEquipment& one : planned.equipment)
        list.rows.push_back({TreeTypeName(one.type), one.id, std::to_string(one.months)});
  }
}

}  // namespace

void MakeImportPlanDialog(Session& s) {
  Dialog(s);
}

void ShowImportPlan(Session& s, const ImportPlan& plan) {
  Form& form = Dialog(s);
  Control& list = form.At(kStructures);
  for (const PlannedStructure& planned : plan.structures)
    list.rows.push_back({planned.name.complex + "/" + planned.name.structure, ActionText(planned.action),
                         std::to_string(planned.equipment.size()), MonthsText(planned.months_here),
                         MonthsText(planned.months_there)});
  const auto details = [&form, &plan] {
    const std::vector<int>& picked = form.At(kStructures).picked;
    if (picked.empty())
      form.At(kDetails).rows.clear();
    else
      ShowDetails(form.At(kDetails), plan.structures.at(static_cast<std::size_t>(picked.front())));
  };
  form.On(kStructures, Event::kMoved, details);
  if (!list.rows.empty()) list.picked = {0};
  details();
  form.focus = kStructures;
  OpenDialog(s, form);
  form.On(kStructures, Event::kMoved, [] {});
}

}  // namespace merlu
