// Lists and grids that read their rows from a model, and docks, by real keys and clicks.
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>

#include "desktop/dock_window.h"
#include "desktop/grid_view.h"
#include "desktop/model_list.h"
#include "driver.h"
#include "forms/dialog.h"
#include "forms/small_grid.h"
#include "shell/docks.h"
#include "shell/messages.h"

namespace merlu::test {
namespace {

class WindowTables : public testing::Test {
 protected:
  WindowTables() {
    driver.FillNewOperator();
    driver.Start();
    grid->columns = {{"Structure", "Structure"},
                     {"txtHours", "Hours Operated (hrs)", true},
                     {"txtRate", "Rate", true},
                     {"chkOff", "No Emissions to Report"}};
    grid->columns[3].items = {"off", "on"};
    for (int row = 0; row < 4; ++row) {
      grid->rows.emplace_back("k" + std::to_string(row), std::vector<GridCell>(4));
      grid->rows.back().second[0] = {"GI, 43, A", true};
    }
    grid->rows[1].second[1].locked = true;
  }

  // The form with the list and the grid, as a dialog, while the step runs.
  void InDialog(const std::function<void()>& step) {
    Session& s = driver.app->session();
    Form& form = s.desk.Own(std::make_unique<Form>("frmTables", "Tables"));
    AddListView(form, "lvwRows", "Rows", {"Name", "Number"}, rows);
    AddGrid(form, "grdCells", "Cells", grid);
    AddButton(form, "cmdCANCEL", "Close");
    form.cancel_button = "cmdCANCEL";
    form.On("cmdCANCEL", Event::kClick, [&s, &form] { s.desk.Hide(form); });
    if (change) change(form);
    driver.OnNextModal([&](QWidget*) {
      step();
      driver.Click("cmdCANCEL");
    });
    driver.app->acts().Run([&] { OpenDialog(s, form); });
    EXPECT_TRUE(driver.AllModalsCame());
  }
  GridView& Grid() { return *driver.Find<GridView>("grdCells"); }
  ModelList& List() { return *driver.Find<ModelList>("lvwRows"); }
  const Control& Cells() { return driver.app->session().desk.Find("frmTables")->At("grdCells"); }
  const Control& Rows() { return driver.app->session().desk.Find("frmTables")->At("lvwRows"); }
  void GoTo(int row, int column) {
    Grid().setFocus();
    Grid().setCurrentIndex(Grid().model()->index(row, column));
  }
  // Keys go to the cell's editor while there is one.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  void Keys(const QString& text) {
    for (const QChar c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
  }
  std::string Text(int row, int column) { return grid->Cell(row, column).text; }

  Driver driver;
  std::shared_ptr<RowsModel> rows = std::make_shared<RowsModel>();
  std::shared_ptr<SmallGrid> grid = std::make_shared<SmallGrid>();
  std::function<void(Form&)> change;
};

TEST_F(WindowTables, a_column_is_typed_down_past_what_is_locked) {
  InDialog([&] {
    GoTo(0, 1);
    Keys("12");
    Key(Qt::Key_Return);
    Keys("13");
    Key(Qt::Key_Return);
    Keys("14");
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(0, 1), "12");
    EXPECT_EQ(Text(1, 1), "");
    EXPECT_EQ(Text(2, 1), "13");
    EXPECT_EQ(Text(3, 1), "14");
  });
}

TEST_F(WindowTables, tab_goes_along_the_row_and_to_the_next_one) {
  InDialog([&] {
    GoTo(0, 1);
    Keys("1");
    Key(Qt::Key_Tab);
    Keys("2");
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Keys("3");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(0, 1), "1");
    EXPECT_EQ(Text(0, 2), "2");
    EXPECT_EQ(Text(1, 2), "3");
    EXPECT_EQ(Cells().at_row, 1);
    EXPECT_EQ(Cells().at_column, 3);
  });
}

TEST_F(WindowTables, escape_leaves_a_cell_as_it_was) {
  grid->rows[0].second[1].text = "7";
  InDialog([&] {
    GoTo(0, 1);
    Keys("99");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Text(0, 1), "7");
    EXPECT_TRUE(driver.app->session().desk.Find("frmTables")->visible);
  });
}

TEST_F(WindowTables, a_choice_is_made_with_the_keys) {
  InDialog([&] {
    GoTo(0, 3);
    Key(Qt::Key_F2);
    Keys("on");
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(0, 3), "on");
  });
}

