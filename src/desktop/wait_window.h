// The wait screen, and the splash of the start.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QWidget>

#include "forms/form.h"
#include "forms/platform.h"

namespace merlu {

class WaitWindow : public QWidget {
  Q_OBJECT
 public:
  explicit WaitWindow(QWidget* over);
  void Show(const WaitScreen& wait);

 private:
  QLabel* title_;
  QLabel* text_;
  QProgressBar* bar_;
};

// The texts of the About form over the main window.
class Splash : public QWidget {
  Q_OBJECT
 public:
  Splash(const Form& about, QWidget* over);
};

}  // namespace merlu
