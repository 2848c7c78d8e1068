#include "shell/commands.h"

#include <string_view>

#include "forms/dialog_buttons.h"
#include "session/main_names.h"
#include "shell/status.h"

namespace merlu {
namespace {

struct State {
  const Session& s;
  bool desc, actv, editing;
  bool user, survey, structure, equipment;
  bool inactive;  // equipment of a structure that reports nothing in the month

  explicit State(const Session& session)
      : s(session),
        desc(s.InDesc()),
        actv(s.InActv()),
        editing(s.editing),
        user(s.current.Is(level::kUser)),
        survey(s.current.Is(level::kSurvey)),
        structure(s.current.Is(level::kStructure)),
        equipment(s.current.Is(level::kEquipment)),
        inactive(equipment && actv && s.node_status == "I") {}
  bool HasRecord() const { return user || survey || structure || equipment; }
};

using Test = bool (*)(const State&);

bool Always(const State&) {
  return true;
}
bool NotEditing(const State& at) {
  return !at.editing;
}
bool Editing(const State& at) {
  return at.editing;
}
bool InDesc(const State& at) {
  return at.desc;
}
bool InActv(const State& at) {
  return at.actv;
}
bool CanBeEdited(const State& at) {
  return at.HasRecord() && !at.inactive;
}
bool CanBeginEdit(const State& at) {
  return CanBeEdited(at) && !at.editing;
}
bool CanBeJudged(const State& at) {
  return at.survey || at.structure || at.equipment;
}
bool CanBeDeleted(const State& at) {
  return at.desc && (at.structure || at.equipment);
}
bool MayAddMonth(const State& at) {
  return at.s.may_add_month;
}
bool MayAddStructure(const State& at) {
  return at.survey || at.structure || (at.desc && (at.user || at.equipment));
}
bool MayAddEquipment(const State& at) {
  return at.structure || at.equipment;
}
// After a start without a structure only once the mode was changed.
bool OffersEquipment(const State& at) {
  return at.desc && !(at.s.began_empty && at.s.last_actv.Level.empty());
}
bool HasWhatGoesOut(const State& at) {
  return !at.s.began_empty;
}
struct Command {
  const char* name;
  Test visible, enabled;  // null: neither set here
};

constexpr Command kCommands[] = {
    {names::mnuFile, Always, NotEditing},
    {names::mnuEdit, Always, NotEditing},
    {names::mnuRFind, nullptr, NotEditing},
    {names::mnuRHistory, nullptr, NotEditing},
    {names::tvwTree, Always, NotEditing},
    {names::cmdEditMode, Always, NotEditing},
    {names::cmdUSER_AddStructure, InDesc, NotEditing},
    {names::cmdUSER_AddSurvey, nullptr, NotEditing},
    {names::cmdSTRUCTURE_AddEquip, Always, NotEditing},
    {names::cmdEdit, CanBeginEdit, CanBeEdited},
    {names::cmdSaveExit, Editing, nullptr},
    {names::cmdSaveEdits, Editing, nullptr},
    {names::cmdCANCEL, Editing, nullptr},
    {names::cmdQC, CanBeJudged, nullptr},
    {names::mnuFQC, nullptr, CanBeJudged},
    {names::mnuENewSurvey, InActv, MayAddMonth},
    {names::mnuENewStructure, InDesc, MayAddStructure},
    {names::mnuENewEquipment, OffersEquipment, MayAddEquipment},
    {names::mnuEDelete, InDesc, CanBeDeleted},
    {names::mnuEditBar, InDesc, CanBeDeleted},
    {names::mnuFExport, HasWhatGoesOut, nullptr},
    {names::mnuFExportInventory, HasWhatGoesOut, nullptr},
    {names::frmInvQCPrint, HasWhatGoesOut, nullptr},
    {names::mnuFWorkbookMake, nullptr, InActv},
    {names::mnuFWorkbookRead, nullptr, InActv},
    {names::txtTREE_Filter, nullptr, NotEditing},
};

void SetCaptions(Session& s) {
  Form& main = *s.main;
  const bool desc = s.InDesc();
  main.caption = std::string("RIMA Pelagic Field Reporting Suite (MERLU-2017) - ") +
                 (desc ? "Description Edit Mode" : "Activity Edit Mode");
  main.At(names::mnuSetEditMode).caption = desc ? "Change to Activity Edit Mode" : "Change to Description Edit Mode";
  main.At(names::cmdEditMode).caption = desc ? "Edit Activity Data" : "Edit Description Data";
}

}  // namespace

void UpdateCommands(Session& s) {
  if (s.mode == Mode::kNone) return;
  const State state(s);
  for (const Command& command : kCommands) {
    Control& control = s.main->At(command.name);
    if (command.visible != nullptr) control.visible = command.visible(state);
    if (command.enabled != nullptr) control.enabled = command.enabled(state);
  }
  s.tree.enabled = !s.editing;
  SetCaptions(s);
  UpdateStatus(s);
}

}  // namespace merlu
