// The window on a screen as low as a laptop's at 200 %. At other scales the same holds with more room.
#include <QScreen>

#include "desktop/dock_window.h"
#include "desktop/look.h"
#include "driver.h"
#include "screen_tour.h"

namespace merlu::test {
namespace {

constexpr QSize kLaptop(683, 384), kFrame(8, 40);

struct LowScreen : testing::Test {
  LowScreen() : driver((MakeTourInventory(folder.path("inventory.mdb")), folder.path("inventory.mdb"))) {
    driver.Start();
    if (IsLowScreen(Main())) Main().resize(kLaptop - kFrame);
    driver.Settle();
  }
  MainWindow& Main() { return *driver.app->window(); }
  Session& S() { return driver.app->session(); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &Main(), key, modifiers);
    driver.Settle();
    driver.Settle();  // the page scrolls to the focus when all have their places
  }
  // The keys of the type's equipment months.
  std::vector<std::string> MonthsOf(const std::string& type) {
    std::vector<std::string> keys;
    for (const TreeNode& node : S().tree.nodes)
      if (node.key.size() == 32 && node.key.substr(21, 3) == type) keys.push_back(node.key);
    return keys;
  }
  void SelectFirst(const std::string& type) { driver.Select(MonthsOf(type).at(0)); }
  bool InView(const QWidget& widget) { return widget.visibleRegion().boundingRect().size() == widget.size(); }

  TemporaryFolder folder;
  Driver driver;
};
using WalkOnALowScreen = LowScreen;

// A list has the whole window where there is no room for it beside the sheet, and gives way to the record.
TEST_F(WalkOnALowScreen, gives_the_window_to_a_list_until_a_record_is_opened) {
  const bool low = IsLowScreen(Main());
  for (const Qt::Key letter : {Qt::Key_F, Qt::Key_M}) {
    Main().tree().setFocus();
    Key(letter, Qt::ControlModifier | Qt::ShiftModifier);
    auto* list = driver.Find<QAbstractItemView>(letter == Qt::Key_F ? "lvwFND_List" : "grdCMP_Matrix");
    ASSERT_TRUE(list != nullptr && InView(*list));
    EXPECT_EQ(Main().tree().isVisible(), !low);
    if (low) {
      EXPECT_EQ(QApplication::focusWidget(), list);
      EXPECT_GT(list->height(), Main().height() / 3);
      EXPECT_TRUE(Main().rect().contains(QRect(list->mapTo(&Main(), QPoint()), list->size())));
      Key(Qt::Key_Escape);
      EXPECT_FALSE(list->isVisible());
      EXPECT_TRUE(Main().tree().isVisible());
      Key(letter, Qt::ControlModifier | Qt::ShiftModifier);
    }
    ASSERT_TRUE(list->isVisible());
    list->setFocus();
    list->setCurrentIndex(list->model()->index(1, 1));
    const int before = S().tree.selected;
    Key(Qt::Key_Return);
    EXPECT_NE(S().tree.selected, before);
    EXPECT_EQ(list->isVisible(), !low);
    EXPECT_TRUE(InView(*driver.Widget("cmdEdit")));
    if (!low) Key(letter, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(list->isVisible());
  }
}

// The field that F8 goes to is in view, with the list beside the sheet and without it.
TEST_F(WalkOnALowScreen, goes_to_a_finding_s_field_that_is_in_view) {
  constexpr QSize kLaptopAt125(1085, 574);
  if (!IsLowScreen(Main())) Main().resize(kLaptopAt125);
  Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  for (int times = 0; times < 12; ++times) {
    Key(Qt::Key_F8);
    const QWidget* field = QApplication::focusWidget();
    ASSERT_TRUE(field != nullptr && Main().isAncestorOf(field));
    const QRect seen = field->visibleRegion().boundingRect();
    EXPECT_EQ(seen.size(), field->size()) << field->objectName().toStdString() << " " << field->width() << "x"
                                          << field->height() << ", in view " << seen.width() << "x" << seen.height();
    EXPECT_TRUE(InView(*driver.Widget("cmdEdit")));
  }
}

// The twelve months stay below the sheet.
TEST_F(WalkOnALowScreen, shows_the_months_of_a_field_below_its_sheet) {
  SelectFirst("FLA");
  Key(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
  const QWidget* field = driver.Widget("txtFLA_HrsOperated");
  EXPECT_EQ(field->visibleRegion().boundingRect().height(), field->height()) << Main().minimumSizeHint().height();
  EXPECT_TRUE(InView(*driver.Widget("cmdEdit")));
  for (const auto* dock : Main().findChildren<DockWindow*>()) {
    EXPECT_FALSE(dock->isFloating());
    EXPECT_LE(dock->geometry().bottom(), Main().height());
  }
}

// A list that had the window and gave way to its record leaves the months below the sheet as low as they were.
TEST_F(WalkOnALowScreen, keeps_the_months_as_low_when_a_list_has_given_way) {
  if (!IsLowScreen(Main())) return;
  SelectFirst("FLA");
  Key(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
  const auto* strip = Main().findChild<DockWindow*>("frmStrip");
  ASSERT_TRUE(strip != nullptr && strip->isVisible());
  const int height = strip->height();
  Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  Key(Qt::Key_F8);
  ASSERT_TRUE(Main().tree().isVisible() && strip->isVisible());
  EXPECT_LE(strip->height(), height + 2);
}

// The line for findings and hints takes no room where a record has none; what shows in it moves nothing.
TEST_F(WalkOnALowScreen, keeps_no_empty_line_above_the_buttons) {
  const bool low = IsLowScreen(Main());
  bool clean = false, flagged = false;
  for (const std::string& key : MonthsOf("FLA")) {
    driver.Select(key);
    driver.Settle();
    const auto& controls = S().desk.Find("frmFLA")->controls();
    const bool has = std::any_of(controls.begin(), controls.end(), [](const Control& c) { return !c.finding.empty(); });
    (has ? flagged : clean) = true;
    const auto* sheet = Main().findChild<SheetView*>("frmFLA");
    const auto* line = sheet->findChild<QWidget*>("sheetLine");
    ASSERT_TRUE(line != nullptr);
    EXPECT_EQ(line->isVisible(), has || !low) << key;
    driver.Click("cmdEdit");
    EXPECT_TRUE(line->isVisible()) << "no field moves while it is typed in";
    driver.Click("cmdCANCEL");
  }
  EXPECT_TRUE(clean && flagged);
}

TEST_F(WalkOnALowScreen, shows_at_least_three_rows_of_fields) {
  MainWindow* window = &Main();
  SelectFirst("STO");
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
