#include "doc_pictures.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTreeWidget>

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "driver.h"
#include "examples.h"
#include "shell/draft.h"

namespace merlu::test {
namespace {

constexpr QSize kWindow(1180, 760);
constexpr std::size_t kColours = 256;

// With the colours that it has most of: a screen has few, and a palette makes a small file.
QImage WithPalette(const QImage& picture) {
  const QImage image = picture.convertToFormat(QImage::Format_RGB32);
  std::unordered_map<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  std::vector<std::pair<int, QRgb>> order;
  for (const auto& [colour, count] : counts) order.emplace_back(-count, colour);
  std::sort(order.begin(), order.end());
  QList<QRgb> palette;
  for (std::size_t i = 0; i < std::min(kColours, order.size()); ++i) palette << order[i].second;
  return image.convertToFormat(QImage::Format_Indexed8, palette, Qt::ThresholdDither | Qt::AvoidDither);
}

// Five platforms with two flares each: typed and explained in the first months, half done in the last ones.
std::string Platforms() {
  const std::string first = ReadExample("first-month.merlu");
  std::string lines = first.substr(0, first.find("# --- a structure"));
  const char* blocks[] = {"43", "52", "61", "70", "118"};
  constexpr int kMonths = 5;
  for (int i = 0; i < 5; ++i) {
    lines += "select K12345\nclick cmdUSER_AddStructure\nset txtComplxID " + std::to_string(1001 + i) +
             "\nset txtStructID 1\nset txtArea GI\nset txtBlock " + blocks[i] + "\nset txtName A\nclick cmdOK\n";
    for (const char* flare : {"F1", "F2"})
      lines += "select \"K12345   " + std::to_string(1001 + i) + " 1\"\nclick cmdSTRUCTURE_AddEquip\nset txtEquipID " +
               std::string(flare) + "\nset cmbEquipType \"Combustion Flare\"\nclick cmdOK\nclick cmdEdit\n" +
               "set txtFLA_ConcH2S 40\nset txtFLA_FlareEfficiency 98\nset cmbFLA_FlareSmoke None\n"
               "set cmbFLA_HasContFlarePilot Yes\nset txtFLA_PilotFuelFeedRate 1.5\nset txtFLA_StackOutletElev 160\n"
               "set txtFLA_StackInnerDiam 24\nset txtFLA_StackExitVel 66\nset txtFLA_StackExitT 1832\n"
               "set txtFLA_StackAngle 0\nclick cmdSaveExit\n";
  }
  lines += "click mnuSetEditMode\nselect K12345\n";
  for (int month = 2; month <= kMonths; ++month) lines += "click cmdUSER_AddSurvey\nselect K12345\n";
  for (int month = 1; month <= kMonths; ++month)
    for (int i = 0; i < 5; ++i) {
      if (month == kMonths) continue;  // not typed yet
      lines += "select \"K12345 " + std::to_string(month) + "2017   " + std::to_string(1001 + i) +
               " 1\"\nclick cmdEdit\nset txtSTRUCTURE_ProdOil 5200\nset txtSTRUCTURE_ProdNG 41\n"
               "set txtSTRUCTURE_ThruOil 5200\nset txtSTRUCTURE_ThruNG 41\nset txtSTRUCTURE_TotalFuelUsageNG 3100\n"
               "set txtSTRUCTURE_TotalFuelUsageGasoline 0\nset txtSTRUCTURE_TotalFuelUsageDiesel 1200\n"
               "click cmdSaveExit\n";
      for (const int flare : {1, 2}) {
        if (month == kMonths - 1 && i > 2) continue;
        const int hours = month == 3 && i == 1 ? 745 : 700 + 7 * i + month;
        lines += "select \"K12345 " + std::to_string(month) + "2017   " + std::to_string(1001 + i) + " 1FLA      F" +
                 std::to_string(flare) + "\"\nclick cmdEdit\nset txtFLA_HrsOperated " + std::to_string(hours) +
                 "\nset txtFLA_VolFlared " +
                 (month == 4 && i == 2 ? "\"\"" : std::to_string(900 + 110 * i + 13 * month)) +
                 "\nset cmbFLA_PilotIncludedInVolume Yes\nclick cmdSaveExit\n";
      }
    }
  return lines;
}

class DocPictures {
 public:
  explicit DocPictures(const QString& folder) : folder_(folder) { QDir().mkpath(folder + "/pictures"); }

  void Save(QWidget& window, const QString& name) {
    QCoreApplication::processEvents();
    const QString file = folder_ + "/" + name + ".png";
    if (!WithPalette(window.grab().toImage()).save(file, "PNG", 0)) qWarning("%s", qPrintable(file));
  }
  // The dialog that the act opens, after the steps in it.
  void SaveDialog(Driver& driver, const QString& name, const std::function<void()>& act,
                  const std::function<void()>& steps) {
    driver.OnNextModal([&](QWidget* dialog) {
      steps();
      Save(*dialog, name);
      dialog->close();
    });
    act();
  }

