// An evening of a user at the windows, by real keys and clicks: what is typed, where it goes, and what is said of it.
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMenu>
#include <QPrintDialog>
#include <QTabWidget>
#include <QTreeWidget>

#include "desktop/grid_view.h"
#include "desktop/look.h"
#include "desktop/model_list.h"
#include "driver.h"

namespace merlu::test {
namespace {

// Two flares of a structure in two months, the first of them in view.
class Evening : public testing::Test {
 protected:
  Evening() {
    TestRun run;
    run.StartWith("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.AddMonth();
    run.s.db.Close();
    fs::copy_file(run.folder.path("inventory.mdb"), folder_.path("inventory.mdb"));
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
    driver_->Start();
    driver_->Select(kFirst);
  }
  Session& S() { return driver_->app->session(); }
  MainWindow& Main() { return *driver_->app->window(); }
  QTabWidget& Tabs() { return *driver_->Find<QTabWidget>("tabFLA"); }
  void Key(const char* keys) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keySequence(focus != nullptr ? focus : &Main(), QKeySequence(keys));
    driver_->Settle();
    ++strokes_;
  }
  void Write(const QString& text) {
    for (const QChar c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    driver_->Settle();
  }
  QString Focus() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
  }
  // The dialog of files that comes next takes this name, or is cancelled without one.
  void OnNextFile(const QString& path) {
    driver_->OnNextModal([this, path](QWidget* widget) {
      auto* dialog = qobject_cast<QFileDialog*>(widget);
      ASSERT_TRUE(dialog != nullptr) << "a file dialog";
      file_dialogs_ << dialog->windowTitle();
      if (path.isEmpty()) return dialog->reject();
      auto* line = dialog->findChild<QLineEdit*>("fileNameEdit");
      line->setText(path);
      QTest::keyClick(line, Qt::Key_Return);
    });
  }
  static constexpr const char* kFirst = "K12345 12017   1001 1FLA      F1";
  static constexpr const char* kNextMonth = "K12345 22017   1001 1FLA      F1";

  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver_;
  QStringList file_dialogs_;
  int strokes_ = 0;
};

// ---- nothing typed is lost without a word ----

TEST_F(Evening, is_told_on_leaving_a_number_what_will_be_stored_of_it) {
  Key("Ctrl+E");
  for (const auto& [text, said] :
       std::vector<std::pair<const char*, const char*>>{{"12,000.5", "Will be saved as 12"},
                                                        {"60 mi", "Not a number: will be saved blank"},
                                                        {"250 000", "Not a number: will be saved blank"},
                                                        {"744", ""},
                                                        {"5.0", ""}}) {
    driver_->Widget("txtFLA_HrsOperated")->setFocus(Qt::TabFocusReason);
    Key("Ctrl+A");
    Write(text);
    Key("Tab");
    EXPECT_NE(Focus(), "txtFLA_HrsOperated");
    const QWidget* hint = driver_->Widget("txtFLA_HrsOperated_Hint");
    EXPECT_EQ(hint != nullptr && hint->isVisible(), *said != '\0') << text;
    EXPECT_TRUE(*said == '\0' || driver_->Text("txtFLA_HrsOperated_Hint").startsWith(said)) << text;
  }
}

TEST_F(Evening, pastes_numbers_without_their_units_marks_and_blanks) {
  Key("Ctrl+E");
  for (const auto& [text, shown] : std::vector<std::pair<QString, QString>>{
           {"12,000.5", "12000.5"}, {"250 000", "250000"}, {"60 hrs", "60"}, {QString(QChar(0x2212)) + "5", "-5"}}) {
    driver_->Widget("txtFLA_HrsOperated")->setFocus(Qt::TabFocusReason);
    Key("Ctrl+A");
    QApplication::clipboard()->setText(text);
    Key("Ctrl+V");
    EXPECT_EQ(driver_->Text("txtFLA_HrsOperated"), shown) << text.toStdString();
  }
}

// ---- marks ----

TEST_F(Evening, sees_a_finding_s_mark_its_tab_and_its_words_in_view_and_in_edit) {
  Key("Ctrl+E");
  Write("745");
  Key("Return");
  Write("900");
  driver_->OnNextBox();
  Key("Ctrl+Return");
  EXPECT_FALSE(S().editing);
  EXPECT_EQ(driver_->texts.back(), "QC completed with 1 errors found");
  for (const bool editing : {false, true}) {
    if (editing) Key("Ctrl+E");
    EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Mark"), "!") << editing;
    EXPECT_EQ(driver_->Text("txtFLA_VolFlared_Mark"), "") << editing;
    EXPECT_TRUE(Tabs().tabText(0).endsWith(")")) << Tabs().tabText(0).toStdString();
    driver_->Widget("txtFLA_HrsOperated")->setFocus(Qt::TabFocusReason);
    driver_->Settle();
    EXPECT_TRUE(driver_->Text("sheetLine").endsWith("Value not in expected range (0 to 744)"))
        << driver_->Text("sheetLine").toStdString();
  }
  EXPECT_EQ(driver_->Text("message").left(5), "Saved");
  Key("Ctrl+A");
  Write("744");
  Key("Ctrl+Return");
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Mark"), "");
  EXPECT_EQ(driver_->Text("message").left(5), "Saved");
}

TEST_F(Evening, reads_the_month_before_beside_each_field) {
  Key("Ctrl+E");
  Write("701");
  Key("Return");
  Write("901");
  Key("Ctrl+S");
  Key("Esc");
  ASSERT_FALSE(S().editing);
  driver_->Select(kNextMonth);
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Was"), "701");
  EXPECT_EQ(driver_->Text("txtFLA_VolFlared_Was"), "901");
  EXPECT_TRUE(driver_->Widget("txtFLA_HrsOperated_Was")->isVisible());
}

TEST_F(Evening, is_told_below_the_month_s_list_what_its_counts_are_of) {
  driver_->Select("K12345 12017");
  bool told = false;
  for (const auto* label : Main().findChildren<QLabel*>())
    told = told || (label->isVisible() && label->text() == "The structures' counts are of all months.");
  EXPECT_TRUE(told);
  EXPECT_TRUE(driver_->Text("findings").startsWith("Not checked yet") || driver_->Text("findings").contains("finding"))
      << driver_->Text("findings").toStdString();
}

// ---- moving ----

TEST_F(Evening, begins_an_edit_on_any_page_at_its_first_open_field) {
  driver_->Command("mnuSetEditMode");
  driver_->Select("K12345   1001 1FLA      F1");
  Tabs().setCurrentIndex(1);
  driver_->Widget("cmdEdit")->setFocus();
  Key("Ctrl+E");
  ASSERT_TRUE(S().editing);
  EXPECT_EQ(Tabs().currentIndex(), 1);
  EXPECT_TRUE(Tabs().currentWidget()->isAncestorOf(QApplication::focusWidget())) << Focus().toStdString();
}

TEST_F(Evening, gives_the_commands_of_files_by_the_keys_that_they_have_elsewhere) {
  OnNextFile("");
  Key("Ctrl+O");
  OnNextFile("");
  Key("Ctrl+N");
  EXPECT_TRUE(driver_->AllModalsCame());
  EXPECT_EQ(file_dialogs_.size(), 2);
  bool prints = false;
  driver_->OnNextModal([&](QWidget* dialog) {
    prints = qobject_cast<QPrintDialog*>(dialog) != nullptr;
    static_cast<QDialog*>(dialog)->reject();
  });
  Key("Ctrl+P");
  EXPECT_TRUE(driver_->AllModalsCame());
  EXPECT_TRUE(prints);
  Key("Ctrl+Q");
  EXPECT_TRUE(S().ended);
}

TEST_F(Evening, accepts_a_comment_by_ctrl_return_and_goes_on_a_line_by_return) {
  driver_->OnNextBox();
  Key("F5");
  Key("Ctrl+Shift+F");
  auto* list = driver_->Find<ModelList>("lvwFND_List");
  ASSERT_TRUE(list != nullptr);
  list->setFocus();
  Key("Down");
  driver_->OnNextModal([&](QWidget*) {
    EXPECT_EQ(Focus(), "txtComments");
    Write("The meter");
    Key("Return");
    Write("ran on");
    Key("Ctrl+Return");
  });
  driver_->Widget("cmdFND_Comment")->setFocus(Qt::TabFocusReason);
  Key("Return");
  EXPECT_TRUE(driver_->AllModalsCame());
  EXPECT_EQ(ToInteger(driver_->Sql("SELECT COUNT(*) FROM QC WHERE Comments LIKE 'The meter%ran on'")), 1);
}

TEST_F(Evening, finds_in_the_tree_by_the_line_above_it_and_goes_on_there) {
  driver_->Widget("txtTREE_Filter")->setFocus();
  QTest::keyClicks(QApplication::focusWidget(), "f2");
  const auto hidden = [&](const char* key) {
    const int node = S().tree.Find(key);
    const QModelIndex index = static_cast<TreeModel*>(Main().tree().model())->IndexOf(node);
    return Main().tree().isRowHidden(index.row(), index.parent());
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return hidden(kFirst); })) << "while the line still has the keyboard";
  EXPECT_EQ(Focus(), "txtTREE_Filter");
  EXPECT_FALSE(hidden("K12345 12017   1001 1FLA      F2"));
  const int other = S().tree.Find("K12345 22017   1001 1");
  EXPECT_TRUE(Main().tree().isExpanded(static_cast<TreeModel*>(Main().tree().model())->IndexOf(other)));
  Key("Return");
  EXPECT_EQ(QApplication::focusWidget(), &Main().tree());
  EXPECT_EQ(S().current.EquipID, "F2") << "the first that was found";
  driver_->Widget("txtTREE_Filter")->setFocus();
  Key("Ctrl+A");
  Key("Backspace");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !hidden(kFirst); }));
}

