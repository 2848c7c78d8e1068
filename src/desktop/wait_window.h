// The wait screen.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QWidget>

#include "forms/platform.h"

namespace merlu {

class WaitWindow : public QWidget {
  Q_OBJECT
 public:
  explicit WaitWindow(QWidget* over);
  // Draws it at once.
  void Show(const WaitScreen& wait);

 private:
  QLabel* title_;
  QLabel* text_;
  QProgressBar* bar_;
};

}  // namespace merlu
