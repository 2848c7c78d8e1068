#include "desktop/acts.h"

#include <QScopedValueRollback>

#include "session/messages.h"

namespace merlu {

void Acts::Run(const std::function<void()>& act) {
  if (IsDrawing()) return;
  try {
    act();
  } catch (const Fault& fault) {
    TellFault(s, fault);
  }
  Redraw();
}

void Acts::Do(const std::function<std::string()>& act) {
  Run([&] { act(); });
}

void Acts::Redraw() {
  if (IsDrawing()) return;
  const QScopedValueRollback<int> drawing(drawing_, drawing_ + 1);
  try {
    emit Changed();
  } catch (const Fault&) {
    // what could not be drawn now is drawn with the next act
  }
}

}  // namespace merlu
