// Saves pictures of the screens: merlu_pictures FOLDER [WHAT...], and those of the documents: merlu_pictures docs docs.
// merlu_pictures FOLDER tour [PART...]: all screens, as large as a screen of 1366x768 has room for.
#include <QDir>
#include <QMenu>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTreeWidget>

#include "dark.h"
#include "desktop/desktop.h"
#include "desktop/look.h"
#include "desktop/shortcuts.h"
#include "doc_pictures.h"
#include "driver.h"
#include "examples.h"
#include "inventory.h"
#include "screen_tour.h"
#include "support/fonts.h"

namespace merlu::test {
namespace {

class Pictures {
 public:
  explicit Pictures(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

  void Save(QWidget* widget, const QString& name) {
    QCoreApplication::processEvents();
    widget->grab().save(folder_ + "/" + name + ".png");
  }

  void FirstRun() {
    Driver driver;
    driver.OnNextModal([&](QWidget* dialog) {
      Save(dialog, "01-first-run");
      driver.Type("txtUserID", "12345");
      driver.Type("txtUSER_Phone", "555123");
      Save(dialog, "02-first-run-typing");
      driver.OnNextBox();
      dialog->close();
    });
    driver.Start();
  }

  void Sheets(const QSize& size, const QString& suffix) {
    TemporaryFolder folder;
    CopyTemplate(folder);
    Prepare(folder, ReadExample("year-of-all-types.merlu"));
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    MainWindow* window = driver.app->window();
    window->resize(size);
    Save(window, "10-operator" + suffix);
    driver.Click("cmdEdit");
    Save(window, "11-operator-edit" + suffix);
    driver.Click("cmdCANCEL");
    driver.Select("K12345 32017");
    Save(window, "12-survey" + suffix);
    const std::string structure = "K12345 32017   1001 1";
    driver.Select(structure);
    Save(window, "13-structure-month" + suffix);
    for (const TreeNode& node : std::vector<TreeNode>(driver.app->session().tree.nodes)) {
      if (node.key.size() != 32 || !node.key.starts_with(structure)) continue;
      driver.Select(node.key);
      driver.Click("cmdEdit");
      Save(window, QString("20-%1-month-edit%2").arg(QString::fromStdString(node.key.substr(21, 3)), suffix));
      driver.Click("cmdCANCEL");
    }
    driver.Select("K12345");
    driver.Command("mnuSetEditMode");
    driver.Select("K12345   1001 1");
    driver.Click("cmdEdit");
    Save(window, "14-structure-edit" + suffix);
    driver.Click("cmdCANCEL");
    for (const TreeNode& node : std::vector<TreeNode>(driver.app->session().tree.nodes)) {
      if (node.key.size() != 26) continue;
      driver.Select(node.key);
      driver.Click("cmdEdit");
      for (auto* tab : window->findChildren<QTabWidget*>()) {
        if (!tab->isVisible()) continue;
        for (int page = 0; page + 1 < tab->count(); ++page) {
          tab->setCurrentIndex(page);
          Save(window,
               QString("30-%1-page%2%3").arg(QString::fromStdString(node.key.substr(15, 3))).arg(page).arg(suffix));
        }
        tab->setCurrentIndex(0);
        break;
      }
      driver.Click("cmdCANCEL");
    }
  }

  void Shell(const QString& suffix) {
    TemporaryFolder folder;
    CopyTemplate(folder);
    Prepare(folder, ReadExample("first-month.merlu"));
    Driver driver(folder.path("inventory.mdb"));
    driver.app->Start();
    driver.Settle();
    Save(driver.Top("frmAbout"), "50-splash" + suffix);
    driver.CloseSplash();
    driver.OnNextModal([&](QWidget* dialog) {
      Save(dialog, "51-about" + suffix);
      dialog->close();
    });
    driver.Command("mnuHAbout");
    driver.OnNextModal([&](QWidget* dialog) {
      Save(dialog, "52-shortcuts" + suffix);
      dialog->close();
    });
    driver.Command(shortcut::kSheet);
    driver.app->PaintWait({true, "MERLU", "Running QC ...", 0, 0});
    Save(driver.Top("frmWait"), "53-wait" + suffix);
    driver.app->PaintWait({});
    driver.app->PaintWait({true, "Preparing QA Summary", "March 2017, structure 1001 1 of 40", 12, 40});
    Save(driver.Top("frmWait"), "54-wait-share" + suffix);
    driver.app->PaintWait({});
  }

  void Help(const QString& suffix) {
    TemporaryFolder folder;
    CopyTemplate(folder);
    Prepare(folder, ReadExample("first-month.merlu"));
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    const auto show = [&](const char* command, const QString& name, const QString& sought) {
      driver.OnNextModal([&](QWidget* dialog) {
        Save(dialog, name + suffix);
        auto* text = dialog->findChild<QTextBrowser*>("rtfHelp");
        text->verticalScrollBar()->setValue(text->verticalScrollBar()->maximum());
        Save(dialog, name + "-end" + suffix);
        QTest::keyClick(dialog, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(dialog->findChild<QLineEdit*>("helpFind"), sought);
        Save(dialog, name + "-find" + suffix);
        dialog->findChild<QPushButton*>("cmdClose")->click();
      });
      driver.Command(command);
    };
    for (const char* name : {"mnuHelp", "mnuHOther"}) {
      auto* menu = driver.app->window()->findChild<QMenu*>(name);
      menu->adjustSize();
      Save(menu, QString("49-") + name + suffix);
    }
    show("mnuHCurrentScreen", "50-help-operator", "months");
    show("mnuHOFLA", "51-help-flare", "pilot");
    show("mnuHOLOS", "52-help-flashing", "nowhere to be found");
  }

  void Findings(const QString& suffix) {
    TemporaryFolder folder;
    CopyTemplate(folder);
    Prepare(folder, ReadExample("first-month.merlu"));
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    MainWindow* window = driver.app->window();
    driver.Select("K12345 22017   1001 1FLA      F1");
    driver.Click("cmdEdit");
    driver.Type("txtFLA_HrsOperated", "745");
    driver.Type("txtFLA_VolFlared", "");
    QTest::keyClick(driver.Widget("txtFLA_VolFlared"), Qt::Key_Backspace);
    driver.OnNextModal([&](QWidget* box) {
      Save(box, "40-box" + suffix);
      box->close();
    });
    driver.Click("cmdQC");
    driver.Widget("txtFLA_VolFlared")->setFocus();
    Save(window, "41-flagged" + suffix);
    driver.Find<QTabWidget>("tabFLA")->setCurrentIndex(2);
    Save(window, "42-findings" + suffix);
    auto* list = driver.Find<QTreeWidget>("lvwFLA_QCResults");
    list->topLevelItem(0)->setSelected(true);
    driver.OnNextModal([&](QWidget* dialog) {
      Save(dialog, "43-comment" + suffix);
      driver.Type("txtComments",
                  "The meter ran on over the night of the twelfth; the log of the platform has the true hours.");
      driver.Click("cmdOK");
    });
    driver.Click("cmdFLA_EditQCComment");
    Save(window, "47-findings-commented" + suffix);
    driver.Click("cmdCANCEL");
    driver.Find<QTabWidget>("tabFLA")->setCurrentIndex(0);
    driver.Select("K12345 22017");
    Save(window, "44-survey-summary" + suffix);
    driver.Select("K12345");
    driver.Command("mnuSetEditMode");
    driver.OnNextModal([&](QWidget* dialog) {
      Save(dialog, "45-new-structure" + suffix);
      dialog->close();
    });
    driver.Click("cmdUSER_AddStructure");
    driver.Select("K12345   1001 1");
    driver.OnNextModal([&](QWidget* dialog) {
      Save(dialog, "46-new-equipment" + suffix);
      dialog->close();
    });
    driver.Click("cmdSTRUCTURE_AddEquip");
  }

  void Exchange() {
    TemporaryFolder folder;
    InventoryPlan plan;
    plan.structures = 9;
    plan.equipment = 20;
    MakeInventory(TemplatePath(), folder.path("inventory.mdb"), plan);
    Raw(folder.path("inventory.mdb"),
        {"UPDATE PD_PLATFORM_DESC SET Name='A platform whose name is longer than most of them' WHERE PD_ID_AK=2"});
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    const auto take = [&](const char* menu, const char* picture, const std::function<void()>& work) {
      driver.OnNextModal([&, picture](QWidget* dialog) {
        work();
        Save(dialog, picture);
        dialog->close();
      });
      driver.Command(menu);
    };
    const QString file = QString::fromStdString(folder.path("inventory.mdb"));
    take("mnuFExport", "50-export-survey", [&] {
      driver.Find<QTreeWidget>("lvwSurveys")->topLevelItem(2)->setSelected(true);
      driver.Type("txtExportFilename", file);
    });
    take("mnuFExportInventory", "51-export-inventory", [] {});
    take("mnuEStructS", "52-export-structures",
         [&] { driver.Find<QTreeWidget>("lvwStructures")->topLevelItem(2)->setSelected(true); });
    take("mnuEStructB", "53-import-empty", [] {});
    take("mnuEStructB", "54-import", [&] {
      driver.Type("txtImportFilename", file);
      driver.Click("cmdLoad");
    });
  }

  // The month grid of five types, with a finding, a hint, copied values and a locked cell; the strip.
  void Grids(const QString& suffix) {
    TemporaryFolder folder;
    InventoryPlan plan;
    plan.structures = 4;
    plan.equipment = 60;
    plan.months = 8;
    plan.types = {"FLA", "NGT", "STO", "BOI", "LOS"};
    MakeInventory(TemplatePath(), folder.path("inventory.mdb"), plan);
    Driver driver(folder.path("inventory.mdb"));
    driver.Start();
    if (driver.app->session().InDesc()) driver.Command("mnuSetEditMode");
    MainWindow* window = driver.app->window();
    window->resize(1366, 768);
    for (const TreeNode& node : std::vector<TreeNode>(driver.app->session().tree.nodes))
      if (node.key.size() == 32) {
        driver.Select(node.key);
        break;
      }
    driver.Command("mnuRStrip");
    Save(window, "70-strip" + suffix);
    driver.Command("mnuRStrip");
    driver.OnNextModal([&](QWidget* dialog) {
      driver.Choose("cmbGRD_Month", "2017/08");
      const QStringList types = {"Combustion Flare", "NG Turbine", "Storage Tank", "Boiler, Heater, or Burner",
                                 "Losses from Flashing"};
      for (const QString& type : types) {
        driver.Choose("cmbGRD_Type", type);
        auto* grid = driver.Find<QAbstractItemView>("grdGRD");
        grid->setFocus();
        for (const auto& [row, text] : {std::pair(0, "99999999"), {1, "12,5"}, {2, ""}, {3, "abc"}}) {
          grid->setCurrentIndex(grid->model()->index(row, 2));
          QTest::keyClick(grid, Qt::Key_Delete);
          for (const char key : std::string(text)) QTest::keyClick(QApplication::focusWidget(), key);
          QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
        driver.Click("cmdGRD_Copy");
        grid->setCurrentIndex(grid->model()->index(0, 2));
        Save(dialog, "71-grid-" + type.left(6).simplified() + suffix);
      }
      driver.OnNextBox(QMessageBox::No);
      dialog->close();
    });
    driver.Command("mnuNGrid");
  }

 private:
  QString folder_;
};

}  // namespace
}  // namespace merlu::test

int main(int argc, char** argv) {
  merlu::test::UseTestFont();
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (qEnvironmentVariableIsSet("MERLU_DARK")) QApplication::setPalette(merlu::test::DarkPalette());
  if (qEnvironmentVariableIsSet("MERLU_CONTRAST")) QApplication::setPalette(merlu::test::ContrastPalette());
  merlu::SetUpLook();
  merlu::test::Pictures pictures(argc > 1 ? argv[1] : "pictures");
  const QStringList what = application.arguments().mid(2);
  // as large as a screen of 1366x768 is at the scale of QT_SCALE_FACTOR
  const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
  const QSize screen(static_cast<int>(1366 / scale) - 8, static_cast<int>(768 / scale) - 40);
  if (what.contains("screen")) pictures.Sheets(screen, "");
  if (what.value(0) == "tour") {
    merlu::test::TourScreens(what.mid(1), screen, [&](QWidget& widget, const std::string& name) {
      pictures.Save(&widget, QString::fromStdString(name));
    });
    return 0;
  }
  if (what.contains("docs")) merlu::test::MakeDocPictures(argv[1]);
  if (what.isEmpty() || what.contains("first")) pictures.FirstRun();
  if (what.isEmpty() || what.contains("sheets")) pictures.Sheets({1280, 800}, "");
  if (what.isEmpty() || what.contains("findings")) pictures.Findings("");
  if (what.isEmpty() || what.contains("exchange")) pictures.Exchange();
  if (what.isEmpty() || what.contains("shell")) pictures.Shell("");
  if (what.isEmpty() || what.contains("help")) pictures.Help("");
  if (what.isEmpty() || what.contains("small")) pictures.Sheets({1024, 700}, "-small");
  if (what.isEmpty() || what.contains("grids")) pictures.Grids("");
  if (what.contains("grids")) {
    QApplication::setPalette(merlu::test::DarkPalette());
    merlu::SetUpLook();
    pictures.Grids("-dark");
  }
  if (what.isEmpty() || what.contains("dark")) {
    QApplication::setPalette(merlu::test::DarkPalette());
    merlu::SetUpLook();
    pictures.Findings("-dark");
    pictures.Shell("-dark");
    pictures.Help("-dark");
  }
  return 0;
}
