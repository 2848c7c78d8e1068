// The program on the screen of a laptop, 1366x768, at the scales that such screens are used at: what is looked at or
// typed into is in view, and nothing is cut.
#include <QClipboard>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolTip>

#include <set>

#include "desktop/dock_window.h"
#include "desktop/look.h"
#include "desktop/page_tabs.h"
#include "desktop/results_list.h"
#include "driver.h"
#include "screen_tour.h"

namespace merlu::test {
namespace {

constexpr QSize kFrame(8, 40);

bool IsWhole(const QWidget& widget) {
  return widget.visibleRegion().boundingRect().size() == widget.size();
}

std::string Told(const QWidget& widget) {
  const QRect seen = widget.visibleRegion().boundingRect();
  return widget.objectName().toStdString() + ": of " + std::to_string(widget.width()) + "x" +
         std::to_string(widget.height()) + " in view " + std::to_string(seen.width()) + "x" +
         std::to_string(seen.height());
}

struct LaptopScreen : testing::Test {
  LaptopScreen() : driver((MakeTourInventory(folder.path("inventory.mdb")), folder.path("inventory.mdb"))) {
    driver.Start();
    Main().resize(Main().screen()->availableSize() - kFrame);
    Settle();
  }
  MainWindow& Main() { return *driver.app->window(); }
  Session& S() { return driver.app->session(); }
  void Settle() {
    driver.Settle();
    driver.Settle();  // the page scrolls to the focus when all have their places
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &Main(), key, modifiers);
    Settle();
  }
  // A node of each type, of months or of descriptions, and one of each level above.
  std::vector<std::string> NodesOfEachKind() {
    std::set<std::string> kinds;
    std::vector<std::string> keys;
    for (const TreeNode& node : S().tree.nodes) {
      const std::size_t length = node.key.size();
      const std::string type = length == 32 || length == 26 ? node.key.substr(length - 11, 3) : "";
      if (kinds.insert(std::to_string(length) + type).second) keys.push_back(node.key);
    }
    return keys;
  }
  void ExpectWholeTitle() {
    for (const auto* title : Main().findChildren<TitleLabel*>()) {
      const int needed = title->fontMetrics().horizontalAdvance(title->text());
      EXPECT_TRUE(!title->isVisible() || needed <= title->contentsRect().width()) << title->text().toStdString();
    }
  }
  QTabWidget* Tabs() {
    for (auto* tabs : Main().findChildren<QTabWidget*>())
      if (tabs->isVisible()) return tabs;
    return nullptr;
  }
  void ToDescriptions() {
    driver.Select(S().tree.nodes.front().key);
    driver.Command("mnuSetEditMode");
  }