TEST_F(WindowTables, a_block_is_pasted_and_copied) {
  grid->rows[2].second[2].text = "5";
  InDialog([&] {
    QApplication::clipboard()->setText("1\t2\r\n3\t4\r\n");
    GoTo(2, 1);
    Key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(grid->pasted.size(), 1U);
    EXPECT_EQ(grid->pasted[0], (GridBlock{{"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(grid->pasted_at.row, 2);
    Grid().selectRow(2);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "GI, 43, A\t\t5\t\n");
    EXPECT_EQ(Cells().picked, (std::vector<int>{2}));
  });
}

TEST_F(WindowTables, delete_empties_the_cell_in_hand) {
  grid->rows[0].second[1].text = "7";
  InDialog([&] {
    GoTo(0, 1);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Text(0, 1), "");
  });
}

TEST_F(WindowTables, a_locked_cell_opens_with_enter_where_it_can_be_opened) {
  int opened = 0;
  change = [&](Form& form) { form.On("grdCells", Event::kDoubleClick, [&] { ++opened; }); };
  InDialog([&] {
    GoTo(2, 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(Cells().at_row, 2);
  });
}

TEST_F(WindowTables, a_cell_tells_its_finding_and_looks_flagged) {
  grid->rows[0].second[1].back = Back::kFlag;
  grid->rows[0].second[1].finding = "Out of range";
  InDialog([&] {
    driver.Settle();
    GoTo(3, 0);
    const QModelIndex cell = Grid().model()->index(0, 1);
    EXPECT_EQ(Grid().model()->data(cell, Qt::ToolTipRole).toString(), "Out of range");
    const QRect place = Grid().visualRect(cell);
    const QImage seen = Grid().viewport()->grab().toImage();
    EXPECT_EQ(QColor(seen.pixel(place.center())).rgb(), QColor(255, 128, 128).rgb());
  });
}

TEST_F(WindowTables, other_rows_show_when_the_model_has_them) {
  InDialog([&] {
    EXPECT_EQ(Grid().model()->rowCount(), 4);
    driver.app->acts().Run([&] { grid->rows.resize(2); });
    EXPECT_EQ(Grid().model()->rowCount(), 2);
    driver.app->acts().Run([&] { rows->Set({{"x", "1"}}); });
    EXPECT_EQ(List().model()->rowCount(), 1);
    EXPECT_EQ(List().model()->index(0, 0).data().toString(), "x");
  });
}

TEST_F(WindowTables, a_click_on_a_head_sorts_and_rows_are_picked_and_opened) {
  rows->Set({{"b", "2"}, {"a", "1"}, {"c", "3"}});
  int opened = 0;
  change = [&](Form& form) { form.On("lvwRows", Event::kDoubleClick, [&] { ++opened; }); };
  InDialog([&] {
    List().setFocus();
    Key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Rows().picked.size(), 3U);
    QHeaderView& head = *List().header();
    QTest::mouseClick(head.viewport(), Qt::LeftButton, {}, QPoint(head.sectionViewportPosition(0) + 8, 8));
    EXPECT_EQ(List().model()->index(0, 0).data().toString(), "a");
    EXPECT_TRUE(Rows().picked.empty());
    EXPECT_EQ(Rows().sorted_by, 0);
    List().setCurrentIndex(List().model()->index(1, 0));
    EXPECT_EQ(Rows().picked, (std::vector<int>{1}));
    Key(Qt::Key_Return);
    EXPECT_EQ(opened, 1);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "b\t2\n");
  });
}

TEST_F(WindowTables, a_dock_shows_beside_the_sheet_and_its_own_button_hides_it) {
  Session& s = driver.app->session();
  Form& dock = s.desk.Own(std::make_unique<Form>("frmTestDock", "Test"));
  dock.dock = "mnuReview";
  AddText(dock, "txtTest_Filter", "Filter:");
  AddListView(dock, "lvwTest", "", {"Name"}, rows);
  s.main->On("mnuReview", Event::kClick, [&] { ToggleDock(s, dock); });
  rows->Set({{"a"}, {"b"}});
  driver.app->acts().Run([&] { ToggleDock(s, dock); });
  auto* window = driver.app->window()->findChild<DockWindow*>("frmTestDock");
  ASSERT_TRUE(window != nullptr);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(driver.Find<ModelList>("lvwTest")->model()->rowCount(), 2);
  driver.Type("txtTest_Filter", "x");
  EXPECT_EQ(dock.At("txtTest_Filter").text, "x");
  for (const char* name : {"qt_dockwidget_closebutton", "qt_dockwidget_floatbutton"}) {
    const auto* button = window->findChild<QAbstractButton*>(name);
    ASSERT_TRUE(button != nullptr) << name;
    EXPECT_GE(std::min(button->width(), button->height()), 22) << name;
  }
  window->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(dock.visible);
  driver.app->acts().Run([&] { ToggleDock(s, dock); });
  EXPECT_TRUE(window->isVisible());
}

}  // namespace
}  // namespace merlu::test
