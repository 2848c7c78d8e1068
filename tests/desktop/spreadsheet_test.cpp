// The descriptions as a workbook, through the menu, the box and the file dialog of the real window.
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>

#include "driver.h"
#include "store/files.h"
#include "support/read_back.h"

namespace merlu::test {
namespace {

class SpreadsheetWindow : public testing::Test {
 protected:
  SpreadsheetWindow() {
    driver.FillNewOperator();
    driver.Start();
  }
  bool greets = true;
  // The name typed, the type of file chosen by its place in the list.
  void Export(const std::string& name, int type) {
    if (greets) driver.OnNextBox();
    driver.OnNextModal([this, name, type](QWidget* widget) {
      auto* dialog = qobject_cast<QFileDialog*>(widget);
      ASSERT_TRUE(dialog != nullptr) << "a file dialog";
      title = dialog->windowTitle();
      auto* types = dialog->findChild<QComboBox*>("fileTypeCombo");
      offered = {types->itemText(0), types->itemText(1)};
      types->setCurrentIndex(type);
      emit types->activated(type);
      emit types->textActivated(types->currentText());
      auto* line = dialog->findChild<QLineEdit*>("fileNameEdit");
      line->clear();
      QTest::keyClicks(line, QString::fromStdString(driver.folder().path(name)));
      QTest::keyClick(line, Qt::Key_Return);
    });
    driver.OnNextBox();
    driver.Command("mnuSExport");
    ASSERT_TRUE(driver.AllModalsCame());
    EXPECT_EQ(driver.texts.back(), "Done.");
  }
  void ExpectWhole(const std::string& name) {
    const Finished check = CheckWorkbook(driver.path(), driver.folder().path(name));
    EXPECT_EQ(check.status, 0) << check.output;
  }

  Driver driver;
  QString title;
  QStringList offered;
};

TEST_F(SpreadsheetWindow, writes_an_xls_workbook_under_the_name_that_is_typed) {
  Export("descriptions", 0);
  EXPECT_EQ(title, "Save to Excel File");
  EXPECT_EQ(offered, (QStringList{"Excel File (*.xls)", "Excel Workbook (*.xlsx)"}));
  EXPECT_TRUE(driver.texts.front().startsWith("Please note, this function writes a workbook"));
  ExpectWhole("descriptions.xls");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(SpreadsheetWindow, says_what_it_does_until_it_is_not_to_be_shown_again) {
  for (const bool again : {true, false}) {
    driver.OnNextModal([again](QWidget* box) {
      auto* check = box->findChild<QCheckBox*>("doNotShowAgain");
      ASSERT_TRUE(check != nullptr && check->isChecked());
      if (again) QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(6, check->height() / 2));
      EXPECT_EQ(check->isChecked(), !again);
      QTest::mouseClick(qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok), Qt::LeftButton);
    });
    driver.OnNextModal([](QWidget* dialog) { dialog->close(); });
    driver.Command("mnuSExport");
  }
  driver.OnNextModal([](QWidget* dialog) {
    EXPECT_NE(qobject_cast<QFileDialog*>(dialog), nullptr) << "the question comes at once";
    dialog->close();
  });
  driver.Command("mnuSExport");
  EXPECT_TRUE(driver.AllModalsCame());
}

TEST_F(SpreadsheetWindow, writes_an_xlsx_workbook_when_that_type_is_chosen_or_typed) {
  Export("chosen", 1);
  ExpectWhole("chosen.xlsx");
  greets = false;  // it was shown once
  Export("typed.xlsx", 0);
  ExpectWhole("typed.xlsx");
}

}  // namespace
}  // namespace merlu::test
