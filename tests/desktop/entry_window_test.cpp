// A month typed in the windows by real keys: the grid, the strip, and the texts beside the fields of a sheet.
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "desktop/grid_view.h"
#include "desktop/look.h"
#include "desktop/strip_bars.h"
#include "driver.h"
#include "inventory.h"

namespace merlu::test {
namespace {

constexpr int kFlares = 24;

// Two structures with twelve flares each and eight months; the eighth is blank, the ninth piece has a pilot.
class EntryWindows : public testing::Test {
 protected:
  EntryWindows() {
    const std::string path = folder_.path("inventory.mdb");
    InventoryPlan plan;
    plan.structures = 2;
    plan.equipment = kFlares;
    plan.months = 8;
    plan.types = {"FLA"};
    MakeInventory(TemplatePath(), path, plan);
    Raw(path, {"UPDATE EA_FLA SET OP_HR=NULL,VOL_FLARED=NULL,PILOT_INCLUDED_IN_VOLUME=NULL WHERE EA_ID_AK IN "
               "(SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_MO=8)",
               "UPDATE ED_FLA SET CTRL_FLA_PILOT_FLG=0"});
    driver = std::make_unique<Driver>(path);
    driver->Start();
    if (S().InDesc()) driver->Command("mnuSetEditMode");
    flares = Flares(8);
    driver->Select(flares.front());
  }
  Session& S() { return driver->app->session(); }
  std::vector<std::string> Flares(int month) {
    std::vector<std::string> keys;
    for (int node : S().tree.InOrder()) {
      const std::string& key = S().tree.nodes[static_cast<std::size_t>(node)].key;
      if (key.size() == 32 && key.substr(6, 2) == " " + std::to_string(month)) keys.push_back(key);
    }
    return keys;
  }
  void InGrid(const std::function<void()>& step) {
    driver->OnNextModal([&](QWidget* dialog) {
      window = dialog;
      step();
      driver->Click("cmdCANCEL");
    });
    driver->Command("mnuNGrid");
    EXPECT_TRUE(driver->AllModalsCame());
  }
  GridView& Grid() { return *driver->Find<GridView>("grdGRD"); }
  const GridModel& Model() { return *S().desk.Find("frmGrid")->At("grdGRD").grid; }
  std::string Text(int row, const char* column) { return Model().Cell(row, Model().FindColumn(column)).text; }
  void GoTo(int row, const char* column) {
    Grid().setFocus();
    Grid().setCurrentIndex(Grid().model()->index(row, Model().FindColumn(column)));
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  void Keys(const QString& text) {
    for (const QChar c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
  }

  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver;
  std::vector<std::string> flares;
  QWidget* window = nullptr;
};

constexpr const char* kHours = "txtFLA_HrsOperated";
constexpr const char* kVolume = "txtFLA_VolFlared";

TEST_F(EntryWindows, a_column_is_typed_a_column_is_pasted_an_error_is_put_right_and_all_is_saved_once) {
  InGrid([&] {
    ASSERT_EQ(Model().RowCount(), kFlares);
    // twenty typed down the column, the last of them out of range
    GoTo(0, kHours);
    for (int row = 0; row < 20; ++row) {
      Keys(row == 19 ? "745" : QString::number(700 + row));
      Key(Qt::Key_Return);
    }
    EXPECT_EQ(Text(0, kHours), "700");
    EXPECT_EQ(Text(18, kHours), "718");
    EXPECT_EQ(Grid().currentIndex().row(), 20);
    // the column beside it is pasted
    QString column;
    for (int row = 0; row < 20; ++row) column += QString("1,%1\n").arg(200 + row);
    QApplication::clipboard()->setText(column);
    GoTo(0, kVolume);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(0, kVolume), "1200");
    EXPECT_EQ(Text(19, kVolume), "1219");
    EXPECT_EQ(Text(20, kVolume), "");
    // the error is shown at the current cell, and corrected
    GoTo(19, kHours);
    driver->Settle();
    EXPECT_EQ(driver->Text("lblGRD_Message"), "Value not in expected range (0 to 744)");
    Keys("=24*31");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(19, kHours), "744");
    EXPECT_EQ(Grid().currentIndex().column(), Model().FindColumn(kVolume));
    driver->Click("cmdGRD_Save");
    EXPECT_EQ(driver->Text("lblGRD_Message"), "20 records saved, 0 findings");
  });
  EXPECT_EQ(ToInteger(driver->Sql("SELECT COUNT(*) FROM EA_FLA t JOIN EA_EQUIP_ACTV a ON a.EA_ID_AK=t.EA_ID_AK WHERE "
                                  "a.EA_MO=8 AND OP_HR BETWEEN 700 AND 744 AND VOL_FLARED BETWEEN 1200 AND 1219 AND "
                                  "EA_QC_DT IS NOT NULL")),
            20);
}

TEST_F(EntryWindows, tab_skips_what_is_locked) {
  InGrid([&] {
    GoTo(0, kVolume);
    Keys("1");
    Key(Qt::Key_Tab);  // over the pilot, which is locked without one
    EXPECT_EQ(Grid().currentIndex().column(), Model().FindColumn("chkFLA_Status"));
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Grid().currentIndex().row(), 1);
    EXPECT_EQ(Grid().currentIndex().column(), Model().FindColumn(kHours));
    driver->OnNextBox(QMessageBox::No);
  });
  EXPECT_EQ(driver->texts.back(), "Save the changes of 1 record?");
}

TEST_F(EntryWindows, a_paste_over_values_shows_its_plan_first) {
  InGrid([&] {
    driver->Choose("cmbGRD_Month", "2017/07");
    const std::string before = Text(1, kHours);
    ASSERT_FALSE(before.empty());
    QApplication::clipboard()->setText("1\n2\nabc\n");
    GoTo(0, kHours);
    driver->OnNextModal([&](QWidget* plan) {
      EXPECT_EQ(plan->objectName(), "frmPaste");
      EXPECT_EQ(driver->Find<QAbstractItemView>("lvwPST_Plan")->model()->rowCount(), 3);
      EXPECT_EQ(driver->Text("lblPST_Count"), "3 cells: 2 changed, 1 not a number");
      driver->Click("cmdCANCEL");
    });
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(1, kHours), before);
    driver->Settle();
    GoTo(0, kHours);
    driver->OnNextModal([&](QWidget*) { driver->Click("cmdOK"); });
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(1, kHours), "2");
    driver->OnNextBox(QMessageBox::No);
  });
}

