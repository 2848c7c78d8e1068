#include "desktop/acts.h"

#include <QScopedValueRollback>

#include "base/fault.h"
#include "shell/docks.h"
#include "shell/last_resort.h"
#include "shell/status.h"

namespace merlu {

void Acts::Run(const std::function<void()>& act) {
  if (IsDrawing()) return;
  Guarded(s, "what was asked for", act);
  UpdateStatus(s);
  Refresh();
}

void Acts::Do(const std::function<std::string()>& act) {
  Run([&] { act(); });
}

void Acts::Refresh() {
  if (IsDrawing()) return;
  try {
    RefreshDocks(s);
  } catch (const Fault&) {
    // a dock that cannot be refreshed now is refreshed after the next act
  }
  Redraw();
}

void Acts::Redraw() {
  if (IsDrawing()) return;
  const QScopedValueRollback<int> drawing(drawing_, drawing_ + 1);
  try {
    emit Changed();
  } catch (const Fault&) {
    // what cannot be drawn now is drawn after the next act
  }
}

}  // namespace merlu
