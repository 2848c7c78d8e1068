// A typist at the windows: what the keys do to fields, lists, the tree and the edit.
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QTreeWidget>

#include "dark.h"
#include "desktop/binding.h"
#include "desktop/captions.h"
#include "desktop/look.h"
#include "desktop/navigation_tree.h"
#include "desktop/results_list.h"
#include "desktop/shortcuts.h"
#include "driver.h"

namespace merlu::test {
namespace {

// Two flares of a structure, the first of them in view in its first month.
class Typist : public testing::Test {
 protected:
  Typist() {
    TestRun run;
    run.StartWith("FLA", "F1");
    run.Select(run.Key());
    run.AddEquipment("FLA", "F2");
    run.s.db.Close();
    path_ = folder_.path("inventory.mdb");
    fs::copy_file(run.folder.path("inventory.mdb"), path_);
    driver_ = std::make_unique<Driver>(path_);
    driver_->Start();
    driver_->Select(kFirst);
  }
  Session& S() { return driver_->app->session(); }
  QLineEdit& Line(const char* name) { return *driver_->Find<QLineEdit>(name); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : driver_->app->window(), key, modifiers);
    driver_->Settle();
  }
  void Write(const QString& text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
    driver_->Settle();
  }
  QString Focus() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
  }
  // The descriptions of the first flare, edited.
  void EditDescription() {
    driver_->Command("mnuSetEditMode");
    driver_->Select("K12345   1001 1FLA      F1");
    driver_->Click("cmdEdit");
  }
  static constexpr const char* kFirst = "K12345 12017   1001 1FLA      F1";

  TemporaryFolder folder_;
  std::string path_;
  std::unique_ptr<Driver> driver_;
};

// ---- entering a field ----

TEST_F(Typist, finds_a_field_selected_by_enter_and_by_a_click_but_not_when_the_window_comes_back) {
  Key(Qt::Key_E, Qt::ControlModifier);
  ASSERT_EQ(Focus(), "txtFLA_HrsOperated") << "an edit begins in its first open field";
  Write("123");
  Key(Qt::Key_Return);
  Write("456");
  Key(Qt::Key_Backtab);
  EXPECT_EQ(Line("txtFLA_HrsOperated").selectedText(), "123");
  Key(Qt::Key_End);
  QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason), back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&Line("txtFLA_HrsOperated"), &away);
  QApplication::sendEvent(&Line("txtFLA_HrsOperated"), &back);
  driver_->Settle();
  Write("4");
  EXPECT_EQ(Line("txtFLA_HrsOperated").text(), "1234");
}

TEST_F(Typist, goes_on_at_the_end_of_a_comment) {
  Key(Qt::Key_E, Qt::ControlModifier);
  auto& notes = *driver_->Find<QPlainTextEdit>("txtFLA_Comments");
  notes.setFocus(Qt::TabFocusReason);
  Write("Upset on the 12th.");
  driver_->app->window()->tree().window()->setFocus();
  for (const Qt::FocusReason reason : {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::OtherFocusReason}) {
    Line("txtFLA_HrsOperated").setFocus();
    notes.setFocus(reason);
    driver_->Settle();
    EXPECT_FALSE(notes.textCursor().hasSelection());
    EXPECT_TRUE(notes.textCursor().atEnd());
  }
  Key(Qt::Key_Return);
  EXPECT_EQ(notes.toPlainText(), "Upset on the 12th.\n");
}

TEST_F(Typist, keeps_the_focus_and_the_caret_over_a_save) {
  Key(Qt::Key_E, Qt::ControlModifier);
  Write("123");
  Key(Qt::Key_Left);
  Key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(S().editing);
  ASSERT_EQ(Focus(), "txtFLA_HrsOperated");
  EXPECT_EQ(Line("txtFLA_HrsOperated").cursorPosition(), 2);
  EXPECT_FALSE(Line("txtFLA_HrsOperated").hasSelectedText());
  Write("9");
  EXPECT_EQ(Line("txtFLA_HrsOperated").text(), "1293");
}

// ---- Escape ----

