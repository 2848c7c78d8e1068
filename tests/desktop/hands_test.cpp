// Unusual input: keys in odd places, double clicks, pasted cells, assistive programs, and a database that fails while
// the window is drawn.
#include <QClipboard>
#include <QTabBar>
#include <QToolTip>

#include "base/fault.h"
#include "desktop/acts.h"
#include "desktop/results_list.h"
#include "driver.h"

namespace merlu::test {
namespace {

// A flare of a structure, in its first month, in view.
class Hands : public testing::Test {
 protected:
  Hands() { StartOn("FLA"); }
  void StartOn(const std::string& type) {
    driver.reset();
    TestRun run;
    run.StartWith(type, "X1");
    run.s.db.Close();
    const std::string path = folder.path(type + ".mdb");
    fs::copy_file(run.folder.path("inventory.mdb"), path);
    driver = std::make_unique<Driver>(path);
    driver->Start();
    driver->Select("K12345 12017   1001 1" + type + "      X1");
  }
  Session& s() { return driver->app->session(); }
  QLineEdit& Hours() { return *driver->Find<QLineEdit>("txtFLA_HrsOperated"); }
  void Press(QWidget* widget, Qt::Key key) {
    QTest::keyClick(widget, key);
    driver->Settle();
  }
  TemporaryFolder folder;
  std::unique_ptr<Driver> driver;
};

TEST(ActsOfAWindow, go_on_after_a_fault_while_it_was_drawn) {
  TestRun run;
  Acts acts(run.s);
  int drawn = 0;
  QObject::connect(&acts, &Acts::Changed, [&] {
    if (++drawn == 1) throw Fault(fault_number::kInUseTable, "test", "The database is locked by another program.");
  });
  int done = 0;
  for (int i = 0; i < 3; ++i) acts.Run([&] { ++done; });
  EXPECT_FALSE(acts.IsDrawing());
  EXPECT_EQ(done, 3);
  EXPECT_EQ(drawn, 3);
}

TEST_F(Hands, press_the_button_that_has_the_focus) {
  driver->Select("K12345");
  driver->OnNextModal([this](QWidget*) {
    for (const char* field : {"txtComplxID", "txtStructID", "txtArea", "txtBlock", "txtName"}) driver->Type(field, "7");
    QWidget* cancel = driver->Widget("cmdCANCEL");
    cancel->setFocus();
    Press(cancel, Qt::Key_Return);
  });
  driver->Command("mnuSetEditMode");
  driver->Select("K12345");
  driver->Click("cmdUSER_AddStructure");
  EXPECT_TRUE(driver->AllModalsCame());
  EXPECT_EQ(ToInteger(driver->Sql("SELECT COUNT(*) FROM PD_PLATFORM_DESC")), 1);
}

TEST_F(Hands, load_the_list_by_enter_behind_the_name_of_an_import_file) {
  const std::string other = folder.path("other.mdb");
  fs::copy_file(s().path, other);
  driver->OnNextModal([&, this](QWidget*) {
    driver->Type("txtImportFilename", "nowhere.mdb");
    driver->OnNextBox();
    Press(driver->Widget("txtImportFilename"), Qt::Key_Return);
    EXPECT_TRUE(driver->Find<QPushButton>("cmdLoad")->isDefault());
    driver->Type("txtImportFilename", QString::fromStdString(other));
    Press(driver->Widget("txtImportFilename"), Qt::Key_Return);
    EXPECT_EQ(driver->Find<ResultsList>("lvwStructures")->topLevelItemCount(), 1);
    EXPECT_TRUE(driver->Find<QPushButton>("cmdImport")->isDefault());
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuEStructB");
  ASSERT_FALSE(driver->texts.empty());
  EXPECT_EQ(driver->texts.front(), "Failed to open Import database");
}

TEST_F(Hands, close_an_open_list_by_escape_and_not_the_edit) {
  driver->Command("mnuSetEditMode");
  driver->Click("cmdEdit");
  auto* list = driver->Find<ListField>("cmbFLA_FlareSmoke");
  list->showPopup();
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  Press(list->view(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_TRUE(s().editing);
}

TEST_F(Hands, click_the_selected_node_again_and_see_what_another_program_has_written) {
  Raw(s().path, {"UPDATE EA_FLA SET OP_HR=123"});
  QTreeView& tree = driver->app->window()->tree();
  const QPoint at = tree.visualRect(tree.currentIndex()).center();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, at);
  driver->Settle();
  EXPECT_EQ(Hours().text(), "123");
}

TEST_F(Hands, double_click_what_was_found_and_go_there) {
  driver->OnNextBox();
  driver->Click("cmdQC");
  const auto double_click = [&](const char* name, int row) {
    auto* list = driver->Find<ResultsList>(name);
    auto* tab = qobject_cast<QTabWidget*>(list->parentWidget()->parentWidget()->parentWidget());
    ASSERT_NE(tab, nullptr);
    tab->setCurrentIndex(tab->count() - 1);
    driver->Settle();
    ASSERT_TRUE(list->isVisible());
    const QPoint at = list->visualItemRect(list->topLevelItem(row)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    driver->Settle();
  };
  double_click("lvwFLA_QCResults", 1);
  EXPECT_FALSE(s().editing);
  EXPECT_EQ(QApplication::focusWidget(), driver->Widget("txtFLA_VolFlared"));
  driver->Select("K12345 12017");
  double_click("lvwSURVEY_QCResults", 0);
  EXPECT_TRUE(s().current.Is(level::kStructure));
  EXPECT_EQ(s().current.Month, 1);
  double_click("lvwSTRUCTURE_QCResults", 0);
  EXPECT_EQ(s().current.EquipID, "X1");
}

TEST_F(Hands, reach_a_command_from_a_line_of_text) {
  Hours().setFocus();
  QTest::keyClick(&Hours(), Qt::Key_E, Qt::ControlModifier);
  driver->Settle();
  EXPECT_TRUE(s().editing);
}

TEST_F(Hands, paste_a_cell_without_the_end_of_its_line) {
  driver->Click("cmdEdit");
  for (const auto& [cell, text] : {std::pair{"500\n", "500"}, std::pair{"600\r\n", "600"}, std::pair{"1\n2", "1 2"}}) {
    QApplication::clipboard()->setText(cell);
    Hours().setFocus();
    Hours().selectAll();
    Hours().paste();
    driver->Settle();
    EXPECT_EQ(Hours().text(), text);
    EXPECT_EQ(s().desk.Find("frmFLA")->At("txtFLA_HrsOperated").text, text);
  }
}

TEST_F(Hands, see_the_beginning_of_a_long_number_and_all_of_it_pointed_at) {
  driver->Click("cmdEdit");
  driver->Type("txtFLA_HrsOperated", "27.1234567890123");
  driver->Click("cmdSaveEdits");
  driver->Click("cmdCANCEL");
  driver->app->window()->setFocus();
  driver->Select("K12345 12017   1001 1");
  driver->Select("K12345 12017   1001 1FLA      X1");
  EXPECT_EQ(Hours().cursorPosition(), 0);
  EXPECT_EQ(Hours().toolTip(), "27.1234567890123");
}

TEST_F(Hands, leave_half_a_make_out_of_the_lookup_when_they_cancel_or_look_elsewhere) {
  StartOn("PNE");
  driver->Command("mnuSetEditMode");
  const auto known = ToInteger(driver->Sql("SELECT COUNT(*) FROM listPNE"));
  driver->Click("cmdEdit");
  for (const char* field : {"cmbPNE_Mfr", "cmbPNE_Model"}) {
    auto* list = driver->Find<ListField>(field);
    list->lineEdit()->setFocus();
    QTest::keyClicks(list->lineEdit(), "HALF");
  }
  QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(driver->Find<ListField>("cmbPNE_Model")->lineEdit(), &away);
  EXPECT_EQ(ToInteger(driver->Sql("SELECT COUNT(*) FROM listPNE")), known);
  Press(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(s().editing);
  EXPECT_EQ(driver->Text("cmbPNE_Model"), "");
  driver->OnNextBox(QMessageBox::Yes);
  Press(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(s().editing);
  EXPECT_EQ(driver->texts, std::deque<QString>{"Drop what was typed?"});
  EXPECT_EQ(ToInteger(driver->Sql("SELECT COUNT(*) FROM listPNE")), known);
}

TEST_F(Hands, double_click_a_button_once) {
  driver->Click("cmdEdit");
  auto* save = driver->Find<QPushButton>("cmdSaveExit");
  const QPointF at = QRectF(save->rect()).center(), global = save->mapToGlobal(at);
  QMouseEvent again(QEvent::MouseButtonDblClick, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(save, &again);
  QApplication::sendEvent(save, &release);
  driver->Settle();
  EXPECT_TRUE(s().editing);
}

TEST_F(Hands, pick_the_row_that_looks_chosen_by_keyboard) {
  driver->OnNextBox();
  driver->Click("cmdQC");
  driver->Click("cmdEdit");
  auto* tab = driver->Find<QTabWidget>("tabFLA");
  tab->setCurrentIndex(tab->count() - 1);
  driver->Settle();
  auto* list = driver->Find<ResultsList>("lvwFLA_QCResults");
  list->setFocus();
  Press(list, Qt::Key_Down);
  EXPECT_EQ(list->Picked(), QList<int>{0});
  list->clearSelection();
  driver->Settle();
  bool opened = false;
  driver->OnNextModal([&](QWidget*) {
    opened = true;
    driver->Click("cmdCancel");
  });
  Press(list, Qt::Key_Return);
  EXPECT_TRUE(opened);
}

TEST_F(Hands, of_an_assistive_program_type_where_one_can_type_and_nowhere_else) {
  Hours().setText("77");
  driver->Settle();
  EXPECT_EQ(Hours().text(), "");
  driver->Click("cmdEdit");
  Hours().setText("33");
  driver->Settle();
  driver->Click("cmdSaveEdits");
  EXPECT_EQ(ToNumber(driver->Sql("SELECT OP_HR FROM EA_FLA")), 33);
}

TEST_F(Hands, of_an_assistive_program_select_a_node) {
  QTreeView& tree = driver->app->window()->tree();
  const QModelIndex root = tree.model()->index(0, 0);
  tree.selectionModel()->select(root, QItemSelectionModel::ClearAndSelect);
  driver->Settle();
  EXPECT_EQ(s().current.Level, level::kUser);
  EXPECT_EQ(tree.currentIndex(), root);
}

TEST_F(Hands, find_a_locked_field_and_a_locked_list_looking_locked) {
  driver->Click("cmdEdit");
  auto* tab = driver->Find<QTabWidget>("tabFLA");
  tab->setCurrentIndex(tab->count() - 1);
  driver->Settle();
  Form& form = *s().desk.Find("frmFLA");
  form.At("txtFLA_ConcH2S").back = Back::kWindow;  // as a procedure may paint it
  driver->app->acts().Redraw();
  EXPECT_EQ(driver->Find<QLineEdit>("txtFLA_ConcH2S")->property("look"), "face");
  auto* list = driver->Find<ResultsList>("lvwFLA_QCResults");
  const auto ground = [&] { return list->grab().toImage().pixelColor(list->width() / 2, list->height() - 20); };
  EXPECT_EQ(list->property("look"), "window");
  const QColor editable = ground();
  driver->Click("cmdCANCEL");
  EXPECT_EQ(list->property("look"), "face");
  EXPECT_NE(ground(), editable);
}

TEST_F(Hands, see_a_finding_told_at_the_field_that_has_the_focus) {
  driver->Click("cmdEdit");
  driver->OnNextBox();
  driver->Click("cmdQC");
  driver->app->window()->setFocus();
  Hours().setFocus(Qt::TabFocusReason);
  QTest::qWait(50);
  EXPECT_TRUE(driver->Text("sheetLine").endsWith("Required field left blank"))
      << driver->Text("sheetLine").toStdString();
  EXPECT_FALSE(QToolTip::isVisible()) << "it would cover the next field";
}

}  // namespace
}  // namespace merlu::test
