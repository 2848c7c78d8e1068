#include <gtest/gtest.h>

#include <QApplication>

#include "dark.h"
#include "desktop/desktop.h"
#include "support/fonts.h"
#include "support/temporary_place.h"

int main(int argc, char** argv) {
  merlu::test::UseTemporaryPlace();
  testing::InitGoogleTest(&argc, argv);
  merlu::test::UseTestFont();
  // or offscreen with a screen of another size
  if (!qEnvironmentVariable("QT_QPA_PLATFORM").startsWith("offscreen")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (qEnvironmentVariableIsSet("MERLU_CONTRAST")) QApplication::setPalette(merlu::test::ContrastPalette());
  if (qEnvironmentVariableIsSet("MERLU_DARK")) QApplication::setPalette(merlu::test::DarkPalette());
  merlu::SetUpLook();
  return RUN_ALL_TESTS();
}