TEST_F(Typist, takes_back_the_field_first_and_is_asked_before_more_goes) {
  Key(Qt::Key_E, Qt::ControlModifier);
  Write("123");
  Key(Qt::Key_Return);
  Write("456");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Line("txtFLA_HrsOperated").text(), "123");
  EXPECT_EQ(Line("txtFLA_VolFlared").text(), "");
  EXPECT_TRUE(S().editing);
  driver_->OnNextBox(QMessageBox::No);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(S().editing);
  EXPECT_EQ(Line("txtFLA_HrsOperated").text(), "123");
  driver_->OnNextBox(QMessageBox::Yes);
  driver_->Click("cmdCANCEL");
  EXPECT_FALSE(S().editing);
  EXPECT_EQ(driver_->texts, (std::deque<QString>{"Drop what was typed?", "Drop what was typed?"}));
}

TEST_F(Typist, is_not_asked_when_nothing_differs) {
  driver_->LeaveDialogsToTheTest();
  Key(Qt::Key_E, Qt::ControlModifier);
  Write("123");
  Key(Qt::Key_S, Qt::ControlModifier);
  Key(Qt::Key_Escape);
  if (S().editing) Key(Qt::Key_Escape);
  EXPECT_FALSE(S().editing);
  EXPECT_EQ(ToNumber(driver_->Sql("SELECT OP_HR FROM EA_FLA")), 123);
}

// ---- lists ----

TEST_F(Typist, finds_an_item_of_a_list_by_its_name_with_blanks) {
  EditDescription();
  auto& list = *driver_->Find<ListField>("cmbFLA_FlareSmoke");
  S().desk.Find("frmFLA")
      ->At("cmbFLA_FlareSmoke")
      .items.insert(S().desk.Find("frmFLA")->At("cmbFLA_FlareSmoke").items.end(), {"Natural Draft", "Natural Gas"});
  driver_->app->acts().Redraw();
  const QString wanted = "Natural Gas";
  list.setFocus(Qt::TabFocusReason);
  Write(wanted.toLower());
  EXPECT_EQ(list.currentText(), wanted);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Typist, empties_a_list_by_delete_where_it_may_be_empty_and_nowhere_else) {
  EditDescription();
  auto& list = *driver_->Find<ListField>("cmbFLA_FlareSmoke");
  Control& control = S().desk.Find("frmFLA")->At("cmbFLA_FlareSmoke");
  list.setFocus(Qt::TabFocusReason);
  Key(Qt::Key_Down);
  const QString chosen = list.currentText();
  ASSERT_FALSE(chosen.isEmpty());
  const bool may = std::count(control.items.begin(), control.items.end(), "") > 0;
  Key(Qt::Key_Delete);
  EXPECT_EQ(list.currentText(), may ? QString() : chosen);
}

// ---- pasting ----

TEST_F(Typist, pastes_a_number_without_what_stands_around_it_and_a_row_into_the_fields_that_follow) {
  Key(Qt::Key_E, Qt::ControlModifier);
  QApplication::clipboard()->setText("1,200 hrs\t3\u00A0400\n");
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Line("txtFLA_HrsOperated").text(), "1200");
  EXPECT_EQ(Line("txtFLA_VolFlared").text(), "3400");
  EXPECT_EQ(S().desk.Find("frmFLA")->At("txtFLA_VolFlared").text, "3400");
}

// ---- keys ----

TEST_F(Typist, goes_by_f6_from_the_tree_to_the_sheet_to_the_buttons) {
  QTreeView& tree = driver_->app->window()->tree();
  tree.setFocus();
  Key(Qt::Key_F6);
  EXPECT_TRUE(driver_->Widget("frmFLA")->isAncestorOf(QApplication::focusWidget())) << Focus().toStdString();
  Key(Qt::Key_F6);
  EXPECT_NE(qobject_cast<QPushButton*>(QApplication::focusWidget()), nullptr) << Focus().toStdString();
  Key(Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), &tree);
  Key(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_NE(qobject_cast<QPushButton*>(QApplication::focusWidget()), nullptr) << Focus().toStdString();
}

TEST_F(Typist, presses_by_enter_the_button_that_has_the_focus) {
  driver_->Widget("cmdEdit")->setFocus(Qt::TabFocusReason);
  Key(Qt::Key_Return);
  EXPECT_TRUE(S().editing);
}

