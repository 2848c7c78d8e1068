#include "desktop/acts.h"

#include <QScopedValueRollback>

#include "base/fault.h"
#include "qc/qc_log.h"
#include "shell/docks.h"
#include "shell/last_resort.h"

namespace merlu {

void Acts::Run(const std::function<void()>& act) {
  if (IsDrawing()) return;
  Guarded(s, "what was asked for", act);
  CountFindings();
  Redraw();
}

void Acts::CountFindings() {
  if (!s.db.IsOpen() || s.current.Is(level::kUser) || s.current.Level.empty()) {
    findings_here_.reset();
    counted_changes_ = -1;
    return;
  }
  if (counted_changes_ == s.db.ChangeCount() && counted_at_ == s.current) return;
  try {
    findings_here_ = CountQCErrors(s, s.current);
    counted_at_ = s.current;
    counted_changes_ = s.db.ChangeCount();
  } catch (const Fault&) {
    findings_here_.reset();
    counted_changes_ = -1;
  }
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
