// How a procedure of a screen speaks to the user.
#pragma once

#include <string>

#include "base/fault.h"
#include "session/session.h"

namespace merlu {

// A box with OK under the application's title.
void Tell(Session& s, const std::string& text, Icon icon = Icon::kNone);
// The same about a file, which it names below the text.
void TellOfFile(Session& s, const std::string& text, const std::string& path, Icon icon = Icon::kNone);
void TellUnder(Session& s, const std::string& title, const std::string& text, Icon icon);
Button AskUser(Session& s, const std::string& text, std::vector<Button> buttons, Icon icon = Icon::kQuestion);

// The plain handler: description, a blank, number.
void TellFault(Session& s, const Fault& fault);
// The handler of sheets and of the QC log: number, a blank, description.
void TellFaultNumberFirst(Session& s, const Fault& fault);

// Runs the work under the plain handler; false when a fault ended it.
template <typename Work>
bool Plainly(Session& s, Work&& work) {
  try {
    work();
    return true;
  } catch (const Fault& fault) {
    TellFault(s, fault);
    return false;
  }
}

// The same under the handler of sheets.
template <typename Work>
bool OnSheet(Session& s, Work&& work) {
  try {
    work();
    return true;
  } catch (const Fault& fault) {
    TellFaultNumberFirst(s, fault);
    return false;
  }
}

// Busy pointer for as long as it lives.
class Busy {
 public:
  explicit Busy(Session& s) : s_(s) { s_.platform.SetBusy(true); }
  ~Busy() { s_.platform.SetBusy(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  Session& s_;
};

// The wait screen: shown, updated with progress, and hidden at the end. It is painted at most a few times a second, so
// frequent calls of Progress are cheap. For work that ends before it could be read it is not shown at all.
void ShowWait(Session& s, const std::string& title, const std::string& text);
void Progress(Session& s, const std::string& text, int done, int total);
void HideWait(Session& s);

}  // namespace merlu