  void FirstRun() {
    Driver driver;
    driver.OnNextModal([&](QWidget* dialog) {
      for (const auto& [name, text] : {std::pair{"txtUserID", "12345"},
                                       {"txtUSER_Company", "Blue Water Exploration"},
                                       {"txtUSER_Address1", "1 Quay Street"},
                                       {"txtUSER_City", "Port Fourchon"},
                                       {"txtUSER_State", "LA"},
                                       {"txtUSER_Zip", "70357"}})
        driver.Type(name, text);
      Save(*dialog, "pictures/first-run");
      driver.OnNextBox();
      dialog->close();
    });
    driver.Start();
  }

  void FirstMonth() {
    TemporaryFolder folder;
    CopyTemplate(folder);
    Prepare(folder, ReadExample("first-month.merlu"));
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    driver.app->window()->resize(kWindow);
    Month(driver);
    Descriptions(driver);
  }

  void Year() {
    TemporaryFolder folder;
    CopyTemplate(folder);
    Prepare(folder, ReadExample("year-of-all-types.merlu"));
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    MainWindow& window = *driver.app->window();
    window.resize(kWindow);
    driver.Select("K12345 32017   1001 1DIE   D-103");
    driver.Click("cmdEdit");
    Save(window, "pictures/month");
    driver.Click("cmdCANCEL");
    driver.Select("K12345 42017   1001 1");
    driver.Click("cmdEdit");
    driver.Find<QAbstractButton>("chkSTRUCTURE_Status")->click();
    driver.Click("cmdSaveExit");
    Save(window, "pictures/inactive");
    SaveDialog(
        driver, "pictures/export-survey", [&] { driver.Command("mnuFExport"); },
        [&] {
          driver.Find<QTreeWidget>("lvwSurveys")->topLevelItem(2)->setSelected(true);
          driver.Type("txtExportFilename", "/home/me/handed-in/2017-03.mdb");
        });
    SaveDialog(
        driver, "pictures/export-structures", [&] { driver.Command("mnuEStructS"); },
        [&] {
          driver.Find<QTreeWidget>("lvwStructures")->topLevelItem(0)->setSelected(true);
          driver.Type("txtExportFilename", "/home/me/moved/gi-43-a.mdb");
        });
    Import(driver, folder);
  }

  void Review() {
    TemporaryFolder folder;
    CopyTemplate(folder);
    Prepare(folder, Platforms());
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    MainWindow& window = *driver.app->window();
    window.resize(kWindow);
    driver.Select("K12345 42017   1001 1FLA      F1");
    Grid(driver);
    driver.Command("mnuRFindings");
    driver.Choose("cmbFND_When", "2017/03");
    driver.Command("mnuRNext");
    Save(window, "pictures/findings-dock");
    driver.Command("mnuRFindings");
    driver.Command("mnuRCompleteness");
    Save(window, "pictures/completeness");
    driver.Command("mnuRCompleteness");
    SaveDialog(
        driver, "pictures/ready", [&] { driver.Command("mnuRHandIn"); },
        [&] { driver.Choose("cmbHND_Month", "2017/03"); });
    SaveDialog(
        driver, "pictures/history", [&] { driver.Command("mnuRHistory"); }, [] {});
    driver.Select("K12345 32017   1002 1FLA      F1");
    driver.Command("mnuRStrip");
    driver.Widget("txtFLA_HrsOperated")->setFocus();
    Save(window, "pictures/strip");
    driver.Command("mnuRStrip");
    SaveDialog(
        driver, "pictures/go-to", [&] { driver.Command("mnuRFind"); },
        [&] { driver.Type("txtGOT_Text", "flare hrs"); });
    SaveDialog(
        driver, "pictures/backups", [&] { driver.Command("mnuFBackups"); }, [] {});
    Workbook(driver, folder);
    Interrupted(driver, folder);
  }

 private:
  // The dialog of files that comes next takes this name.
  void OnNextFile(Driver& driver, const std::string& path) {
    driver.OnNextModal([path](QWidget* dialog) {
      auto* line = dialog->findChild<QLineEdit*>("fileNameEdit");
      line->setText(QString::fromStdString(path));
      QTest::keyClick(line, Qt::Key_Return);
    });
  }

  // A workbook that comes back with some of its figures filled in.
  void Workbook(Driver& driver, const TemporaryFolder& folder) {
    const std::string book = folder.path("2017-05.xlsx");
    const char* april = "(SELECT EA_ID_AK FROM EA_EQUIP_ACTV WHERE EA_MO=4)";
    driver.Select("K12345 42017   1001 1FLA      F1");
    OnNextFile(driver, book);
    driver.OnNextBox();
    driver.Command("mnuFWorkbookMake");
    Raw(folder.path("inventory.mdb"), {std::string("UPDATE EA_FLA SET VOL_FLARED=NULL WHERE EA_ID_AK IN ") + april,
                                       std::string("UPDATE EA_FLA SET OP_HR=OP_HR-12 WHERE EA_ID_AK IN ") + april});
    OnNextFile(driver, book);
    SaveDialog(
        driver, "pictures/read-plan", [&] { driver.Command("mnuFWorkbookRead"); }, [] {});
  }