  TemporaryFolder folder;
  Driver driver;
};

// Tab through all fields of all sheets, in both modes.
TEST_F(LaptopScreen, scrolls_every_field_that_gets_the_focus_wholly_into_view) {
  int fields = 0;
  const auto walk = [&](const std::string& key) {
    SCOPED_TRACE(key);
    driver.Select(key);
    if (!driver.Widget("cmdEdit")->isVisible()) return;
    ExpectWholeTitle();
    driver.Click("cmdEdit");
    Settle();
    ExpectWholeTitle();
    for (int page = 0; page < Tabs()->count(); ++page) {
      if (!Tabs()->isTabEnabled(page)) continue;
      Tabs()->setCurrentIndex(page);
      Tabs()->tabBar()->setFocus(Qt::TabFocusReason);
      std::set<QWidget*> seen;
      for (Key(Qt::Key_Tab);; Key(Qt::Key_Tab)) {
        QWidget* focus = QApplication::focusWidget();
        if (focus == nullptr || !seen.insert(focus).second) break;
        if (!Tabs()->currentWidget()->isAncestorOf(focus)) continue;
        EXPECT_TRUE(IsWhole(*focus)) << Told(*focus);
        ++fields;
      }
    }
    driver.Click("cmdCANCEL");
  };
  for (const std::string& key : NodesOfEachKind()) walk(key);
  ToDescriptions();
  for (const std::string& key : NodesOfEachKind()) walk(key);
  EXPECT_GT(fields, 300);
}

// Where the pages' names have no room they are shortened; their counts are whole.
TEST_F(LaptopScreen, shows_every_page_of_a_sheet_with_its_count) {
  const auto look = [&](const std::string& key) {
    SCOPED_TRACE(key);
    driver.Select(key);
    Settle();
    QTabWidget* tabs = Tabs();
    ASSERT_NE(tabs, nullptr);
    auto* bar = dynamic_cast<PageBar*>(tabs->tabBar());
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(IsWhole(*bar)) << Told(*bar);
    for (const auto* button : bar->findChildren<QAbstractButton*>()) EXPECT_FALSE(button->isVisible());
    for (int page = 0; page < bar->count(); ++page) {
      EXPECT_TRUE(bar->rect().contains(bar->tabRect(page))) << page;
      const QString text = bar->tabText(page), shown = bar->Shown(page);
      if (shown == text) continue;
      const qsizetype count = text.lastIndexOf(" (");
      EXPECT_TRUE(count < 0 || shown.endsWith(text.mid(count))) << shown.toStdString();
      EXPECT_EQ(shown.left(4), text.left(4));
      const QPoint at = bar->tabRect(page).center();
      QHelpEvent pointed(QEvent::ToolTip, at, bar->mapToGlobal(at));
      QCoreApplication::sendEvent(bar, &pointed);
      EXPECT_TRUE(QToolTip::text().startsWith(text)) << QToolTip::text().toStdString();
      QToolTip::hideText();
    }
  };
  for (const std::string& key : NodesOfEachKind()) look(key);
  ToDescriptions();
  for (const std::string& key : NodesOfEachKind()) look(key);
}

TEST(PageNames, shorten_their_names_and_never_their_counts) {
  PageTabs tabs(nullptr);
  for (const char* name : {"General Info. (1)", "Model Inputs", "Ventilation System (12)", "QC Results (13, 4 open)"})
    tabs.addTab(new QWidget, name);
  tabs.show();
  auto* bar = static_cast<PageBar*>(tabs.tabBar());
  for (const int width : {700, 520, 460}) {
    tabs.resize(width, 200);
    QCoreApplication::processEvents();
    EXPECT_LE(bar->tabRect(3).right(), width) << width;
    for (int page = 0; page < 4; ++page) {
      const QString text = bar->tabText(page), shown = bar->Shown(page);
      const QString count = text.contains('(') ? text.mid(text.indexOf(" (")) : QString();
      EXPECT_TRUE(shown.endsWith(count)) << width << ": " << shown.toStdString();
      EXPECT_EQ(shown == text, !shown.contains(QChar(0x2026)));
    }
  }
  EXPECT_NE(bar->Shown(2), bar->tabText(2)) << "there was room for all";
}

// A dialog's lists scroll by themselves, and their columns are in sight together.
TEST(LaptopDialogs, scroll_once_and_show_all_columns) {
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  int lists = 0;
  TourScreens({"grids", "dialogs"}, screen - kFrame, [&](QWidget& window, const std::string& name) {
    SCOPED_TRACE(name);
    if (qobject_cast<QDialog*>(&window) == nullptr || screen.width() < 600) return;
    QCoreApplication::processEvents();
    for (const auto* list : window.findChildren<QTreeView*>()) {
      if (!list->isVisible()) continue;
      ++lists;
      EXPECT_TRUE(IsWhole(*list)) << Told(*list);
      EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0) << list->objectName().toStdString();
    }
  });
  EXPECT_GE(lists, 12);
}

// Two docks, and three, beside the sheet: nothing of them is cut, and the record stays in view.
TEST_F(LaptopScreen, shows_its_docks_whole) {
  for (const char* command : {"mnuRStrip", "mnuRFindings", "mnuRCompleteness", "", "mnuRFindings", "mnuRCompleteness",
                              "mnuRStrip", "", "mnuRCompleteness", "mnuRStrip", "mnuRFindings"}) {
    SCOPED_TRACE(command);
    if (*command == '\0') {
      for (auto* dock : Main().findChildren<DockWindow*>())
        if (dock->isVisible()) dock->close();
      continue;
    }
    driver.Command(command);
    Settle();
    EXPECT_TRUE(S().main->At(command).checked) << "what was opened stays";
    EXPECT_LE(Main().width(), Main().screen()->availableSize().width());
    EXPECT_LE(Main().height(), Main().screen()->availableSize().height());
    for (const auto* dock : Main().findChildren<DockWindow*>()) {
      if (!dock->isVisible()) continue;
      EXPECT_TRUE(IsWhole(*dock)) << Told(*dock);
      for (const auto* part : dock->findChildren<QWidget*>()) {
        const bool is_used = qobject_cast<const QAbstractButton*>(part) || qobject_cast<const QLineEdit*>(part) ||
                             qobject_cast<const ListField*>(part) || qobject_cast<const QAbstractItemView*>(part);
        const bool scrolls = qobject_cast<const QAbstractItemView*>(part->parentWidget()) != nullptr;
        if (part->isVisible() && is_used && !scrolls) {
          EXPECT_TRUE(IsWhole(*part)) << Told(*part);
        }
      }
    }
    if (!Main().tree().isVisible()) continue;  // a list has taken the window of a low screen
    EXPECT_TRUE(IsWhole(*driver.Widget("cmdEdit"))) << Told(*driver.Widget("cmdEdit"));
    EXPECT_GT(Tabs()->currentWidget()->visibleRegion().boundingRect().height(), 60);
  }
}