TEST_F(Evening, sees_where_the_keyboard_is_in_the_tree_and_in_a_locked_field) {
  const auto ground = [&] {
    QTreeView& tree = Main().tree();
    const QRect row = tree.visualRect(tree.currentIndex());
    const QImage picture = tree.viewport()->grab().toImage();
    return picture.pixelColor(QPoint(row.right() - 4, row.center().y()) * picture.devicePixelRatio()).name();
  };
  Main().tree().setFocus();
  driver_->Settle();
  EXPECT_EQ(ground(), AccentGround(QApplication::palette()).name());
  QWidget* field = driver_->Widget("txtFLA_HrsOperated");
  const auto edge = [&] {
    const QImage picture = field->grab().toImage();
    return picture.pixelColor(QPoint(0, field->height() / 2) * picture.devicePixelRatio()).name();
  };
  const QString resting = edge();
  field->setFocus(Qt::TabFocusReason);
  driver_->Settle();
  EXPECT_EQ(ground(), RestingGround(QApplication::palette()).name());
  EXPECT_NE(edge(), resting) << "a locked field shows it too";
  EXPECT_EQ(edge(), Accent(QApplication::palette()).name());
}

TEST_F(Evening, reads_a_node_s_whole_text_when_it_is_pointed_at) {
  EXPECT_EQ(Main().tree().currentIndex().data(Qt::ToolTipRole).toString(), "Combustion Flare: F1");
}

