// The shell around the sheets: splash, keys, status bar, wait screen.
#include <sys/wait.h>

#include <QAction>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include "desktop/look.h"
#include "desktop/results_list.h"
#include "desktop/shortcuts.h"
#include "desktop/wait_window.h"
#include "driver.h"
#include "shell/messages.h"

namespace merlu::test {
namespace {

// Two flares, in description mode, on the first of them.
class Around : public testing::Test {
 protected:
  Around() {
    TestRun run;
    run.StartWith("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.s.db.Close();
    fs::copy_file(run.folder.path("inventory.mdb"), folder_.path("inventory.mdb"));
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
  }
  void OnFirstFlare() {
    driver_->Start();
    driver_->Command("mnuSetEditMode");
    driver_->Select(kFirst);
  }
  void Key(const char* keys) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keySequence(focus != nullptr ? focus : driver_->app->window(), QKeySequence(keys));
    driver_->Settle();
  }
  QWidget* StartWithSplash() {
    driver_->app->Start();
    driver_->Settle();
    return driver_->Top("frmAbout");
  }
  static void ExpectCentred(const QWidget& widget, const QRect& room, int slack) {
    const QPoint off = widget.geometry().center() - room.center();
    EXPECT_LE(std::abs(off.x()), slack);
    EXPECT_LE(std::abs(off.y()), slack);
  }

  static constexpr const char* kFirst = "K12345   1001 1FLA      F1";
  static constexpr const char* kSecond = "K12345   1001 1FLA      F2";
  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver_;
};

// ---- a named inventory ----

TEST_F(Around, a_start_on_a_named_inventory_opens_it_and_keeps_it_for_later_starts) {
  const std::string named = folder_.path("named.mdb");
  fs::copy_file(folder_.path("inventory.mdb"), named);
  ASSERT_TRUE(driver_->app->Start(named));
  EXPECT_EQ(driver_->app->session().path, named);
  EXPECT_EQ(driver_->app->Setting("Options", "DBloc"), named);
}

TEST_F(Around, a_start_on_an_inventory_of_the_earlier_version_tells_so_and_opens_that_of_the_last_time) {
  const std::string named = CopyTemplate(folder_, "named.mdb");
  Raw(named, {"DROP TABLE EA_LOA"});
  driver_->OnNextBox();
  ASSERT_TRUE(driver_->app->Start(named));
  EXPECT_TRUE(driver_->texts.back().startsWith("You are trying to open a previous version of the MERLU database."));
  EXPECT_EQ(driver_->app->session().path, folder_.path("inventory.mdb"));
  EXPECT_EQ(driver_->app->Setting("Options", "DBloc"), folder_.path("inventory.mdb"));
}

// ---- the splash and the About box ----

TEST_F(Around, the_icon_is_part_of_the_program_in_the_sizes_that_desktops_ask_for) {
  EXPECT_EQ(ProgramIcon().availableSizes().size(), 7);
  EXPECT_FALSE(ProgramIcon().pixmap(QSize(16, 16)).isNull());
}

TEST_F(Around, the_splash_stands_in_the_middle_of_the_screen_with_the_fixed_texts) {
  QWidget* splash = StartWithSplash();
  ASSERT_NE(splash, nullptr);
  ExpectCentred(*splash, splash->screen()->availableGeometry(), 1);
  QStringList texts;
  for (const auto* label : splash->findChildren<QLabel*>())
    if (!label->text().isEmpty()) texts << label->text();
  EXPECT_TRUE(texts.contains("MERLU-2017"));
  EXPECT_TRUE(texts.contains("Version 1.0.5 November 2016 Update"));
  EXPECT_TRUE(texts.contains("Windows XP/Vista/7/8/10"));
}

TEST_F(Around, the_splash_closes_when_its_timer_fires) {
  QPointer<QWidget> splash = StartWithSplash();
  ASSERT_NE(splash, nullptr);
  auto* timer = splash->findChild<QTimer*>("tmrAbout");
  ASSERT_TRUE(timer != nullptr && timer->isActive() && timer->isSingleShot());
  EXPECT_TRUE(driver_->app->session().desk.Find("frmAbout")->visible);
  timer->start(0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }));
  EXPECT_FALSE(driver_->app->session().desk.Find("frmAbout")->visible);
}

