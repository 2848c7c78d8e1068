#include "shell/last_resort.h"

#include "shell/commands.h"
#include "shell/messages.h"

namespace merlu {

bool Guarded(Session& s, const std::string& what, const std::function<void()>& act) {
  std::string error;
  try {
    act();
    ShowNotices(s);
  } catch (const Fault& fault) {
    TellFault(s, fault);
    error = fault.description;
  } catch (const std::exception& exception) {
    error = exception.what();
    HideWait(s);
    Ask(s, {"An error in the program ended \"" + what + "\".\nWhat shows is as it was: it can be saved, or dropped.",
            s.title,
            Icon::kStop,
            {Button::kOK},
            0,
            error});
  } catch (...) {
    ShowNotices(s);
    throw;
  }
  if (s.main != nullptr && !s.ended) UpdateCommands(s);
  return error.empty();
}

}  // namespace merlu
