#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/desktop.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  merlu::SetUpLook();
  return RUN_ALL_TESTS();
}