// ---- knowing where one is ----

TEST_F(Evening, opens_an_inventory_of_the_last_days_from_the_menu) {
  const std::string other = folder_.path("other.mdb");
  fs::copy_file(folder_.path("inventory.mdb"), other);
  OnNextFile(QString::fromStdString(other));
  Key("Ctrl+O");
  ASSERT_TRUE(driver_->AllModalsCame());
  EXPECT_TRUE(driver_->Text("findings").endsWith("other.mdb")) << driver_->Text("findings").toStdString();
  auto* recent = Main().findChild<QAction*>("mnuFRecent2");
  ASSERT_TRUE(recent != nullptr && recent->isVisible());
  EXPECT_TRUE(QString(recent->text()).remove('&').contains("inventory.mdb")) << recent->text().toStdString();
  driver_->Command("mnuFRecent2");
  EXPECT_TRUE(driver_->Text("findings").endsWith("inventory.mdb")) << driver_->Text("findings").toStdString();
}

TEST_F(Evening, finds_no_inventory_in_the_menu_that_is_gone_when_it_opens) {
  const std::string other = folder_.path("other.mdb");
  fs::copy_file(folder_.path("inventory.mdb"), other);
  OnNextFile(QString::fromStdString(other));
  Key("Ctrl+O");
  ASSERT_TRUE(driver_->AllModalsCame());
  auto* recent = Main().findChild<QAction*>("mnuFRecent2");
  ASSERT_TRUE(recent != nullptr && recent->isVisible());
  fs::rename(folder_.path("inventory.mdb"), folder_.path("renamed.mdb"));
  emit Main().findChild<QMenu*>("mnuFile")->aboutToShow();
  EXPECT_FALSE(recent->isVisible());
  fs::rename(folder_.path("renamed.mdb"), folder_.path("inventory.mdb"));
}

TEST_F(Evening, is_told_where_a_document_is_that_no_program_opens) {
  driver_->OnNextModal([&](QWidget* widget) {
    auto* box = qobject_cast<QMessageBox*>(widget);
    ASSERT_TRUE(box != nullptr);
    driver_->texts.push_back(box->text());
    box->accept();
  });
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", "/nowhere");
  driver_->app->OpenDocument(folder_.path("summary.pdf"));
  qputenv("PATH", path);
  ASSERT_TRUE(driver_->AllModalsCame());
  EXPECT_EQ(driver_->texts.back(),
            "No program here opens this file. It stands at\n" + QString::fromStdString(folder_.path("summary.pdf")));
}

