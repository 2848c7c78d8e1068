// The one way of a user's act from a widget to the logical screens: the act is done, its faults are told,
// and everything that changed is drawn again.
#pragma once

#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>
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
  void Redraw();
  // Findings at the user's location as the last act left them, so that drawing asks the store nothing. Empty where none
  // are counted, or when they could not be.
  std::optional<int> findings_here() const { return findings_here_; }

  Session& s;

 signals:
  void Changed();

 private:
  void CountFindings();

  int drawing_ = 0;
  std::optional<int> findings_here_;
  QCLocation counted_at_;
  std::int64_t counted_changes_ = -1;
};

}  // namespace merlu