TEST_F(Around, the_splash_and_its_timer_go_with_a_click_a_key_or_its_button) {
  const auto closes = [&](const std::function<void(QWidget*)>& act) {
    QPointer<QWidget> splash = StartWithSplash();
    ASSERT_NE(splash, nullptr);
    QPointer<QTimer> timer = splash->findChild<QTimer*>("tmrAbout");
    act(splash);
    EXPECT_TRUE(QTest::qWaitFor([&] { return splash.isNull(); }));
    EXPECT_TRUE(timer.isNull());
    EXPECT_FALSE(driver_->app->session().desk.Find("frmAbout")->visible);
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
  };
  closes([](QWidget* splash) { QTest::mouseClick(splash, Qt::LeftButton); });
  closes([&](QWidget*) { QTest::keyClick(&driver_->app->window()->tree(), Qt::Key_Shift); });
  closes([](QWidget* splash) { splash->findChild<QPushButton*>("cmdOK")->click(); });
}

TEST_F(Around, the_about_box_stays_until_it_is_closed_by_its_button) {
  OnFirstFlare();
  bool came = false;
  driver_->OnNextModal([&](QWidget* dialog) {
    came = dialog->objectName() == "frmAbout";
    EXPECT_EQ(dialog->findChild<QTimer*>("tmrAbout"), nullptr);
    // its frame comes around it once it has its place
    ExpectCentred(*dialog, dialog->screen()->availableGeometry(), 24);
    driver_->Click("cmdOK");
  });
  driver_->Command("mnuHAbout");
  EXPECT_TRUE(came);
  EXPECT_EQ(driver_->Top("frmAbout"), nullptr);
}

// ---- what is kept from run to run ----

TEST_F(Around, the_window_comes_back_with_its_place_size_and_tree_width) {
  OnFirstFlare();
  MainWindow* window = driver_->app->window();
  auto* splitter = window->findChild<QSplitter*>();
  window->setGeometry(40, 60, 1000, 650);
  driver_->Settle();
  splitter->setSizes({220, 760});
  const QPoint place = window->pos();
  const int tree = splitter->sizes().front();
  EXPECT_NE(tree, 280);
  const std::string settings = driver_->folder().path("settings.ini");
  driver_->app.reset();
  DesktopApp again(settings);
  ASSERT_TRUE(again.Start());
  QCoreApplication::processEvents();
  EXPECT_EQ(again.window()->size(), QSize(1000, 650));
  EXPECT_EQ(again.window()->pos(), place);
  EXPECT_EQ(again.window()->findChild<QSplitter*>()->sizes().front(), tree);
}

TEST_F(Around, a_window_of_a_larger_screen_comes_back_on_this_one) {
  OnFirstFlare();
  driver_->app->window()->move(9000, 9000);
  driver_->Settle();
  const std::string settings = driver_->folder().path("settings.ini");
  driver_->app.reset();
  DesktopApp again(settings);
  ASSERT_TRUE(again.Start());
  EXPECT_TRUE(again.window()->screen()->availableGeometry().intersects(again.window()->geometry()));
}

// ---- the keys ----

TEST_F(Around, the_keys_walk_through_the_tree) {
  OnFirstFlare();
  Key("Ctrl+PgDown");
  EXPECT_EQ(driver_->app->session().current.EquipID, "F2");
  Key("Ctrl+PgDown");  // there is none below
  EXPECT_EQ(driver_->app->session().current.EquipID, "F2");
  Key("Ctrl+PgUp");
  EXPECT_EQ(driver_->app->session().current.EquipID, "F1");
  Key("Ctrl+PgUp");
  EXPECT_EQ(driver_->app->session().current.Level, "STRUCTURE");
}

