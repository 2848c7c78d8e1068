// The forms of dialogs, made when they are first needed.
#pragma once

#include <memory>
#include <utility>

#include "session/session.h"

namespace merlu {

// The dialog of that name with its design state. At the first call `make` adds its controls and handlers; its cancel
// button hides it.
template <typename Make>
Form& DialogForm(Session& s, const char* name, const char* caption, Make&& make) {
  Form* found = s.desk.Find(name);
  if (found == nullptr) {
    found = &s.desk.Own(std::make_unique<Form>(name, caption));
    std::forward<Make>(make)(*found);
    found->KeepDesign();
    Form& form = *found;
    form.On(form.cancel_button, Event::kClick, [&s, &form] { s.desk.Hide(form); });
  }
  found->RestoreDesign();
  return *found;
}

}  // namespace merlu
