// Message boxes and dialogs. The notices of the procedures that were called before are shown first.
#pragma once

#include <string>
#include <vector>

#include "base/fault.h"
#include "session/session.h"
#include "session/wait.h"
#include "shell/ui.h"

namespace merlu {

// Shows what the procedures below the shell have to say, each in a box with OK, in order.
void ShowNotices(Session& s);
// Takes what rules have changed in the record out of the notices, for a caller that shows it elsewhere.
std::vector<std::string> TakeRuleNotices(Session& s);

Button Ask(Session& s, const Box& box);
Button AskUser(Session& s, const std::string& text, std::vector<Button> buttons, Icon icon = Icon::kQuestion);
// The same about a file, which it names below the text.
Button AskOfFile(Session& s, const std::string& text, const std::string& path, std::vector<Button> buttons);
// Empty when the user cancelled.
std::string AskFile(Session& s, const FileQuestion& question);
std::string AskFolder(Session& s, const std::string& prompt);
// Shows the form as a dialog until it is hidden.
void OpenDialog(Session& s, Form& form);

// A box with OK under the application's title.
void Tell(Session& s, const std::string& text, Icon icon = Icon::kNone);
// The same about a file, which it names below the text.
void TellOfFile(Session& s, const std::string& text, const std::string& path, Icon icon = Icon::kNone);
void TellUnder(Session& s, const std::string& title, const std::string& text, Icon icon);

// The plain handler: description, a blank, number. The box names the file that the work was about.
void TellFault(Session& s, const Fault& fault, const std::string& path = {});
// The handler of sheets and of the QC log: number, a blank, description.
void TellFaultNumberFirst(Session& s, const Fault& fault, const std::string& path = {});

// Runs the work under the plain handler; false when a fault ended it.
template <typename Work>
bool Plainly(Session& s, Work&& work, const std::string& path = {}) {
  try {
    work();
    return true;
  } catch (const Fault& fault) {
    TellFault(s, fault, path);
    return false;
  }
}

// The same under the handler of sheets.
template <typename Work>
bool OnSheet(Session& s, Work&& work, const std::string& path = {}) {
  try {
    work();
    return true;
  } catch (const Fault& fault) {
    TellFaultNumberFirst(s, fault, path);
    return false;
  }
}

// Stores what the user chose. Where the settings cannot be written a box says so, and the choice lasts as long as the
// program.
void KeepSetting(Session& s, const std::string& section, const std::string& key, const std::string& value);

}  // namespace merlu