TEST_F(Around, the_keys_turn_the_pages_that_are_available_round_the_ends) {
  OnFirstFlare();
  auto* tabs = driver_->Find<QTabWidget>("tabFLA");
  ASSERT_EQ(tabs->count(), 3);
  Key("Ctrl+Tab");
  EXPECT_EQ(tabs->currentIndex(), 1);
  Key("Ctrl+Tab");
  Key("Ctrl+Tab");
  EXPECT_EQ(tabs->currentIndex(), 0);
  Key("Ctrl+Shift+Tab");
  EXPECT_EQ(tabs->currentIndex(), 2);
  Session& s = driver_->app->session();
  s.desk.Find("frmFLA")->At("tabFLA").page_available[1] = false;
  driver_->app->Paint();
  Key("Ctrl+Shift+Tab");
  EXPECT_EQ(tabs->currentIndex(), 0);
}

TEST_F(Around, every_key_is_there_once_and_every_button_of_all_sheets_tells_its_own) {
  OnFirstFlare();
  std::set<QString> seen;
  for (const Shortcut& row : Shortcuts()) {
    // the keys for the next node go to the next record during an edit
    const bool while_editing = std::string(row.id) == "mnuNNext" || std::string(row.id) == "mnuNPrevious";
    EXPECT_TRUE(while_editing || seen.insert(KeysText(row)).second) << row.keys;
    EXPECT_FALSE(std::string(row.what).empty()) << row.keys;
    if (std::string(row.id).empty() || !IsOffered(row, *driver_->app->session().main)) continue;
    auto* action = driver_->app->window()->findChild<QAction*>(row.id);
    ASSERT_NE(action, nullptr) << row.id;
    EXPECT_EQ(action->shortcut(), QKeySequence(row.keys));
    if (QWidget* button = driver_->app->window()->findChild<QPushButton*>(row.id)) {
      EXPECT_TRUE(button->toolTip().contains(row.what)) << row.id;
      EXPECT_TRUE(button->toolTip().contains(KeysText(row))) << row.id;
    }
  }
  for (const char* button : {"cmdEdit", "cmdSaveEdits", "cmdSaveExit", "cmdCANCEL", "cmdQC", "cmdEditMode"})
    EXPECT_FALSE(driver_->app->window()->findChild<QPushButton*>(button)->toolTip().isEmpty()) << button;
}

TEST_F(Around, the_sheet_of_keys_lists_them_all_and_opens_from_the_help_menu_or_by_its_key) {
  OnFirstFlare();
  int opened = 0;
  const auto look = [&](QWidget* dialog) {
    ++opened;
    auto* list = dialog->findChild<QTreeWidget*>();
    ASSERT_NE(list, nullptr);
    const Form& main = *driver_->app->session().main;
    const auto offered = std::count_if(Shortcuts().begin(), Shortcuts().end(),
                                       [&](const Shortcut& row) { return IsOffered(row, main); });
    ASSERT_EQ(list->topLevelItemCount(), static_cast<int>(offered));
    EXPECT_EQ(list->columnCount(), 2);
    // every key is reached: the dialog stays within the screen, and what does not fit is scrolled to, never sideways
    EXPECT_LE(dialog->height(), dialog->screen()->availableSize().height());
    EXPECT_FALSE(list->horizontalScrollBar()->isVisible());
    QTreeWidgetItem* last = list->topLevelItem(list->topLevelItemCount() - 1);
    const int room = dialog->screen()->availableSize().height() - dialog->height();
    EXPECT_TRUE(!list->verticalScrollBar()->isVisible() || room < 140) << room;
    list->scrollToItem(last);
    EXPECT_TRUE(list->viewport()->rect().contains(list->visualItemRect(last).center()));
    EXPECT_GE(list->columnWidth(1), list->fontMetrics().horizontalAdvance(Shortcuts()[10].what));
    EXPECT_EQ(list->topLevelItem(0)->text(0), KeysText(Shortcuts().front()));
    EXPECT_EQ(list->topLevelItem(0)->text(1), Shortcuts().front().what);
    QTest::mouseClick(dialog->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
  };
  driver_->OnNextModal(look);
  driver_->Command(shortcut::kSheet);
  driver_->OnNextModal(look);
  Key("Ctrl+F1");
  EXPECT_EQ(opened, 2);
}

// ---- no display ----

TEST(WithoutADisplay, the_program_says_so_in_one_line_and_ends_with_2) {
  const TemporaryFolder folder;
  const std::string run = std::string("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM \"" MERLU_BUILD_FOLDER) +
                          "/merlu\" --settings \"" + folder.path("settings.ini") + "\" > \"" + folder.path("out") +
                          "\" 2> \"" + folder.path("error") + "\"";
  const int status = std::system(run.c_str());
  ASSERT_TRUE(WIFEXITED(status)) << "it ended by a signal";
  EXPECT_EQ(WEXITSTATUS(status), 2);
  std::ifstream error(folder.path("error"));
  std::string line, more;
  std::getline(error, line);
  EXPECT_EQ(line,
            "merlu: there is no display to open a window on; \"merlu script\" works without one, see merlu --help");
  EXPECT_FALSE(std::getline(error, more)) << more;
  EXPECT_EQ(std::filesystem::file_size(folder.path("out")), 0u);
}

TEST(ScriptOfAFolder, cannot_be_read_and_ends_with_2) {
  const TemporaryFolder folder;
  const std::string run = std::string("\"" MERLU_BUILD_FOLDER) + "/merlu\" script --settings \"" +
                          folder.path("settings.ini") + "\" \"" + folder.path() + "\" > \"" + folder.path("out") +
                          "\" 2> \"" + folder.path("error") + "\"";
  const int status = std::system(run.c_str());
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 2);
  std::ifstream error(folder.path("error"));
  std::string line;
  std::getline(error, line);
  EXPECT_EQ(line, "merlu: cannot read " + folder.path());
  EXPECT_EQ(std::filesystem::file_size(folder.path("out")), 0u);
}

