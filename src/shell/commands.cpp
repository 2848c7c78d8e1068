#include "shell/commands.h"

#include <iterator>
#include <string_view>

#include "entry/month_record.h"
#include "forms/dialog_buttons.h"
#include "session/main_names.h"
#include "shell/status.h"

namespace merlu {
namespace {

struct State {
  Session& s;
  bool desc, actv, editing;
  bool user, survey, structure, equipment;
  bool inactive;  // equipment of a structure that reports nothing in the month

  explicit State(Session& session)
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
bool IsOpen(const State& at) {
  return at.s.mode != Mode::kNone;
}
bool IsOpenAndNotEditing(const State& at) {
  return IsOpen(at) && !at.editing;
}
bool OffersGrid(const State& at) {
  return at.actv && !at.editing;
}
bool EditsRecord(const State& at) {
  return at.editing && (at.structure || at.equipment);
}
bool EditsMonth(const State& at) {
  return at.editing && ShownMonth(at.s).has_value();
}
bool ShowsCopied(const State& at) {
  return IsOpen(at) && !CopiedFields(at.s).empty();
}

struct Command {
  const char* name;
  Test visible, enabled;  // null: neither set here
};

// Those that stay as they were made while no inventory is open.
constexpr Command kCommands[] = {
    {names::mnuFile, Always, NotEditing},
    {names::mnuEdit, Always, NotEditing},
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
    {names::txtTREE_Filter, nullptr, NotEditing},
};

// Those that nobody can give without an inventory.
constexpr Command kCommandsOfInventory[] = {
    {names::mnuFBackups, nullptr, IsOpen},
    {names::mnuFWorkbookMake, nullptr, InActv},
    {names::mnuFWorkbookRead, nullptr, InActv},
    {names::mnuRNext, nullptr, IsOpen},
    {names::mnuRPrevious, nullptr, IsOpen},
    {names::mnuRHandIn, nullptr, IsOpen},
    {names::mnuRHistory, nullptr, IsOpenAndNotEditing},
    {names::mnuRFind, nullptr, IsOpenAndNotEditing},
    {names::mnuNGrid, nullptr, OffersGrid},
    {names::mnuNCopy, nullptr, EditsMonth},
    {names::mnuNConfirm, nullptr, ShowsCopied},
    {names::mnuNNext, nullptr, EditsRecord},
    {names::mnuNPrevious, nullptr, EditsRecord},
};

void SetFlags(const State& state, const Command* commands, std::size_t count) {
  for (const Command* command = commands; command != commands + count; ++command) {
    Control& control = state.s.main->At(command->name);
    if (command->visible != nullptr) control.visible = command->visible(state);
    if (command->enabled != nullptr) control.enabled = command->enabled(state);
  }
}

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
  const State state(s);
  SetFlags(state, kCommandsOfInventory, std::size(kCommandsOfInventory));
  if (s.mode == Mode::kNone) return;
  SetFlags(state, kCommands, std::size(kCommands));
  s.tree.enabled = !s.editing;
  SetCaptions(s);
  UpdateStatus(s);
}

}  // namespace merlu
