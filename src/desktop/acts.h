// Passes a user's act from a widget to the logical screens: runs it, shows its faults in a box, and redraws what
// changed.
#pragma once

#include <QObject>

#include <functional>
#include <string>

#include "session/session.h"

namespace merlu {

class Acts : public QObject {
  Q_OBJECT
 public:
  explicit Acts(Session& session) : s(session) {}

  // An act that may be refused: it returns why, and a refused act is simply not done.
  void Do(const std::function<std::string()>& act);
  void Run(const std::function<void()>& act);
  // True while widgets are being changed to show the state: their signals are no acts then.
  bool IsDrawing() const { return drawing_ > 0; }
  // Brings the docks up to date and redraws.
  void Refresh();
  // Draws what changed. Asks the store nothing: everything that is shown was read before.
  void Redraw();

  Session& s;

 signals:
  void Changed();

 private:
  int drawing_ = 0;
};

}  // namespace merlu
