// The review by hand: the findings and the matrix with real keys, the hand-in and what stops its run.
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTimer>

#include "desktop/grid_view.h"
#include "desktop/model_list.h"
#include "driver.h"
#include "inventory.h"
#include "shell/docks.h"
#include "shell/findings_dock.h"

namespace merlu::test {
namespace {

std::string FaultyInventory(const TemporaryFolder& folder) {
  InventoryPlan plan;
  plan.structures = 3;
  plan.equipment = 9;
  plan.months = 3;
  plan.fault_share = 0.5;
  std::string path = folder.path("inventory.mdb");
  MakeInventory(TemplatePath(), path, plan);
  return path;
}

class WindowReview : public testing::Test {
 protected:
  WindowReview() : driver(FaultyInventory(folder)) { driver.Start(); }
  Session& S() { return driver.app->session(); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* at = QApplication::focusWidget();
    QTest::keyClick(at != nullptr ? at : driver.app->window(), key, modifiers);
    driver.Settle();
  }
  ModelList& List() { return *driver.Find<ModelList>("lvwFND_List"); }
  GridView& Matrix() { return *driver.Find<GridView>("grdCMP_Matrix"); }
  std::string Cell(int row, int column) {
    return Matrix().model()->index(row, column).data(Qt::DisplayRole).toString().toStdString();
  }

  TemporaryFolder folder;
  Driver driver;
};

TEST_F(WindowReview, the_menu_at_the_docks_and_at_the_menu_bar_gives_the_commands_of_the_docks) {
  driver.Command("mnuRFindings");
  driver.Command("mnuRFindings");
  const Form& findings = *S().desk.Find("frmFindings");
  ASSERT_FALSE(findings.visible);
  QMenuBar& bar = *driver.app->window()->menuBar();
  const QPoint at = bar.rect().center();
  QContextMenuEvent wanted(QContextMenuEvent::Mouse, at, bar.mapToGlobal(at));
  QApplication::sendEvent(driver.app->window(), &wanted);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_FALSE(menu->actions().isEmpty());
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  driver.Settle();
  EXPECT_TRUE(findings.visible) << "the form hears of it";
  EXPECT_TRUE(driver.app->window()->findChild<QAction*>("mnuRFindings")->isChecked());
  EXPECT_GT(List().model()->rowCount(), 0);
}

TEST_F(WindowReview, findings_are_filtered_walked_through_and_opened_with_keys) {
  Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_TRUE(driver.Find<ModelList>("lvwFND_List") != nullptr) << "the dock shows";
  const int all = List().model()->rowCount();
  ASSERT_GT(all, 3);
  driver.Type("txtFND_Filter", "2017/02");
  driver.Settle();
  const int of_february = List().model()->rowCount();
  EXPECT_LT(of_february, all);
  EXPECT_GT(of_february, 0);
  EXPECT_TRUE(driver.Text("lblFND_Count").startsWith(QString::number(of_february) + " of " + QString::number(all)));

  List().setFocus();
  Key(Qt::Key_Down);
  ASSERT_EQ(S().desk.Find("frmFindings")->At("lvwFND_List").picked.size(), 1u);
  Key(Qt::Key_Return);
  EXPECT_EQ(S().current.Month, 2);
  const std::string place = S().status_text;
  Key(Qt::Key_F8);
  const std::vector<int> second = S().desk.Find("frmFindings")->At("lvwFND_List").picked;
  Key(Qt::Key_F8, Qt::ShiftModifier);
  EXPECT_EQ(S().status_text, place);
  EXPECT_NE(S().desk.Find("frmFindings")->At("lvwFND_List").picked, second);
  Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_FALSE(List().isVisible()) << "the dock is gone";
}

TEST_F(WindowReview, a_field_that_was_gone_to_has_the_keyboard) {
  Key(Qt::Key_F8);
  QWidget* at = QApplication::focusWidget();
  ASSERT_TRUE(at != nullptr);
  FindingsModel& all = Findings(S());
  ASSERT_GT(all.RowCount(), 2);
  EXPECT_EQ(at->objectName().toStdString(), all.At(0).kind->control);
  Key(Qt::Key_F8);
  EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), all.At(1).kind->control) << "and on to the next";
}

