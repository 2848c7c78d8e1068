// The exchange dialogs in the real windows.
#include <gtest/gtest-spi.h>

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QTreeWidget>

#include "base/text.h"
#include "driver.h"
#include "inventory.h"
#include "store/files.h"

namespace merlu::test {
namespace {

class ExchangeWindow : public testing::Test {
 protected:
  ExchangeWindow() {
    InventoryPlan plan;
    plan.structures = 3;
    plan.equipment = 6;
    plan.months = 3;
    MakeInventory(TemplatePath(), folder.path("work.mdb"), plan);
    driver = std::make_unique<Driver>(folder.path("work.mdb"));
    driver->Start();
  }
  void ClickRow(const char* list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    auto* rows = driver->Find<QTreeWidget>(list);
    ASSERT_TRUE(rows != nullptr && rows->topLevelItem(row) != nullptr) << list;
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, keys, rows->visualItemRect(rows->topLevelItem(row)).center());
  }
  std::int64_t Count(const std::string& path, const std::string& from) {
    return ToInteger(RawValue(path, "SELECT COUNT(*) FROM " + from));
  }

  TemporaryFolder folder;
  std::unique_ptr<Driver> driver;
};

TEST_F(ExchangeWindow, exports_the_survey_that_was_clicked) {
  driver->OnNextModal([&](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "Export Survey");
    EXPECT_EQ(QApplication::focusWidget(), driver->Widget("lvwSurveys"));
    ClickRow("lvwSurveys", 1);
    driver->Type("txtExportFilename", QString::fromStdString(folder.path("out")));
    driver->OnNextBox();
    driver->Click("cmdOK");
    EXPECT_EQ(driver->Text("txtExportFilename"), "");
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuFExport");
  EXPECT_EQ(driver->texts, std::deque<QString>{"Completed exporting Survey: 02/2017"});
  EXPECT_EQ(Count(folder.path("out.mdb"), "PA_PLATFORM_ACTV"), 3);
  EXPECT_TRUE(driver->AllModalsCame());
}

TEST_F(ExchangeWindow, picks_nothing_by_enter_in_the_list_of_surveys) {
  driver->OnNextModal([&](QWidget*) {
    auto* list = driver->Find<QTreeWidget>("lvwSurveys");
    ASSERT_EQ(QApplication::focusWidget(), list);
    driver->OnNextBox();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_TRUE(list->selectedItems().isEmpty());
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuFExport");
  EXPECT_EQ(driver->texts, std::deque<QString>{"Please select a Survey."});
  EXPECT_TRUE(driver->AllModalsCame());
}

TEST_F(ExchangeWindow, has_the_way_out_before_the_act_in_every_dialog) {
  for (const auto& [command, act] : std::vector<std::pair<const char*, const char*>>{
           {"mnuFExport", "cmdOK"}, {"mnuEStructS", "cmdExport"}, {"mnuEStructB", "cmdImport"}}) {
    driver->OnNextModal([&, name = act](QWidget* dialog) {
      EXPECT_LT(driver->Widget("cmdCANCEL")->geometry().right(), driver->Widget(name)->geometry().left()) << name;
      dialog->close();
    });
    driver->Command(command);
  }
}

TEST_F(ExchangeWindow, proposes_a_name_of_operator_and_month_in_the_folder_used_last) {
  const QString last = QString::fromStdString(folder.path("handed in"));
  QDir().mkpath(last);
  const auto browse = [&](const std::function<void(QFileDialog&)>& step) {
    driver->OnNextModal([&](QWidget*) {
      ClickRow("lvwSurveys", 1);
      driver->OnNextModal([&](QWidget* dialog) { step(*qobject_cast<QFileDialog*>(dialog)); });
      driver->Click("cmdBrowse");
      driver->Click("cmdCANCEL");
    });
    driver->Command("mnuFExport");
    EXPECT_TRUE(driver->AllModalsCame());
  };
  const QString name = QString::fromStdString(Trim(driver->app->session().current.UserID)) + " 2017-02 Survey";
  browse([&](QFileDialog& dialog) {
    auto* line = dialog.findChild<QLineEdit*>("fileNameEdit");
    EXPECT_EQ(line->text(), name);
    line->setText(last + "/" + name);
    QTest::keyClick(line, Qt::Key_Return);
  });
  browse([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().path(), last);
    dialog.reject();
  });
}

TEST_F(ExchangeWindow, exports_two_structures_and_imports_one_of_them) {
  driver->OnNextModal([&](QWidget*) {
    ClickRow("lvwStructures", 0);
    ClickRow("lvwStructures", 2, Qt::ControlModifier);
    driver->Type("txtExportFilename", QString::fromStdString(folder.path("two.mdb")));
    driver->OnNextBox();
    driver->Click("cmdExport");
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
  });
  driver->Command("mnuEStructS");
  EXPECT_EQ(Count(folder.path("two.mdb"), "PD_PLATFORM_DESC"), 2);
  Raw(folder.path("two.mdb"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='9'||CMPLX_ID_NUM"});

  driver->OnNextModal([&](QWidget*) {
    driver->Type("txtImportFilename", QString::fromStdString(folder.path("two")));
    driver->Click("cmdLoad");
    EXPECT_EQ(driver->Find<QTreeWidget>("lvwStructures")->topLevelItemCount(), 2);
    ClickRow("lvwStructures", 1);
    driver->OnNextBox();
    driver->Click("cmdImport");
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuEStructB");
  EXPECT_EQ(driver->texts, (std::deque<QString>{"Done.", "Done."}));
  EXPECT_EQ(ToInteger(driver->Sql("SELECT COUNT(*) FROM PD_PLATFORM_DESC")), 4);
  EXPECT_EQ(driver->app->session().mode, Mode::kDesc);
  EXPECT_TRUE(driver->AllModalsCame());
}

TEST_F(ExchangeWindow, does_not_wait_for_ever_when_a_box_comes_that_no_test_expects) {
  driver->OnNextModal([&](QWidget*) {
    ClickRow("lvwSurveys", 1);
    driver->Type("txtExportFilename", QString::fromStdString(folder.path("out")));
    EXPECT_NONFATAL_FAILURE(driver->Click("cmdOK"), "Completed exporting Survey: 02/2017");
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuFExport");
  EXPECT_TRUE(driver->AllModalsCame());
}

TEST_F(ExchangeWindow, leaves_room_behind_the_texts_of_its_columns) {
  driver->OnNextModal([&](QWidget* dialog) {
    auto* list = driver->Find<QTreeWidget>("lvwStructures");
    const int head = list->header()->fontMetrics().horizontalAdvance("RIMA Complex ID");
    EXPECT_GE(list->columnWidth(0), head + 16);
    dialog->close();
  });
  driver->Command("mnuEStructS");
  EXPECT_TRUE(driver->AllModalsCame());
}

TEST_F(ExchangeWindow, keeps_the_widths_that_the_user_gave_its_columns) {
  const auto open = [&](const std::function<void(QHeaderView&)>& step) {
    driver->OnNextModal([&](QWidget* dialog) {
      step(*driver->Find<QTreeWidget>("lvwSurveys")->header());
      dialog->close();
    });
    driver->Command("mnuFExport");
  };
  int other = 0;
  open([&](QHeaderView& heads) {
    heads.resizeSection(1, 211);
    other = heads.sectionSize(0);
  });
  open([&](QHeaderView& heads) {
    EXPECT_EQ(heads.sectionSize(1), 211);
    EXPECT_EQ(heads.sectionSize(0), other) << "a column that was left alone fits itself";
  });
  EXPECT_EQ(driver->app->Setting("Columns", "lvwSurveys"), "0 211 0 0");
  for (const char* odd : {"", "x", "1 2", "-5 99999 0 0", "0 nan 0 0"}) {
    driver->app->StoreSetting("Columns", "lvwSurveys", odd);
    open([&](QHeaderView& heads) { EXPECT_LE(heads.sectionSize(1), 2000) << odd; });
  }
}

TEST_F(ExchangeWindow, goes_on_with_the_sheet_that_was_open) {
  Session& s = driver->app->session();
  const std::string key = s.tree.nodes.back().key;
  driver->Select(key);
  driver->OnNextModal([&](QWidget* dialog) { dialog->close(); });
  driver->Command("mnuEStructS");
  EXPECT_EQ(s.tree.nodes[static_cast<std::size_t>(s.tree.selected)].key, key);
  driver->Click("cmdEdit");
  driver->Click("cmdSaveEdits");
  driver->Click("cmdCANCEL");
  EXPECT_TRUE(driver->texts.empty());
}

}  // namespace
}  // namespace merlu::test