TEST_F(Evening, reads_in_an_empty_window_what_to_do_next) {
  // the last inventory is gone when another one is looked for, and the question is cancelled
  S().db.Close();
  S().tree.nodes.clear();
  S().tree.selected = -1;
  ++S().tree.revision;
  for (Form* form : std::vector<Form*>(S().desk.showing))
    if (form != S().main) S().desk.Hide(*form);
  driver_->app->acts().Redraw();
  driver_->Settle();
  EXPECT_EQ(driver_->Text("blank"), "No inventory is open. The menu File opens one, or makes a new one.");
  EXPECT_TRUE(driver_->Widget("blank")->isVisible());
}

TEST(FirstEvening, opens_an_inventory_that_is_there_from_the_first_question) {
  TestRun run;
  run.StartWith("FLA", "F1");
  run.s.db.Close();
  const TemporaryFolder folder;
  fs::copy_file(run.folder.path("inventory.mdb"), folder.path("there.mdb"));
  Driver driver;
  driver.OnNextModal([&](QWidget*) {
    driver.OnNextModal([&](QWidget* dialog) {
      auto* line = dialog->findChild<QLineEdit*>("fileNameEdit");
      ASSERT_TRUE(line != nullptr);
      line->setText(QString::fromStdString(folder.path("there.mdb")));
      QTest::keyClick(line, Qt::Key_Return);
    });
    driver.Click("cmdOpenExisting");
  });
  driver.Start();
  ASSERT_TRUE(driver.AllModalsCame());
  EXPECT_TRUE(driver.Text("findings").endsWith("there.mdb")) << driver.Text("findings").toStdString();
}

// ---- the evening as a whole ----

// A month on the sheets, the next one in the grid with a pasted column, the findings walked and explained, a step taken
// back, and the look at what is ready: each with the keys that it takes beside the digits.
TEST_F(Evening, goes_from_the_first_digit_to_the_hand_in_by_keys) {
  Key("Ctrl+E");
  strokes_ = 0;
  for (const char* hours : {"701", "745"}) {
    Write(hours);
    Key("Return");
    Write("900");
    Key("Ctrl+PgDown");
  }
  EXPECT_FALSE(S().editing);
  EXPECT_EQ(strokes_, 4) << "two for each record";
  EXPECT_EQ(ToInteger(driver_->Sql("SELECT COUNT(*) FROM EA_FLA WHERE OP_HR IN (701,745) AND VOL_FLARED=900")), 2);

  driver_->Select(kNextMonth);
  strokes_ = 0;
  driver_->OnNextModal([&](QWidget*) {
    auto* grid = driver_->Find<GridView>("grdGRD");
    ASSERT_TRUE(grid != nullptr);
    EXPECT_EQ(QApplication::focusWidget(), grid) << "the first key is for the first cell";
    Write("702");
    Key("Return");
    Write("=24*31");
    Key("Tab");
    Key("Up");
    QApplication::clipboard()->setText("1,200\n1,300\n");
    Key("Ctrl+V");
    Write("1201");
    Key("Ctrl+S");
    EXPECT_EQ(driver_->Text("lblGRD_Message").left(16), "2 records saved,")
        << driver_->Text("lblGRD_Message").toStdString();
    if (!driver_->Text("lblGRD_Message").contains("saved")) driver_->OnNextBox(QMessageBox::No);
    Key("Esc");
  });
  Key("Ctrl+G");
  ASSERT_TRUE(driver_->AllModalsCame());
  EXPECT_LE(strokes_, 8);
  EXPECT_EQ(ToInteger(driver_->Sql("SELECT COUNT(*) FROM EA_FLA WHERE (OP_HR=702 AND VOL_FLARED=1201) OR "
                                   "(OP_HR=744 AND VOL_FLARED=1300)")),
            2);

  // on to the finding of the month, from wherever one is
  for (int findings = 0; findings < 60 && (S().current.Month != 1 || Focus() != "txtFLA_HrsOperated"); ++findings)
    Key("F8");
  EXPECT_EQ(S().current.EquipID, "F2");
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated"), "745");
  strokes_ = 0;
  Key("F2");
  Key("Ctrl+A");
  Write("744");
  Key("Ctrl+Return");
  EXPECT_FALSE(S().editing);
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Mark"), "");
  Key("Ctrl+Z");
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated"), "745");
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Mark"), "!");
  Key("Ctrl+Shift+Z");
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated"), "744");
  driver_->OnNextModal([&](QWidget* dialog) {
    EXPECT_TRUE(driver_->Text("lblHND_Verdict").startsWith("Not ready: "))
        << driver_->Text("lblHND_Verdict").toStdString();
    static_cast<QDialog*>(dialog)->reject();
  });
  driver_->Command("mnuRHandIn");
  EXPECT_TRUE(driver_->AllModalsCame());
}

}  // namespace
}  // namespace merlu::test