// The words behind a field stand beside it, not at the end of the column.
TEST_F(LaptopScreen, keeps_a_note_at_its_field) {
  constexpr int kBeside = 40;
  ToDescriptions();
  int notes = 0;
  for (const std::string& key : NodesOfEachKind()) {
    driver.Select(key);
    for (int page = 0; page < Tabs()->count(); ++page) {
      if (!Tabs()->isTabEnabled(page)) continue;
      Tabs()->setCurrentIndex(page);
      Settle();
      for (const auto* note : Main().findChildren<QLabel*>()) {
        if (!note->isVisible() || note->text() != "(selected from current structure)") continue;
        ++notes;
        // below the field, or right of it
        const auto* field = Main().findChild<QWidget*>("cmbAMI_VentedToID");
        ASSERT_TRUE(field != nullptr);
        const QPoint end = field->mapTo(&Main(), QPoint(field->width(), field->height()));
        const QPoint place = note->mapTo(&Main(), QPoint(0, 0));
        EXPECT_TRUE(place.y() >= end.y() || (place.x() >= end.x() && place.x() <= end.x() + kBeside)) << place.x();
      }
    }
  }
  EXPECT_GT(notes, 0);
}

// The bars of the months leave the list beside them the most of the width.
TEST_F(LaptopScreen, gives_a_list_more_width_than_the_months_beside_it) {
  driver.Command("mnuRStrip");
  driver.Command("mnuRFindings");
  Settle();
  const auto* strip = Main().findChild<DockWindow*>("frmStrip");
  const auto* findings = Main().findChild<DockWindow*>("frmFindings");
  ASSERT_TRUE(strip != nullptr && findings != nullptr && findings->isVisible());
  if (!strip->isVisible() || strip->y() != findings->y()) return;  // not beside each other
  EXPECT_GT(findings->width(), strip->width());
}

// The heads of the grid take three lines at most: what they take is missing below. Numbers are whole beside their
// marks.
TEST_F(LaptopScreen, shows_the_heads_of_each_grid_on_three_lines_and_its_numbers_whole) {
  constexpr int kAboveAndBelow = 12, kAsideAndMark = 2 * 6 + 11;
  for (const TreeNode& node : std::vector<TreeNode>(S().tree.nodes)) {
    if (node.key.size() != 32) continue;
    driver.Select(node.key);
    break;
  }
  int grids = 0;
  driver.OnNextModal([&](QWidget* dialog) {
    const auto* types = driver.Find<ListField>("cmbGRD_Type");
    for (int type = 0; type < types->count(); ++type) {
      driver.Choose("cmbGRD_Type", types->itemText(type));
      const auto* grid = driver.Find<QTableView>("grdGRD");
      const QHeaderView* heads = grid->horizontalHeader();
      EXPECT_LE(heads->height(), 3 * heads->fontMetrics().lineSpacing() + kAboveAndBelow)
          << types->itemText(type).toStdString();
      for (int column = 2; column < grid->model()->columnCount(); ++column) {
        const QString text = grid->model()->index(0, column).data().toString();
        bool is_number = false;
        text.toDouble(&is_number);
        if (is_number) {
          EXPECT_GE(grid->columnWidth(column), grid->fontMetrics().horizontalAdvance(text) + kAsideAndMark);
        }
      }
      ++grids;
    }
    static_cast<QDialog*>(dialog)->reject();
  });
  driver.Command("mnuNGrid");
  EXPECT_GE(grids, 15);
}

