// The window on a screen as low as a laptop's at 200 %. At other scales the same holds with more room.
#include <QScreen>

#include "desktop/dock_window.h"
#include "desktop/look.h"
#include "driver.h"
#include "screen_tour.h"

namespace merlu::test {
namespace {

constexpr QSize kLaptop(683, 384), kFrame(8, 40);

// A dock leaves the upper part of the sheet in view, where it has no room of its own.
TEST(WalkOnALowScreen, keeps_the_sheet_in_view_above_a_dock) {
  TemporaryFolder folder;
  MakeTourInventory(folder.path("inventory.mdb"));
  Driver driver(folder.path("inventory.mdb"));
  driver.Start();
  MainWindow* window = driver.app->window();
  const bool low = IsLowScreen(*window);
  const QRect screen = window->screen()->availableGeometry();
  for (const char* command : {"mnuRFindings", "mnuRCompleteness", "mnuRStrip"}) {
    driver.Command(command);
    int shown = 0;
    for (const auto* dock : window->findChildren<DockWindow*>()) {
      if (!dock->isVisible()) continue;
      ++shown;
      EXPECT_EQ(dock->isFloating(), low) << command;
      if (!low) continue;
      EXPECT_LE(dock->height(), screen.height() * 3 / 5) << command;
      EXPECT_GE(dock->y(), screen.y() + screen.height() * 2 / 5 - 1) << command;
      EXPECT_LE(dock->geometry().bottom(), screen.bottom()) << command;
    }
    EXPECT_EQ(shown, 1) << command;
    driver.Command(command);
  }
}

TEST(WalkOnALowScreen, shows_at_least_three_rows_of_fields) {
  TemporaryFolder folder;
  MakeTourInventory(folder.path("inventory.mdb"));
  Driver driver(folder.path("inventory.mdb"));
  driver.Start();
  MainWindow* window = driver.app->window();
  if (IsLowScreen(*window)) window->resize(kLaptop - kFrame);
  for (const TreeNode& node : std::vector<TreeNode>(driver.app->session().tree.nodes)) {
    if (node.key.size() != 32 || node.key.substr(21, 3) != "STO") continue;
    driver.Select(node.key);
    break;
  }
  const auto* first = driver.Widget("txtSTO_Throughput");
  ASSERT_TRUE(first != nullptr && first->isVisible());
  int whole = 0;
  for (const auto* line : window->findChildren<QLineEdit*>()) {
    if (!line->isVisible() || line->objectName() == "txtTREE_Filter") continue;
    whole += line->visibleRegion().boundingRect().height() == line->height() ? 1 : 0;
  }
  EXPECT_GE(whole, 3);
}

}  // namespace
}  // namespace merlu::test
