#include <gtest/gtest.h>

#include <QGuiApplication>

#include "support/fonts.h"
#include "support/temporary_place.h"

// Nothing here asks for a real disk.
int main(int argc, char** argv) {
  merlu::test::UseTemporaryPlace();
  testing::InitGoogleTest(&argc, argv);
  merlu::test::UseTestFont();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
