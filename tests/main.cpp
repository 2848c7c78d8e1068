#include <gtest/gtest.h>

#include <QGuiApplication>

#include "support/fonts.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  merlu::test::UseTestFont();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