// What a save would change is marked, in the cell in hand too, and the lines below name the cell and say what is wrong.
TEST_F(EntryWindows, a_cell_that_cannot_be_used_has_its_mark_and_its_name_below) {
  InGrid([&] {
    const auto look = [&](int row) {
      driver->Settle();
      const QRect cell = Grid().visualRect(Grid().model()->index(row, Model().FindColumn(kHours)));
      return Grid().viewport()->grab(cell).toImage();
    };
    const auto ground = [](const QImage& cell) { return cell.pixelColor(cell.width() / 2, 4); };
    // the ink of the mark at the cell's left end
    const auto ink = [](const QImage& cell) {
      int marked = 0;
      for (int x = 4; x < 16; ++x)
        for (int y = 4; y < cell.height() - 4; ++y)
          marked += Contrast(cell.pixelColor(x, y), cell.pixelColor(cell.width() / 2, 4)) > 3;
      return marked;
    };
    GoTo(5, kHours);
    const QImage plain = look(0);
    for (const auto& [row, text] : {std::pair(0, "12,5"), {1, "abc"}}) {
      GoTo(row, kHours);
      Keys(text);
      Key(Qt::Key_Return);
    }
    for (const int row : {0, 1}) {
      GoTo(5, kHours);
      const QImage left = look(row);
      EXPECT_GE(Contrast(ground(left), ground(plain)), 1.1) << row;
      EXPECT_GT(ink(left), 5) << row;
      GoTo(row, kHours);
      const QImage in_hand = look(row);
      EXPECT_GT(ink(in_hand), 5) << row;
      EXPECT_EQ(ground(in_hand).name(), ground(left).name()) << row;
      EXPECT_EQ(driver->Text("lblGRD_Cell"),
                QString::fromStdString(Model().Cell(row, 0).text + " · " + Model().Cell(row, 1).text) +
                    " · Hours Operated (hrs), including upsets");
    }
    EXPECT_EQ(driver->Text("lblGRD_Message"), "Not a number: will be saved blank");
    GoTo(0, kHours);
    driver->Settle();
    EXPECT_EQ(driver->Text("lblGRD_Message"), "Will be saved as 12");
    driver->OnNextBox(QMessageBox::No);
  });
}

TEST_F(EntryWindows, the_keyboard_is_in_the_cells_again_behind_a_button_and_a_plan) {
  InGrid([&] {
    for (const char* button : {"cmdGRD_Copy", "cmdGRD_Confirm"}) {
      GoTo(1, kHours);
      driver->Click(button);
      EXPECT_EQ(QApplication::focusWidget(), &Grid()) << button;
      EXPECT_EQ(Grid().currentIndex().row(), 1);
    }
    QApplication::clipboard()->setText("1\nabc\n");
    driver->Widget("cmdGRD_Copy")->setFocus();
    driver->OnNextModal([&](QWidget*) { driver->Click("cmdCANCEL"); });
    QTest::keyClick(&Grid(), Qt::Key_V, Qt::ControlModifier);
    driver->Settle();
    EXPECT_EQ(QApplication::focusWidget(), &Grid());
    driver->OnNextBox(QMessageBox::No);
  });
}

