// Every dock, dialog, grid and box, looked at as a whole: it fits the screen, and none of its texts is cut.
#include <QScreen>
#include <QTreeWidget>

#include "desktop/look.h"
#include "desktop/results_list.h"
#include "driver.h"
#include "screen_tour.h"
#include "walk.h"

namespace merlu::test {
namespace {

void ExpectWholeAndOnScreen(const char* part) {
  Album album((std::string("screens-") + part).c_str());
  int seen = 0;
  TourScreens({part}, QSize(1180, 760), [&](QWidget& window, const std::string& name) {
    SCOPED_TRACE(name);
    ++seen;
    album.Keep(window, name);
    ExpectNothingCut(window);
    if (qobject_cast<QDialog*>(&window) == nullptr) return;
    const QSize room = window.screen()->availableSize();
    EXPECT_LE(window.width(), std::max(room.width(), 1180));  // a grid is as large as the main window
    EXPECT_LE(window.height(), std::max(room.height(), 760));
  });
  EXPECT_GT(seen, 0);
}

TEST(WalkOfScreens, through_the_docks) {
  ExpectWholeAndOnScreen("docks");
}

TEST(WalkOfScreens, through_the_grids) {
  ExpectWholeAndOnScreen("grids");
}

TEST(WalkOfScreens, through_the_dialogs) {
  ExpectWholeAndOnScreen("dialogs");
}

TEST(WalkOfScreens, through_the_boxes) {
  ExpectWholeAndOnScreen("boxes");
}

TEST(WalkOfScreens, through_what_an_interrupted_edit_left) {
  ExpectWholeAndOnScreen("draft");
}

QColor GroundOfRow(QTreeWidget& list) {
  const QRect row = list.visualItemRect(list.topLevelItem(0));
  const QImage picture = list.viewport()->grab().toImage();
  return picture.pixelColor(QPoint(list.viewport()->width() - 8, row.center().y()) * picture.devicePixelRatio());
}

TEST(PickedRow, is_told_by_the_accent_in_the_list_that_has_the_keyboard_and_is_seen_in_others) {
  QWidget window;
  auto* column = new QVBoxLayout(&window);
  Control rows;
  rows.columns = {"Survey", "Last Updated"};
  rows.rows = {{"01/2017", ""}, {"02/2017", ""}};
  ResultsList list(rows, "", &window);
  list.ShowRows(rows);
  QLineEdit line(&window);
  column->addWidget(&list);
  column->addWidget(&line);
  window.resize(400, 300);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  ASSERT_TRUE(list.topLevelItem(0)->isSelected());
  QCoreApplication::processEvents();
  EXPECT_EQ(GroundOfRow(list).name(), AccentGround(QApplication::palette()).name());
  line.setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ(GroundOfRow(list).name(), RestingGround(QApplication::palette()).name());
}

TEST(ListOfDetails, has_the_heads_of_the_rows_that_it_shows) {
  Control rows;
  rows.columns = {"Place", "Field", "Here", "There"};
  rows.rows = {{"2017/01 · GI, 43, A", "Hours", "1", "2"}};
  ResultsList list(rows, "", nullptr);
  list.resize(700, 200);
  list.ShowRows(rows);
  rows.columns = {"Type", "ID", "Months"};
  rows.rows = {{"Boiler, Heater, or Burner", "B-101", "5"}};
  list.ShowRows(rows);
  ASSERT_EQ(list.columnCount(), 3);
  EXPECT_EQ(list.headerItem()->text(2), "Months");
  EXPECT_GE(list.columnWidth(0), list.fontMetrics().horizontalAdvance("Boiler, Heater, or Burner")) << "on one line";
}

}  // namespace
}  // namespace merlu::test
