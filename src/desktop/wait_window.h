// The wait screen.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>

#include "forms/platform.h"

namespace merlu {

class WaitWindow : public QWidget {
  Q_OBJECT
 public:
  // With a button that stops the work; it then takes what the user types and clicks.
  WaitWindow(QWidget* over, bool can_stop);
  // Draws it at once.
  void Show(const WaitScreen& wait);
  bool IsStopWanted() const { return stop_wanted_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLabel* title_;
  QLabel* text_;
  QProgressBar* bar_;
  QPushButton* stop_ = nullptr;
  bool stop_wanted_ = false;

  void Stop();
};

}  // namespace merlu
