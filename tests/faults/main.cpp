#include <gtest/gtest.h>

#include <QGuiApplication>
#include <filesystem>

#include "support/fonts.h"

// Nothing here asks for a real disk, and waiting for one would be most of the time.
int main(int argc, char** argv) {
  if (std::filesystem::is_directory("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 0);
  testing::InitGoogleTest(&argc, argv);
  merlu::test::UseTestFont();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
