#include "shell/edit_modes.h"

#include "session/find_rows.h"
#include "session/main_names.h"
#include "shell/commands.h"
#include "shell/messages.h"
#include "shell/trees.h"

namespace merlu {
namespace {

constexpr const char* kUnset = "Program Mode";

}  // namespace

void SetMode(Session& s, Mode mode) {
  s.mode = mode;
  UpdateCommands(s);
}

void SetStartMode(Session& s) {
  s.began_empty = s.At("PD_PLATFORM_DESC").IsEmpty();
  SetMode(s, s.began_empty ? Mode::kDesc : Mode::kActv);
}

namespace {

void ChangeMode(Session& s) {
  if (s.current.EquipType == "FUG") return Tell(s, "No Activity Edit Mode for Fugitives.");
  if (s.mode == Mode::kNone) return;
  RequireReadable(s);  // or else the mode and its tree stay as they are
  const bool to_actv = s.InDesc();
  (to_actv ? s.last_desc : s.last_actv) = s.current;
  if (to_actv && s.At("PD_PLATFORM_DESC").IsEmpty()) return Tell(s, "Must add Platform Description first.");
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
  if (s.main->At(names::cmdEditMode).caption != kUnset) ChangeEditMode(s);
}

}  // namespace merlu
