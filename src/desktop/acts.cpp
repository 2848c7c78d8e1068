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
  Redraw();
}

void Acts::Do(const std::function<std::string()>& act) {
  Run([&] { act(); });
}

void Acts::Redraw() {
  if (IsDrawing()) return;
  const QScopedValueRollback<int> drawing(drawing_, drawing_ + 1);
  try {
    RefreshDocks(s);
    emit Changed();
  } catch (const Fault&) {
    // what could not be drawn now is drawn with the next act
  }
}

}  // namespace merlu
