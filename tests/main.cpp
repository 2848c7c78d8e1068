#include <gtest/gtest.h>

#include <QGuiApplication>

#include "store/engine.h"
#include "support/fonts.h"
#include "support/pauses.h"
#include "support/temporary_place.h"

int main(int argc, char** argv) {
  merlu::CountNoMemory();
  merlu::test::UseTemporaryPlace();
  merlu::test::WatchPauses();
  testing::InitGoogleTest(&argc, argv);
  merlu::test::UseTestFont();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