// An hour of work by keys alone: what has the focus is in view behind every key, in the window and in the dialogs.
struct LaptopEvening : LaptopScreen {
  void LookAtFocus(const char* keys) {
    const QWidget* focus = QApplication::focusWidget();
    ASSERT_TRUE(focus != nullptr) << keys;
    if (const auto* list = qobject_cast<const QComboBox*>(focus->parentWidget())) focus = list;
    const QRect window = focus->window()->rect();
    const QRect place(focus->mapTo(focus->window(), QPoint(0, 0)), focus->size());
    EXPECT_TRUE(IsWhole(*focus)) << keys << ": " << Told(*focus);
    EXPECT_TRUE(window.contains(place)) << keys << ": " << focus->objectName().toStdString();
    const QSize screen = focus->screen()->availableSize();
    EXPECT_TRUE(window.width() <= screen.width() && window.height() <= screen.height()) << keys;
  }
  void Press(const char* keys, int times = 1) {
    for (int time = 0; time < times; ++time) {
      QWidget* focus = QApplication::focusWidget();
      QTest::keySequence(focus != nullptr ? focus : &Main(), QKeySequence(keys));
      Settle();
      LookAtFocus(keys);
    }
  }
  void Write(const QString& text) {
    for (const QChar c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    Settle();
    LookAtFocus("typing");
  }
  // The keys open a dialog; the work is done in it, then Escape closes it.
  void InDialog(const char* keys, const std::function<void()>& work) {
    driver.OnNextModal([&](QWidget*) {
      Settle();
      LookAtFocus(keys);
      work();
      QTest::keySequence(QApplication::focusWidget(), QKeySequence("Esc"));
    });
    QTest::keySequence(QApplication::focusWidget(), QKeySequence(keys));
    Settle();
    EXPECT_TRUE(driver.AllModalsCame()) << keys;
    LookAtFocus(keys);
  }
};

TEST_F(LaptopEvening, keeps_what_has_the_focus_in_view_behind_every_key) {
  Main().tree().setFocus();
  Press("F6", 3);
  Press("Ctrl+PgDown", 12);
  Press("Return");
  Press("Ctrl+E");
  ASSERT_TRUE(S().editing);
  Write("12,5");
  Press("Tab", 4);
  Press("Ctrl+S");
  Press("Ctrl+PgDown", 3);
  Press("Return", 6);
  Press("Esc");
  if (S().editing) Press("Esc");
  ASSERT_FALSE(S().editing);
  Press("F8", 6);
  Press("Ctrl+Shift+T");
  Press("Ctrl+E");
  Press("Tab", 3);
  Press("Esc");
  Press("Ctrl+Shift+F");
  Press("F8", 2);
  Press("Ctrl+Shift+M");
  Press("Ctrl+Shift+M");
  Press("F6", 3);
  InDialog("Ctrl+G", [&] {
    Write("abc");
    Press("Return");
    Press("Up");
    EXPECT_FALSE(driver.Text("lblGRD_Cell").isEmpty());
    driver.OnNextModal([&](QWidget*) {
      LookAtFocus("Ctrl+V");
      Press("Tab", 3);
      QTest::keySequence(QApplication::focusWidget(), QKeySequence("Esc"));
    });
    QApplication::clipboard()->setText("1\t2\nabc\tq\n");
    QTest::keySequence(QApplication::focusWidget(), QKeySequence("Ctrl+V"));
    Settle();
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "grdGRD");
    Press("Delete");
    driver.OnNextBox(QMessageBox::No);
  });
  InDialog("Ctrl+K", [&] {
    Write("hours");
    Press("Down", 3);
  });
  InDialog("Ctrl+H", [&] {
    const auto* steps = driver.Find<QAbstractItemView>("lvwHIS_Steps");
    EXPECT_EQ(steps->selectionModel()->selectedRows().size(), 1) << "the step whose values show";
    EXPECT_EQ(S().desk.Find("frmHistory")->At("lvwHIS_Steps").picked, std::vector<int>{0});
    Press("Tab", 8);
  });
  InDialog("F1", [&] { Press("PgDown", 2); });
  ToDescriptions();
  Main().tree().setFocus();
  Press("Ctrl+PgDown", 3);
  Press("Ctrl+E");
  Press("Tab", 12);
  Press("Esc");
}

// All that the first question asks for is in view; where the screen is too low for that, what has the focus is.
TEST(LaptopDialogs, ask_for_the_operator_in_view) {
  constexpr int kTooLow = 500;
  const bool low = QGuiApplication::primaryScreen()->availableSize().height() < kTooLow;
  int fields = 0;
  TourScreens({"first"}, QSize(), [&](QWidget& dialog, const std::string& name) {
    SCOPED_TRACE(name);
    QCoreApplication::processEvents();
    for (const auto* label : dialog.findChildren<QLabel*>())
      if (!label->visibleRegion().isEmpty()) {
        EXPECT_EQ(label->visibleRegion().boundingRect().width(), label->width()) << label->text().toStdString();
      }
    const auto* email = dialog.findChild<QWidget*>("txtUSER_Email");
    ASSERT_NE(email, nullptr);
    EXPECT_TRUE(low || IsWhole(*email)) << Told(*email);
    bool has_reached = false;
    for (int times = 0; times < 20; ++times) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCoreApplication::processEvents();
      QCoreApplication::processEvents();
      const QWidget* focus = QApplication::focusWidget();
      ASSERT_TRUE(focus != nullptr);
      EXPECT_TRUE(IsWhole(*focus)) << Told(*focus);
      has_reached = has_reached || focus == email;
      ++fields;
    }
    EXPECT_TRUE(has_reached);
  });
  EXPECT_EQ(fields, 20);
}

}  // namespace
}  // namespace merlu::test