// ---- the status bar ----

TEST_F(Around, the_status_bar_tells_the_place_its_findings_and_what_was_done) {
  OnFirstFlare();
  const auto status = [&] { return driver_->Text("findings").section("  ·  ", 0, 0); };
  EXPECT_EQ(driver_->Text("SB1").section("›", -1).trimmed(), "Combustion Flare: F1");
  EXPECT_EQ(status(), "Not checked yet");
  const auto* results = driver_->app->window()->findChild<ResultsList*>("lvwFLA_QCResults");
  ASSERT_TRUE(results != nullptr);
  EXPECT_EQ(results->EmptyText(), "Not checked yet") << "nobody knows yet that there are none";
  driver_->OnNextBox();
  driver_->Click("cmdQC");
  EXPECT_EQ(results->EmptyText(), "No findings");
  const auto first = ToInteger(driver_->Sql("SELECT COUNT(*) FROM QC"));
  ASSERT_GT(first, 1);
  EXPECT_EQ(status(), QString("%1 findings, %1 without comment").arg(first));
  driver_->app->session().db.Execute("UPDATE QC SET Comments='so' WHERE rowid=(SELECT MIN(rowid) FROM QC)");
  driver_->Select(kSecond);
  EXPECT_EQ(status(), "Not checked yet");
  driver_->Select(kFirst);
  EXPECT_EQ(status(), QString("%1 findings, %2 without comment").arg(first).arg(first - 1));
  driver_->app->session().db.Execute("UPDATE QC SET Comments='so'");
  driver_->Select(kFirst);
  driver_->app->acts().Run([] {});
  EXPECT_EQ(status(), QString("%1 findings, all with a comment").arg(first));
  driver_->Select("K12345");
  EXPECT_EQ(driver_->Text("findings"), "Description Edit Mode  ·  inventory.mdb");
}

TEST_F(Around, the_status_bar_says_when_it_was_saved_and_what_became_of_the_edit) {
  OnFirstFlare();
  driver_->Click("cmdEdit");
  driver_->Click("cmdSaveEdits");
  EXPECT_TRUE(QRegularExpression("^Saved [0-9]{2}:[0-9]{2}$").match(driver_->Text("message")).hasMatch())
      << driver_->Text("message").toStdString();
  const QString saved = driver_->Text("message");
  driver_->Click("cmdCANCEL");
  EXPECT_EQ(driver_->Text("message"), saved) << "there was nothing to drop";
  driver_->Click("cmdEdit");
  driver_->Type("txtFLA_ConcH2S", "12");
  driver_->OnNextBox(QMessageBox::Yes);
  driver_->Click("cmdCANCEL");
  EXPECT_EQ(driver_->Text("message"), "Edit dropped");
}

