#include "shell/docks.h"

#include <vector>

#include "shell/messages.h"

namespace merlu {
namespace {

constexpr const char* kSection = "Docks";
constexpr const char* kShows = "1";

}  // namespace

void CheckDockCommands(Session& s) {
  for (const auto& form : s.desk.forms)
    if (!form->dock.empty()) s.main->At(form->dock).checked = form->visible;
}

void ShowDock(Session& s, Form& dock, bool show) {
  if (dock.visible == show) return;
  dock.loaded = show;
  if (show)
    s.desk.Show(dock);
  else
    s.desk.Hide(dock);
  CheckDockCommands(s);
  KeepSetting(s, kSection, dock.dock, show ? kShows : "");
}

void RefreshDocks(Session& s) {
  // a refresh can make a form, which moves the list of them
  for (std::size_t i = 0; i < s.desk.forms.size(); ++i) {
    Form& form = *s.desk.forms[i];
    if (form.dock.empty() || !form.visible) continue;
    for (const Control& control : form.controls())
      if (control.kind == Kind::kLabel && form.Handles(control.name, kRefreshDock))
        form.Raise(control.name, kRefreshDock);
  }
}

void ToggleDock(Session& s, Form& dock) {
  ShowDock(s, dock, !dock.visible);
}

void ReopenDocks(Session& s) {
  std::vector<std::string> commands;
  for (const Control& control : s.main->controls())
    if (control.checkable && !control.checked && s.host.Setting(kSection, control.name) == kShows)
      commands.push_back(control.name);
  for (const std::string& command : commands) s.main->Raise(command, Event::kClick);
}

}  // namespace merlu