TEST_F(Typist, goes_by_enter_on_from_a_page_to_the_next_that_is_open) {
  EditDescription();
  auto& tab = *driver_->Find<QTabWidget>("tabFLA");
  int open = -1;
  for (int page = 1; page < tab.count() - 1 && open < 0; ++page)
    if (tab.isTabEnabled(page)) open = page;
  ASSERT_GE(open, 1);
  for (int steps = 0; steps < 60 && tab.currentIndex() == 0; ++steps) {
    if (qobject_cast<QPlainTextEdit*>(QApplication::focusWidget()) != nullptr)
      Key(Qt::Key_Tab);
    else
      Key(Qt::Key_Return);
  }
  EXPECT_EQ(tab.currentIndex(), open);
  EXPECT_TRUE(tab.currentWidget()->isAncestorOf(QApplication::focusWidget())) << Focus().toStdString();
}

TEST_F(Typist, has_every_key_in_a_menu_and_no_key_twice) {
  std::map<QString, QString> keys;
  std::set<QString> in_menus;
  for (const QMenu* menu : driver_->app->window()->menuBar()->findChildren<QMenu*>()) {
    for (const QAction* entry : menu->actions()) {
      for (const QKeySequence& key : entry->shortcuts()) {
        in_menus.insert(key.toString());
        if (!entry->isEnabled()) continue;
        EXPECT_TRUE(keys.emplace(key.toString(), entry->objectName()).second)
            << key.toString().toStdString() << " " << entry->objectName().toStdString();
      }
    }
  }
  for (const Shortcut& row : Shortcuts()) {
    const bool listed = in_menus.contains(QKeySequence(row.keys).toString());
    EXPECT_TRUE(listed || *row.id == '\0' || !IsOffered(row, *S().main)) << row.keys;
  }
}

// ---- the tree ----

TEST_F(Typist, finds_a_node_by_its_type_and_by_its_id) {
  auto& tree = static_cast<NavigationTree&>(driver_->app->window()->tree());
  tree.setFocus();
  for (const char letter : {'f', '2'}) tree.keyboardSearch(QString(letter));
  driver_->Settle();
  EXPECT_EQ(S().current.EquipID, "F2");
  QTest::qWait(1100);
  tree.keyboardSearch("c");
  driver_->Settle();
  EXPECT_EQ(S().current.EquipID, "F1") << "Combustion Flare, the next round the end";
}

TEST_F(Typist, types_in_the_tree_while_the_filter_hides_the_selected_node) {
  QTreeView& tree = driver_->app->window()->tree();
  const auto hides = [&](const char* key) {
    const QModelIndex index = static_cast<TreeModel*>(tree.model())->IndexOf(S().tree.Find(key));
    return tree.isRowHidden(index.row(), index.parent());
  };
  const char* other = "K12345 12017   1001 1FLA      F2";
  driver_->Type("txtTREE_Filter", "no such node");
  ASSERT_TRUE(QTest::qWaitFor([&] { return hides(kFirst) && hides(other); }));
  tree.setFocus();
  Write("c");
  EXPECT_EQ(S().current.EquipID, "F1") << "nothing shows that it could go to";
  driver_->Type("txtTREE_Filter", "F2");
  ASSERT_TRUE(QTest::qWaitFor([&] { return hides(kFirst) && !hides(other); }));
  tree.setFocus();
  Write("c");
  EXPECT_EQ(S().current.EquipID, "F2") << "of the nodes that show";
}

TEST_F(Typist, goes_by_enter_from_the_tree_to_the_sheet_and_edits_by_f2) {
  QTreeView& tree = driver_->app->window()->tree();
  tree.setFocus();
  Key(Qt::Key_Return);
  EXPECT_NE(QApplication::focusWidget(), &tree);
  tree.setFocus();
  Key(Qt::Key_F2);
  EXPECT_TRUE(S().editing);
  EXPECT_EQ(Focus(), "txtFLA_HrsOperated");
}