TEST_F(Around, the_status_bar_counts_a_month_s_findings_for_its_survey_and_its_structures) {
  driver_->Start();
  Session& s = driver_->app->session();
  driver_->OnNextBox();
  driver_->Click("cmdUSER_AddSurvey");
  s.db.Execute("UPDATE EA_EQUIP_ACTV SET EA_QC_DT='2017-03-01 00:00:00'");
  s.db.Execute("UPDATE PA_PLATFORM_ACTV SET PA_QC_DT='2017-03-01 00:00:00'");
  const auto put = [&](int month, const char* level, const char* equipment, const char* field) {
    s.db.Execute(
        "INSERT INTO QC (UserID,[Month],[Year],CmplxID,StructID,Level,EquipType,EquipID,FieldID,[Desc]) "
        "VALUES ('12345',?,2017,'1001','1',?,'FLA',?,?,'odd')",
        {std::int64_t{month}, std::string(level), std::string(equipment), std::string(field)});
  };
  put(1, "STRUCTURE", "NA", "a");
  put(1, "EQUIPMENT", "F1", "b");
  put(2, "EQUIPMENT", "F1", "c");
  put(0, "EQUIPMENT", "F1", "d");
  const auto status = [&] { return driver_->Text("findings").section("  ·  ", 0, 0); };
  driver_->Select("K12345 12017");
  EXPECT_EQ(status(), "2 findings, 2 without comment");
  driver_->Select("K12345 12017   1001 1");
  EXPECT_EQ(status(), "2 findings, 2 without comment");
  driver_->Select("K12345 12017   1001 1FLA      F1");
  EXPECT_EQ(status(), "1 finding, 1 without comment");
}

// ---- the wait screen ----

TEST_F(Around, the_wait_screen_of_a_small_inventory_shows_only_when_the_work_goes_on) {
  OnFirstFlare();
  Session& s = driver_->app->session();
  ShowWait(s, "Export", "Please Wait...");
  EXPECT_EQ(driver_->Top("frmWait"), nullptr);
  ShowProgress(s, "March", 1, 12);
  EXPECT_EQ(driver_->Top("frmWait"), nullptr);
  QTest::qSleep(160);
  ShowProgress(s, "April", 2, 12);
  EXPECT_NE(driver_->Top("frmWait"), nullptr);
  HideWait(s);
  ShowWait(s, "Export", "Please Wait...");
  EXPECT_EQ(driver_->Top("frmWait"), nullptr) << "each work has a time of its own";
  HideWait(s);
}

TEST_F(Around, the_wait_screen_of_a_large_inventory_shows_at_once_over_the_window_with_what_is_done) {
  OnFirstFlare();
  Session& s = driver_->app->session();
  s.path = folder_.path("large.mdb");
  std::ofstream(s.path) << "";
  fs::resize_file(s.path, 8 << 20);
  ShowWait(s, "Preparing QA Summary", "Please Wait...");
  auto* wait = qobject_cast<WaitWindow*>(driver_->Top("frmWait"));
  ASSERT_NE(wait, nullptr);
  const QWidget* window = driver_->app->window();
  EXPECT_EQ(wait->windowTitle(), "MERLU");
  EXPECT_LE(std::abs(wait->geometry().center().x() - window->geometry().center().x()), 1);
  EXPECT_LE(std::abs(wait->geometry().center().y() - window->geometry().center().y()), window->height() / 8);
  auto* bar = wait->findChild<QProgressBar*>();
  EXPECT_EQ(bar->maximum(), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] {
    ShowProgress(s, "March", 3, 12);
    return bar->maximum() == 12;
  }));
  EXPECT_EQ(bar->value(), 3);
  HideWait(s);
  EXPECT_EQ(driver_->Top("frmWait"), nullptr);
}

}  // namespace
}  // namespace merlu::test
