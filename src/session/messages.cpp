#include "session/messages.h"

#include "session/limits.h"
#include "store/files.h"

namespace merlu {
namespace {

// Below this size everything that has a wait screen takes well under a second.
constexpr std::uint64_t kLongWorkBytes = 4U << 20U;

}  // namespace

void TellUnder(Session& s, const std::string& title, const std::string& text, Icon icon) {
  s.platform.Ask({text, title, icon, {Button::kOK}, 0, {}});
}

void Tell(Session& s, const std::string& text, Icon icon) {
  TellUnder(s, s.title, text, icon);
}

void TellOfFile(Session& s, const std::string& text, const std::string& path, Icon icon) {
  s.platform.Ask({text, s.title, icon, {Button::kOK}, 0, path});
}

Button AskUser(Session& s, const std::string& text, std::vector<Button> buttons, Icon icon) {
  return s.platform.Ask({text, s.title, icon, std::move(buttons), 0, {}});
}

void TellFault(Session& s, const Fault& fault) {
  ++s.faults_shown;
  const bool is_full = fault.number == fault_number::kSubscript && fault.source == kTreeSource;
  s.platform.Ask({fault.description + " " + std::to_string(fault.number),
                  s.title,
                  Icon::kNone,
                  {Button::kOK},
                  0,
                  is_full ? kLimitsInWords : ""});
}

void TellFaultNumberFirst(Session& s, const Fault& fault) {
  ++s.faults_shown;
  Tell(s, std::to_string(fault.number) + " " + fault.description);
}

void ShowWait(Session& s, const std::string& title, const std::string& text) {
  s.wait = {true, title, text, 0, 0, FileSize(s.path) >= kLongWorkBytes};
  s.platform.PaintWait(s.wait);
}

void Progress(Session& s, const std::string& text, int done, int total) {
  if (!s.wait.showing) return;
  s.wait.text = text;
  s.wait.done = done;
  s.wait.total = total;
  s.platform.PaintWait(s.wait);
}

void HideWait(Session& s) {
  if (!s.wait.showing) return;
  s.wait.showing = false;
  s.platform.PaintWait(s.wait);
}

}  // namespace merlu