TEST_F(Typist, deletes_from_the_tree_by_delete_and_from_nowhere_else) {
  driver_->Command("mnuSetEditMode");
  driver_->Select("K12345   1001 1FLA      F1");
  driver_->Widget("cmdEdit")->setFocus();
  Key(Qt::Key_Delete);  // a box would fail the test
  bool asked = false;
  driver_->OnNextModal([&](QWidget* box) {
    asked = true;
    const auto* question = static_cast<QMessageBox*>(box);
    EXPECT_EQ(question->defaultButton(), question->button(QMessageBox::Cancel));
    EXPECT_TRUE((question->text() + question->informativeText()).contains("This takes along:"))
        << question->text().toStdString();
    QTest::keyClick(box, Qt::Key_Return);
  });
  driver_->app->window()->tree().setFocus();
  const int nodes = static_cast<int>(driver_->app->session().tree.nodes.size());
  Key(Qt::Key_Delete);
  EXPECT_TRUE(asked);
  EXPECT_EQ(static_cast<int>(driver_->app->session().tree.nodes.size()), nodes) << "Enter keeps it";
}

TEST(NodeText, is_shortened_in_its_type_and_never_in_its_id) {
  const QFontMetrics metrics{QApplication::font()};
  const QString text = "Boiler, Heater, or Burner: B-101";
  EXPECT_EQ(ShortNodeText(text, metrics, 1000), text);
  for (int width = metrics.horizontalAdvance("…: B-101") + 8; width < metrics.horizontalAdvance(text); width += 7) {
    const QString shown = ShortNodeText(text, metrics, width);
    EXPECT_TRUE(shown.endsWith("B-101")) << shown.toStdString();
    EXPECT_LE(metrics.horizontalAdvance(shown), width) << shown.toStdString();
  }
}

// ---- lists of findings ----

TEST_F(Typist, copies_the_findings_in_view) {
  driver_->OnNextBox();
  driver_->Click("cmdQC");
  auto& tab = *driver_->Find<QTabWidget>("tabFLA");
  tab.setCurrentIndex(tab.count() - 1);
  driver_->Settle();
  auto& list = *driver_->Find<ResultsList>("lvwFLA_QCResults");
  EXPECT_TRUE(list.isEnabled()) << "it scrolls";
  ASSERT_GT(list.topLevelItemCount(), 0);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                    list.visualItemRect(list.topLevelItem(0)).center());
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith(list.topLevelItem(0)->text(0) + "\t"));
  EXPECT_TRUE(tab.tabText(tab.count() - 1).endsWith(" open)")) << tab.tabText(tab.count() - 1).toStdString();
}

// ---- a month of records ----

TEST_F(Typist, is_offered_the_next_record_by_enter_in_the_last_field) {
  Key(Qt::Key_E, Qt::ControlModifier);
  Write("701");
  Key(Qt::Key_Return);
  Write("901");
  Key(Qt::Key_Return);
  EXPECT_EQ(Focus(), "txtFLA_VolFlared");
  EXPECT_TRUE(driver_->Text("sheetLine").startsWith("Enter once more")) << driver_->Text("sheetLine").toStdString();
  EXPECT_EQ(S().current.EquipID, "F1");
  Key(Qt::Key_Return);
  EXPECT_EQ(S().current.EquipID, "F2");
  EXPECT_TRUE(S().editing);
  EXPECT_EQ(Focus(), "txtFLA_HrsOperated");
  EXPECT_EQ(ToInteger(driver_->Sql("SELECT COUNT(*) FROM EA_FLA WHERE OP_HR=701 AND VOL_FLARED=901")), 1);
}

TEST_F(Typist, saves_and_goes_on_forwards_and_back_by_two_keys) {
  Key(Qt::Key_E, Qt::ControlModifier);
  Write("702");
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(S().current.EquipID, "F2");
  Write("703");
  Key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(S().current.EquipID, "F1");
  EXPECT_TRUE(S().editing);
  EXPECT_EQ(Focus(), "txtFLA_HrsOperated");
  EXPECT_EQ(ToInteger(driver_->Sql("SELECT COUNT(*) FROM EA_FLA WHERE OP_HR IN (702, 703)")), 2);
}