TEST_F(EntryWindows, the_grid_opens_large_and_what_names_a_row_stays_and_picks_it) {
  InGrid([&] {
    EXPECT_GE(window->height(), driver->app->window()->height() - 60);
    EXPECT_FALSE(Grid().verticalHeader()->isVisible());
    auto* fixed = Grid().findChild<QTableView*>();
    ASSERT_TRUE(fixed != nullptr);
    Grid().setColumnWidth(Model().FindColumn("txtFLA_Comments"), 3000);
    driver->Settle();
    const int left = fixed->visualRect(Grid().model()->index(0, 0)).left();
    Grid().horizontalScrollBar()->setValue(Grid().horizontalScrollBar()->maximum());
    EXPECT_GT(Grid().horizontalScrollBar()->value(), 0);
    EXPECT_EQ(fixed->visualRect(Grid().model()->index(0, 0)).left(), left);
    QTest::mouseClick(fixed->viewport(), Qt::LeftButton, {}, fixed->visualRect(Grid().model()->index(2, 1)).center());
    EXPECT_EQ(S().desk.Find("frmGrid")->At("grdGRD").picked, std::vector<int>{2});
    driver->Click("cmdGRD_Copy");
    EXPECT_FALSE(Text(2, kHours).empty());
    EXPECT_TRUE(Text(3, kHours).empty());
    driver->OnNextBox(QMessageBox::No);
  });
}

TEST_F(EntryWindows, copied_and_failed_cells_tell_themselves_without_colour) {
  InGrid([&] {
    driver->Click("cmdGRD_Copy");
    GoTo(0, kHours);
    Keys("745");
    Key(Qt::Key_Return);
    const auto tip = [&](int row, const char* column) {
      return Grid().model()->index(row, Model().FindColumn(column)).data(Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(tip(0, kHours), "Value not in expected range (0 to 744)");
    EXPECT_EQ(tip(1, kHours), "Copied from the month before, not yet confirmed");
    driver->OnNextBox(QMessageBox::No);
  });
}

TEST_F(EntryWindows, the_strip_shows_the_months_and_a_click_on_a_bar_goes_there) {
  driver->Command("mnuRStrip");
  auto* bars = driver->app->window()->findChild<StripBars*>();
  ASSERT_TRUE(bars != nullptr && bars->isVisible());
  EXPECT_EQ(driver->Text("lblSTR_Field"), "Hours Operated (hrs), including upsets:");
  EXPECT_NE(bars->accessibleDescription().indexOf("Month 8: blank (shown)"), -1);
  QTest::mouseClick(bars, Qt::LeftButton, {}, bars->PlaceOf(2).center());
  driver->Settle();
  EXPECT_EQ(S().current.Month, 3);
  EXPECT_EQ(S().current.EquipType, "FLA");
  QTest::mouseClick(bars, Qt::LeftButton, {}, bars->PlaceOf(11).center());
  driver->Settle();
  EXPECT_EQ(S().current.Month, 3) << "there is no December yet";
  // what is typed shows at once
  driver->Click("cmdEdit");
  driver->Type(kVolume, "99999");
  driver->Settle();
  EXPECT_EQ(driver->Text("lblSTR_Field"), "Volume Flared (Mscf), including upsets:");
  EXPECT_NE(bars->accessibleDescription().indexOf("Month 3: 99999, outside 0 to 20000 (shown)"), -1)
      << bars->accessibleDescription().toStdString();
  driver->OnNextBox();
  QTest::mouseClick(bars, Qt::LeftButton, {}, bars->PlaceOf(0).center());
  driver->Settle();
  EXPECT_EQ(driver->texts.back(), "End the edit first.");
  EXPECT_EQ(S().current.Month, 3);
}

TEST_F(EntryWindows, a_hint_stands_below_its_field_and_a_sum_is_computed_when_it_is_left) {
  driver->Click("cmdEdit");
  driver->Type(kHours, "12,5");
  driver->Settle();
  auto* hint = driver->app->window()->findChild<QLabel*>(QString(kHours) + "_Hint");
  ASSERT_TRUE(hint != nullptr && hint->isVisible());
  EXPECT_EQ(hint->text(), "Will be saved as 12");
  QWidget* field = driver->Widget(kHours);
  EXPECT_GE(hint->mapTo(driver->app->window(), QPoint()).y(),
            field->mapTo(driver->app->window(), QPoint(0, field->height())).y());
  driver->Type(kHours, "=12*31");
  Key(Qt::Key_Tab);
  driver->Settle();
  EXPECT_EQ(driver->Text(kHours), "372");
  EXPECT_FALSE(hint->isVisible());
}

TEST_F(EntryWindows, a_row_of_cells_is_pasted_into_the_fields_that_follow) {
  driver->Click("cmdEdit");
  QApplication::clipboard()->setText("1 200\t=3*4\n");
  driver->Widget(kHours)->setFocus();
  Key(Qt::Key_V, Qt::ControlModifier);
  driver->Settle();
  EXPECT_EQ(driver->Text(kHours), "1200");
  Key(Qt::Key_Tab);
  driver->Settle();
  EXPECT_EQ(driver->Text(kVolume), "12");
}

}  // namespace
}  // namespace merlu::test
