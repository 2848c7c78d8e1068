#include <gtest/gtest.h>

#include <QApplication>

#include "dark.h"
#include "desktop/desktop.h"
#include "support/fonts.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  merlu::test::UseTestFont();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (qEnvironmentVariableIsSet("MERLU_DARK")) QApplication::setPalette(merlu::test::DarkPalette());
  merlu::SetUpLook();
  return RUN_ALL_TESTS();
}
