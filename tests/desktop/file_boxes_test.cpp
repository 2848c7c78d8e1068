// A box about a file names it, in its text or below.
#include <QFileDialog>
#include <QTreeWidget>

#include <fstream>

#include "driver.h"
#include "inventory.h"
#include "store/files.h"

namespace merlu::test {
namespace {

class BoxOfAFile : public testing::Test {
 protected:
  BoxOfAFile() {
    InventoryPlan plan;
    plan.structures = 3;
    plan.equipment = 6;
    plan.months = 3;
    MakeInventory(TemplatePath(), folder.path("work.mdb"), plan);
    Raw(folder.path("work.mdb"), {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='9' WHERE PD_ID_AK=1"});
    MakeInventory(TemplatePath(), folder.path("other.mdb"), plan);
    driver = std::make_unique<Driver>(folder.path("work.mdb"));
    driver->Start();
  }
  // The next box has this text, and names the file.
  void OnNextBoxOf(const std::string& file, const QString& text) {
    driver->OnNextModal([this, file, text](QWidget* widget) {
      auto* box = qobject_cast<QMessageBox*>(widget);
      ASSERT_TRUE(box != nullptr) << text.toStdString();
      EXPECT_TRUE(box->text().startsWith(text)) << box->text().toStdString();
      const std::string all = (box->text() + "\n" + box->informativeText()).toStdString();
      EXPECT_NE(all.find(file), std::string::npos) << all;
      ++named;
      (box->button(QMessageBox::Yes) != nullptr ? box->button(QMessageBox::Yes) : box->defaultButton())->click();
    });
  }
  void OnNextFile(const std::string& path) {
    driver->OnNextModal([path](QWidget* widget) {
      auto* line = widget->findChild<QLineEdit*>("fileNameEdit");
      ASSERT_TRUE(line != nullptr) << "a dialog of files";
      line->setText(QString::fromStdString(path));
      QTest::keyClick(line, Qt::Key_Return);
    });
  }
  void PickFirst(const char* list) { driver->Find<QTreeWidget>(list)->topLevelItem(0)->setSelected(true); }
  void ExpectAllNamed(int boxes) {
    EXPECT_TRUE(driver->AllModalsCame());
    EXPECT_EQ(named, boxes);
  }

  TemporaryFolder folder;
  std::unique_ptr<Driver> driver;
  int named = 0;
};

TEST_F(BoxOfAFile, of_a_survey_export_names_the_export) {
  std::ofstream(folder.path("there.mdb")) << "old";
  driver->OnNextModal([&](QWidget*) {
    PickFirst("lvwSurveys");
    for (const char* name : {"nowhere/out.mdb", "there.mdb"}) {
      driver->Type("txtExportFilename", QString::fromStdString(folder.path(name)));
      const bool is_there = FileExists(folder.path(name));
      if (is_there) OnNextBoxOf(name, "FileName already exists.");
      OnNextBoxOf(name, is_there ? "Completed exporting Survey: 01/2017" : "Failed to create export database");
      driver->Click("cmdOK");
    }
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuFExport");
  ExpectAllNamed(3);
}

TEST_F(BoxOfAFile, of_the_other_exports_names_the_export) {
  driver->OnNextModal([&](QWidget*) {
    driver->Type("txtExportFilename", QString::fromStdString(folder.path("all.mdb")));
    OnNextBoxOf("all.mdb", "Completed exporting MERLU inventory.");
    driver->Click("cmdOK");
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuFExportInventory");
  driver->OnNextModal([&](QWidget*) {
    PickFirst("lvwStructures");
    driver->Type("txtExportFilename", QString::fromStdString(folder.path("some.mdb")));
    OnNextBoxOf("some.mdb", "Done.");
    driver->Click("cmdExport");
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuEStructS");
  ExpectAllNamed(2);
}

TEST_F(BoxOfAFile, of_an_import_names_the_file_that_is_imported) {
  std::ofstream(folder.path("text.mdb")) << "no inventory";
  driver->OnNextModal([&](QWidget*) {
    driver->Type("txtImportFilename", QString::fromStdString(folder.path("absent.mdb")));
    OnNextBoxOf("absent.mdb", "Failed to open Import database");
    driver->Click("cmdLoad");
    driver->Type("txtImportFilename", QString::fromStdString(folder.path("text.mdb")));
    OnNextBoxOf("text.mdb", "");
    driver->Click("cmdLoad");
    driver->Type("txtImportFilename", QString::fromStdString(folder.path("other.mdb")));
    driver->Click("cmdLoad");
    PickFirst("lvwStructures");
    // the file that was loaded, whatever the line says by now
    driver->Type("txtImportFilename", "another name");
    OnNextBoxOf("other.mdb", "Done.");
    driver->Click("cmdImport");
    driver->Click("cmdCANCEL");
  });
  driver->Command("mnuEStructB");
  ExpectAllNamed(3);
  EXPECT_EQ(driver->Text("message"), "1 structure imported from other.mdb");
}

TEST_F(BoxOfAFile, of_a_file_that_is_written_names_it) {
  for (const bool fails : {false, true}) {
    const std::string in = fails ? "nowhere/" : "";
    // the dialog of files itself asks nothing about a folder that is not there
    const auto path = [&](const char* name) { return folder.path(in + name); };
    const auto box = [&](const char* name) { OnNextBoxOf(name, fails ? "" : "Done."); };
    if (!fails) OnNextBoxOf("", "");
    OnNextFile(path("descriptions.xls"));
    box("descriptions.xls");
    driver->Command("mnuSExport");
    OnNextFile(path("book.xlsx"));
    box("book.xlsx");
    driver->Command("mnuFWorkbookMake");
    driver->Command("mnuRFindings");
    OnNextFile(path("findings.csv"));
    box("findings.csv");
    driver->Click("cmdFND_Export");
    driver->Command("mnuRFindings");
    driver->OnNextModal([&](QWidget* dialog) {
      OnNextFile(path("report.pdf"));
      box("report.pdf");
      driver->Click("cmdHND_Report");
      static_cast<QDialog*>(dialog)->reject();
    });
    driver->Command("mnuRHandIn");
  }
  EXPECT_TRUE(driver->AllModalsCame());
}

TEST_F(BoxOfAFile, that_is_opened_names_it) {
  std::ofstream(folder.path("broken.mdb")) << std::string(5000, 'x');
  OnNextFile(folder.path("broken.mdb"));
  OnNextBoxOf("broken.mdb", "The file is not a MERLU database.");
  driver->OnNextModal([&](QWidget* widget) {
    auto* box = qobject_cast<QMessageBox*>(widget);
    ASSERT_TRUE(box != nullptr);
    EXPECT_TRUE(box->informativeText().endsWith("broken.mdb")) << box->informativeText().toStdString();
    box->button(QMessageBox::Cancel)->click();
  });
  driver->Command("mnuFileSelectDatabase");
  ExpectAllNamed(1);
}

}  // namespace
}  // namespace merlu::test