TEST_F(WindowReview, the_matrix_is_read_and_opened_with_keys) {
  Key(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_TRUE(driver.Find<GridView>("grdCMP_Matrix") != nullptr);
  Matrix().setFocus();
  Matrix().setCurrentIndex(Matrix().model()->index(0, 1));
  Key(Qt::Key_Right);
  Key(Qt::Key_Right);
  Key(Qt::Key_Down);
  const QModelIndex at = Matrix().currentIndex();
  EXPECT_EQ(at.row(), 1);
  EXPECT_EQ(at.column(), 3);
  const QString tip = at.data(Qt::ToolTipRole).toString();
  EXPECT_TRUE(tip.contains("month 02")) << tip.toStdString();
  EXPECT_EQ(at.data(Qt::AccessibleDescriptionRole).toString(), tip) << "said to a screen reader too";
  Key(Qt::Key_Return);
  EXPECT_EQ(S().current.Month, 2);
  EXPECT_TRUE(S().InActv());
}

TEST_F(WindowReview, names_of_the_rows_stay_while_the_months_scroll) {
  Key(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
  auto* fixed = Matrix().findChild<QTableView*>();
  ASSERT_TRUE(fixed != nullptr);
  EXPECT_FALSE(fixed->isColumnHidden(0));
  EXPECT_TRUE(fixed->isColumnHidden(2));
  Matrix().horizontalScrollBar()->setValue(Matrix().horizontalScrollBar()->maximum());
  driver.Settle();
  EXPECT_EQ(fixed->columnViewportPosition(0), 0);
}

TEST_F(WindowReview, a_row_of_the_hand_in_shows_its_records) {
  driver.OnNextModal([&](QWidget*) {
    auto* checks = driver.Find<ModelList>("lvwHND_Checks");
    ASSERT_TRUE(checks != nullptr);
    checks->setFocus();
    checks->setCurrentIndex(checks->model()->index(3, 0));
    Key(Qt::Key_Return);
  });
  driver.Command("mnuRHandIn");
  EXPECT_TRUE(driver.AllModalsCame());
  EXPECT_EQ(driver.Text("cmbFND_State"), "Open");
  EXPECT_GT(List().model()->rowCount(), 0);
}

TEST_F(WindowReview, its_run_is_stopped_with_a_click) {
  bool seen = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    QWidget* wait = driver.Top("frmWait");
    auto* stop = wait == nullptr ? nullptr : wait->findChild<QPushButton*>("cmdWaitStop");
    if (stop == nullptr || !stop->isEnabled()) return;
    seen = true;
    QTest::mouseClick(stop, Qt::LeftButton);
  });
  watch.start(0);
  const auto not_checked = [&] {
    return ToInteger(driver.Sql("SELECT COUNT(*) FROM EA_EQUIP_ACTV WHERE EA_QC_DT IS NULL"));
  };
  const std::int64_t before = not_checked();
  driver.OnNextModal([&](QWidget*) {
    WaitScreen wait{true, "Check What Was Not", "", 0, 9, true};
    // the wait screen of such a run, with its button
    driver.app->AllowStop();
    driver.app->PaintWait(wait);
    EXPECT_TRUE(seen);
    EXPECT_TRUE(driver.app->IsStopWanted());
    driver.app->PaintWait({});
    EXPECT_FALSE(driver.app->IsStopWanted());
    watch.stop();
    driver.Click("cmdHND_CheckAll");
    EXPECT_LT(not_checked(), before);
    driver.Click("cmdClose");
  });
  driver.Command("mnuRHandIn");
  EXPECT_TRUE(driver.AllModalsCame());
}

// The program as it is painted first.
class FirstPainting : public DesktopApp {
 public:
  using DesktopApp::DesktopApp;
  void Paint() override {
    DesktopApp::Paint();
    if (std::exchange(painted, true)) return;
    window_shows = window() != nullptr && window()->isVisible();
    for (const char* label : {"lblFND_Count", "lblCMP_Count"})
      if (const auto* found = window()->findChild<QLabel*>(label)) labels << found->text();
    if (const auto* list = window()->findChild<ModelList*>("lvwFND_List")) rows = list->model()->rowCount();
  }
  bool painted = false, window_shows = false;
  int rows = -1;
  QStringList labels;
};

TEST(StartWithDocks, paints_the_window_before_they_are_read) {
  TemporaryFolder folder;
  const std::string path = FaultyInventory(folder);
  FirstPainting app(folder.path("settings.ini"));
  app.StoreSetting("Options", "DBloc", path);
  for (const char* dock : {"mnuRFindings", "mnuRCompleteness"}) app.StoreSetting("Docks", dock, "1");
  ASSERT_TRUE(app.Start());
  EXPECT_TRUE(app.window_shows);
  EXPECT_EQ(app.rows, 0);
  EXPECT_EQ(app.labels, QStringList({"Reading...", "Reading..."}));
  EXPECT_GT(app.window()->findChild<ModelList*>("lvwFND_List")->model()->rowCount(), 3);
  EXPECT_TRUE(app.window()->findChild<QLabel*>("lblFND_Count")->text().contains(" findings"));
  EXPECT_FALSE(app.window()->findChild<QLabel*>("lblCMP_Count")->text().contains("Reading"));
}

}  // namespace
}  // namespace merlu::test