// The flare lacks most of its values.
TEST_F(Typist, reads_on_the_tab_of_results_how_many_lack_a_comment) {
  driver_->OnNextBox();
  Key(Qt::Key_F5);
  ASSERT_TRUE(driver_->AllModalsCame());
  QString tab;
  for (const auto* tabs : driver_->app->window()->findChildren<QTabWidget*>())
    if (tabs->isVisible()) tab = tabs->tabText(tabs->count() - 1);
  const auto found = ToInteger(driver_->Sql("SELECT COUNT(*) FROM QC"));
  ASSERT_GT(found, 0);
  EXPECT_TRUE(tab.contains(" open)")) << tab.toStdString();
  EXPECT_TRUE(tab.startsWith("QC Results (")) << tab.toStdString();
}

// Ten pieces of a structure in its first month, typed from the first to the last.
TEST(MonthOfTen, takes_at_most_twenty_strokes_beside_the_digits) {
  const std::map<std::string, std::vector<const char*>> fields = {
      {"AMI", {"txtAMI_TotalGasThru", "txtAMI_HrsOperated"}},  {"DIE", {"txtDIE_HrsOperated", "txtDIE_TotalFuelUsed"}},
      {"FLA", {"txtFLA_HrsOperated", "txtFLA_VolFlared"}},     {"GLY", {"txtGLY_TotalGasThru"}},
      {"LOA", {"txtLOA_VolLoaded", "txtLOA_TankBulkLiqT"}},    {"MUD", {"txtMUD_DaysPerMonth"}},
      {"NGE", {"txtNGE_HrsOperated", "txtNGE_TotalFuelUsed"}}, {"PNE", {"txtPNE_HrsOperated", "txtPNE_FuelUsageRate"}},
      {"PRE", {"txtPRE_HrsOperated", "txtPRE_FuelUsageRate"}}};
  TestRun run;
  run.StartWith("FLA", "1");
  for (const auto& [type, names] : fields) {
    run.Select(run.Key());
    run.AddEquipment(type, "2");
  }
  run.s.db.Close();
  const TemporaryFolder folder;
  fs::copy_file(run.folder.path("inventory.mdb"), folder.path("month.mdb"));
  Driver driver(folder.path("month.mdb"));
  driver.Start();
  Session& s = driver.app->session();
  ASSERT_EQ(s.equipment_month_list.size(), 10u);
  const auto first = std::find_if(s.tree.nodes.begin(), s.tree.nodes.end(),
                                  [](const TreeNode& n) { return n.text.starts_with("Amine"); });
  driver.Select(first->key);
  int strokes = 0;
  const auto stroke = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : driver.app->window(), key, modifiers);
    driver.Settle();
    ++strokes;
  };
  stroke(Qt::Key_E, Qt::ControlModifier);
  int typed = 0, records = 0;
  while (s.editing && records < 10) {
    ++records;
    const std::vector<const char*>& names = fields.at(s.current.EquipType);
    for (const char* name : names) {
      ASSERT_TRUE(QApplication::focusWidget() != nullptr && QApplication::focusWidget()->objectName() == name)
          << name << " of " << s.current.EquipType;
      QTest::keyClicks(QApplication::focusWidget(), QString::number(11 + typed++));
      if (name != names.back()) stroke(Qt::Key_Return);
    }
    stroke(Qt::Key_PageDown, Qt::ControlModifier);
  }
  EXPECT_EQ(records, 10);
  EXPECT_FALSE(s.editing);
  EXPECT_LE(strokes, 20);
  for (const auto& [table, column] : std::vector<std::pair<const char*, const char*>>{
           {"EA_AMI", "TOT_GAS_THRUPUT"}, {"EA_FLA", "VOL_FLARED"}, {"EA_MUD", "DAYS_PER_MO"}})
    EXPECT_EQ(ToInteger(driver.Sql(std::string("SELECT COUNT(*) FROM ") + table + " WHERE " + column + " IS NULL")), 0)
        << table;
}

// ---- while the program is at work ----

