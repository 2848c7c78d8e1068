#include "shell/edit_modes.h"

#include "session/messages.h"
#include "shell/trees.h"

namespace merlu {
namespace {

constexpr const char* kUnset = "Program Mode";

}  // namespace

void SetMode(Session& s, Mode mode) {
  const bool desc = mode == Mode::kDesc;
  Form& main = *s.main;
  main.caption = std::string("RIMA Pelagic Field Reporting Suite (MERLU-2017) - ") +
                 (desc ? "Description Edit Mode" : "Activity Edit Mode");
  main.At("mnuSetEditMode").caption = desc ? "Change to Activity Edit Mode" : "Change to Description Edit Mode";
  main.At("mnuENewSurvey").visible = !desc;
  for (const char* name : {"mnuENewStructure", "mnuENewEquipment", "mnuEDelete", "mnuEditBar", "cmdUSER_AddStructure"})
    main.At(name).visible = desc;
  main.At("cmdEditMode").caption = desc ? "Edit Activity Data" : "Edit Description Data";
  s.mode = mode;
}

void SetStartMode(Session& s) {
  const bool no_structure = s.At("PD_PLATFORM_DESC").RecordCount() == 0;
  SetMode(s, no_structure ? Mode::kDesc : Mode::kActv);
  if (!no_structure) return;
  for (const char* name : {"mnuENewEquipment", "mnuFExportInventory", "mnuFExport", "frmInvQCPrint"})
    s.main->At(name).visible = false;
}

namespace {

void ChangeMode(Session& s) {
  if (s.current.EquipType == "FUG") return Tell(s, "No Activity Edit Mode for Fugitives.");
  if (s.mode == Mode::kNone) return;
  const bool to_actv = s.InDesc();
  (to_actv ? s.last_desc : s.last_actv) = s.current;
  if (to_actv && s.At("PD_PLATFORM_DESC").RecordCount() == 0) return Tell(s, "Must add Platform Description first.");
  const Busy busy(s);
  s.mode_changed_to_actv = to_actv;
  s.mode_changed_to_desc = !to_actv;
  SetMode(s, to_actv ? Mode::kActv : Mode::kDesc);
  if (to_actv)
    RefreshTree(s);
  else
    RefreshDescTree(s);
}

}  // namespace

void ChangeEditMode(Session& s) {
  Plainly(s, [&] { ChangeMode(s); });
}

void PressEditMode(Session& s) {
  if (s.main->At("cmdEditMode").caption != kUnset) ChangeEditMode(s);
}

}  // namespace merlu