  // What is typed when the machine stops, as the next start offers it.
  void Interrupted(Driver& driver, const TemporaryFolder& folder) {
    driver.Select("K12345 52017   1003 1FLA      F2");
    driver.Click("cmdEdit");
    driver.Type("txtFLA_HrsOperated", "712");
    driver.Type("txtFLA_VolFlared", "1175");
    driver.Widget("txtFLA_HrsOperated")->setFocus();
    KeepDraftOfEdit(driver.app->session(), When::kAtOnce);
    driver.LeaveDialogsToTheTest();
    TemporaryFolder copy;
    for (const char* name : {"inventory.mdb", "inventory.mdb.history"})
      fs::copy_file(folder.path(name), copy.path(name));
    Driver next(copy.path("inventory.mdb"));
    SaveDialog(
        next, "pictures/draft", [&] { next.Start(); }, [] {});
  }

  void Grid(Driver& driver) {
    SaveDialog(
        driver, "pictures/grid", [&] { driver.Command("mnuNGrid"); },
        [&] {
          auto* grid = driver.Find<QAbstractItemView>("grdGRD");
          driver.Click("cmdGRD_Copy");
          grid->setFocus();
          // the first key opens the editor, which takes the others
          for (const char key : std::string("745")) QTest::keyClick(QApplication::focusWidget(), key);
          QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
          QTest::keyClick(grid, Qt::Key_Up);
          driver.OnNextBox(QMessageBox::No);
        });
  }

  void Month(Driver& driver) {
    MainWindow& window = *driver.app->window();
    driver.Select("K12345 22017   1001 1FLA      F1");
    driver.Click("cmdEdit");
    driver.Type("txtFLA_HrsOperated", "745");
    driver.Type("txtFLA_VolFlared", "");
    QTest::keyClick(driver.Widget("txtFLA_VolFlared"), Qt::Key_Backspace);
    driver.OnNextBox();
    driver.Click("cmdQC");
    driver.Widget("txtFLA_VolFlared")->setFocus();
    Save(window, "window");
    driver.Find<QTabWidget>("tabFLA")->setCurrentIndex(2);
    auto* list = driver.Find<QTreeWidget>("lvwFLA_QCResults");
    list->topLevelItem(0)->setSelected(true);
    driver.OnNextModal([&](QWidget* dialog) {
      driver.Type("txtComments", "The meter ran on over the night of the twelfth; the log has the true hours.");
      Save(*dialog, "pictures/comment");
      driver.Click("cmdOK");
    });
    driver.Click("cmdFLA_EditQCComment");
    Save(window, "pictures/findings");
    driver.Find<QTabWidget>("tabFLA")->setCurrentIndex(0);
    driver.Click("cmdCANCEL");
    driver.Select("K12345 22017");
    Save(window, "pictures/survey");
  }

  void Descriptions(Driver& driver) {
    MainWindow& window = *driver.app->window();
    driver.Select("K12345");
    driver.Command("mnuSetEditMode");
    SaveDialog(
        driver, "pictures/new-structure", [&] { driver.Click("cmdUSER_AddStructure"); },
        [&] {
          driver.Type("txtComplxID", "1002");
          driver.Type("txtStructID", "1");
        });
    driver.Select("K12345   1001 1");
    SaveDialog(
        driver, "pictures/new-equipment", [&] { driver.Click("cmdSTRUCTURE_AddEquip"); },
        [&] {
          driver.Type("txtEquipID", "V1");
          driver.Choose("cmbEquipType", "Cold Vent");
        });
    driver.Select("K12345   1001 1FLA      F1");
    driver.Click("cmdEdit");
    Save(window, "pictures/description");
    driver.Click("cmdCANCEL");
  }

  void Import(Driver& driver, const TemporaryFolder& folder) {
    const QString other = QString::fromStdString(folder.path("gi-43-a.mdb"));
    fs::copy_file(folder.path("inventory.mdb"), other.toStdString());
    SaveDialog(
        driver, "pictures/import", [&] { driver.Command("mnuEStructB"); },
        [&] {
          driver.Type("txtImportFilename", other);
          driver.Click("cmdLoad");
          driver.Find<QTreeWidget>("lvwStructures")->topLevelItem(0)->setSelected(true);
          driver.Type("txtImportFilename", "/home/me/moved/gi-43-a.mdb");
        });
    Raw(other.toStdString(), {"UPDATE EA_DIE SET OP_HR=OP_HR+12"});
    driver.OnNextModal([&](QWidget* dialog) {
      driver.Type("txtImportFilename", other);
      driver.Click("cmdLoad");
      driver.Find<QTreeWidget>("lvwStructures")->topLevelItem(0)->setSelected(true);
      SaveDialog(
          driver, "pictures/import-plan", [&] { driver.Click("cmdPlan"); }, [] {});
      dialog->close();
    });
    driver.Command("mnuEStructB");
  }

  QString folder_;
};

}  // namespace

void MakeDocPictures(const QString& folder) {
  DocPictures pictures(folder);
  pictures.FirstRun();
  pictures.FirstMonth();
  pictures.Year();
  pictures.Review();
}

}  // namespace merlu::test