TEST_F(Typist, types_on_while_a_run_is_at_work_and_finds_it_in_the_field_and_not_in_the_box) {
  Key(Qt::Key_E, Qt::ControlModifier);
  auto* window = driver_->app->window()->windowHandle();
  // after the run and before its box: the wait screen is hidden, and the findings are shown
  bool typed = false;
  QObject::connect(&driver_->app->acts(), &Acts::Changed, window, [&] {
    if (typed || S().wait.showing || ToInteger(driver_->Sql("SELECT COUNT(*) FROM QC")) == 0) return;
    typed = true;
    for (const QString text : {"4", "2"})
      QCoreApplication::postEvent(window, new QKeyEvent(QEvent::KeyPress, text[0].unicode(), Qt::NoModifier, text));
    QCoreApplication::postEvent(window, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r"));
  });
  driver_->OnNextBox();
  Key(Qt::Key_F5);
  ASSERT_TRUE(typed);
  EXPECT_TRUE(driver_->AllModalsCame()) << "the keys have not pressed its button";
  EXPECT_TRUE(QTest::qWaitFor([this] { return Focus() == "txtFLA_VolFlared"; }));
  EXPECT_EQ(Line("txtFLA_HrsOperated").text(), "42");
}

TEST_F(Typist, opens_collapsed_nodes_on_the_way_through_the_tree) {
  QTreeView& tree = driver_->app->window()->tree();
  driver_->Select("K12345");
  tree.collapseAll();
  std::set<std::string> seen;
  for (int steps = 0; steps < 4; ++steps) {
    Key(Qt::Key_PageDown, Qt::ControlModifier);
    seen.insert(S().current.Level);
  }
  EXPECT_EQ(S().current.EquipID, "F2");
  EXPECT_EQ(seen.size(), 3u);
}

TEST_F(Typist, sees_no_field_jump_when_an_edit_starts) {
  std::map<QString, QRect> before;
  const auto look = [&](const auto& each) {
    for (auto* field : driver_->Widget("frmFLA")->findChildren<QWidget*>())
      if (field->isVisible() && S().desk.Find("frmFLA")->Find(field->objectName().toStdString()) != nullptr)
        each(field->objectName(), QRect(field->mapTo(driver_->app->window(), QPoint()), field->size()));
  };
  look([&](const QString& name, const QRect& place) { before[name] = place; });
  Key(Qt::Key_E, Qt::ControlModifier);
  look([&](const QString& name, const QRect& place) {
    const bool stood = before.contains(name);
    EXPECT_TRUE(!stood || before[name] == place) << name.toStdString();
  });
  EXPECT_GT(before.size(), 8u);
}

// ---- marks ----

TEST_F(Typist, reads_hints_findings_and_the_month_before_at_their_field) {
  Key(Qt::Key_E, Qt::ControlModifier);
  Control& hours = S().desk.Find("frmFLA")->At("txtFLA_HrsOperated");
  hours.hint = "Will be saved as 12";
  hours.finding = "Value not in expected range (0 to 744)";
  hours.was = "700";
  S().desk.Find("frmFLA")->At("tabFLA").counts = {1, 0, 2};
  driver_->app->acts().Redraw();
  driver_->Settle();
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Mark"), "!");
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Was"), "700");
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Hint"), "Will be saved as 12");
  EXPECT_TRUE(driver_->Text("sheetLine").endsWith("Value not in expected range (0 to 744)"));
  const QWidget *hint = driver_->Widget("txtFLA_HrsOperated_Hint"), *next = driver_->Widget("txtFLA_VolFlared");
  const auto top = [&](const QWidget* widget) { return widget->mapTo(driver_->app->window(), QPoint()).y(); };
  EXPECT_GT(top(hint), top(&Line("txtFLA_HrsOperated")) + Line("txtFLA_HrsOperated").height());
  EXPECT_LE(top(hint) + hint->height(), top(next)) << "it covers no other field";
  EXPECT_TRUE(driver_->Find<QTabWidget>("tabFLA")->tabText(0).endsWith(" (1)"));
  EXPECT_TRUE(Line("txtFLA_HrsOperated").accessibleDescription().contains("744"));
  hours.hint = hours.finding = "";
  driver_->app->acts().Redraw();
  EXPECT_FALSE(hint->isVisible());
  EXPECT_EQ(driver_->Text("txtFLA_HrsOperated_Mark"), "");
}

TEST(Colours, of_texts_are_readable_on_their_grounds) {
  constexpr double kReadable = 4.5;
  for (const QPalette& palette : {QPalette(QColor(239, 239, 239)), DarkPalette(), ContrastPalette()}) {
    const QColor window = palette.color(QPalette::Window), base = palette.color(QPalette::Base);
    for (const QColor& ground : {window, FaceColour(palette)}) {
      EXPECT_GE(Contrast(Quiet(palette), ground), kReadable);
      EXPECT_GE(Contrast(Dimmed(palette), ground), kReadable);
      EXPECT_GE(Contrast(EditingRed(palette), ground), kReadable);
    }
    EXPECT_GE(Contrast(palette.color(QPalette::Text), CopiedGround(palette)), kReadable);
    EXPECT_GE(Contrast(palette.color(QPalette::WindowText), RestingGround(palette)), kReadable);
    EXPECT_GE(Contrast(Quiet(palette), base), kReadable);
    EXPECT_GE(Contrast(Qt::white, AccentGround(palette)), kReadable);
  }
  EXPECT_GE(Contrast(kFlagText, kFlagBack), kReadable);
}

TEST(Colours, of_borders_are_stark_where_the_desktop_is) {
  const QPalette stark = ContrastPalette();
  EXPECT_TRUE(IsHighContrast(stark));
  EXPECT_FALSE(IsHighContrast(DarkPalette()));
  EXPECT_FALSE(IsHighContrast(QPalette(QColor(239, 239, 239))));
  EXPECT_EQ(Border(stark), stark.color(QPalette::WindowText));
  EXPECT_GE(Contrast(Line(stark), stark.color(QPalette::Window)), 4.5);
}

TEST(Colours, of_what_is_disabled_are_fainter_in_menus_too) {
  const QPalette palette = QApplication::palette();
  const QColor ground = palette.color(QPalette::Base);
  for (const QPalette::ColorRole ink : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    EXPECT_LT(Contrast(palette.color(QPalette::Disabled, ink), ground),
              Contrast(palette.color(QPalette::Active, ink), ground));
  EXPECT_EQ(QApplication::style()->styleHint(QStyle::SH_EtchDisabledText), 0) << "no light behind the letters";
}

TEST(Colours, of_scroll_bars_tell_the_handle_from_its_ground) {
  QWidget window;
  auto* bar = new QScrollBar(Qt::Vertical, &window);
  bar->setRange(0, 100);
  bar->setPageStep(30);
  bar->resize(bar->sizeHint().width(), 300);
  window.resize(100, 300);
  const QImage picture = window.grab().toImage();
  const auto at = [&](int y) { return picture.pixelColor(QPoint(bar->width() / 2, y) * picture.devicePixelRatio()); };
  EXPECT_GE(Contrast(at(30), at(270)), 2) << at(30).name().toStdString() << " " << at(270).name().toStdString();
}

TEST(Captions, break_no_unit_at_its_hyphens_and_slashes) {
  Control control;
  control.caption = "Avg Molecular Weight of VOCs (lb/lb-mol):";
  control.unit = "lb/lb-mol";
  EXPECT_EQ(LabelText(control), QString("Avg Molecular Weight of VOCs (lb/\u2060lb-\u2060mol):"));
  EXPECT_EQ(SpokenCaption(control).toStdString(), control.caption);
  QLabel label(LabelText(control));
  label.setWordWrap(true);
  const int unit = label.fontMetrics().horizontalAdvance("(lb/lb-mol):");
  for (int width = unit + 8; width < label.fontMetrics().horizontalAdvance(label.text()); width += 7) {
    QTextLayout layout(label.text(), label.font());
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(width);
      const QString text = label.text().mid(line.textStart(), line.textLength());
      EXPECT_EQ(text.contains('('), text.contains(')')) << text.toStdString();
    }
    layout.endLayout();
  }
}

TEST(Captions, keep_a_unit_of_several_words_on_one_line) {
  Control control;
  control.caption = "Stack Outlet Elevation (ft msl):";
  control.unit = "ft msl";
  EXPECT_EQ(LabelText(control), QString("Stack Outlet Elevation (ft\u00A0msl):"));
  EXPECT_EQ(SpokenCaption(control), "Stack Outlet Elevation (ft msl):");
  control.caption = "Emissions (of all the equipment that stands here):";
  control.unit = "of all the equipment that stands here";
  EXPECT_EQ(LabelText(control).toStdString(), control.caption);
  control.caption = "Fuel (of two tanks):";
  control.unit.clear();
  EXPECT_EQ(LabelText(control).toStdString(), control.caption);
}

}  // namespace
}  // namespace merlu::test
