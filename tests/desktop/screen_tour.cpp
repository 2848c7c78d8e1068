#include "screen_tour.h"

#include <QAbstractItemView>
#include <QDockWidget>
#include <QFileDialog>
#include <QTabWidget>
#include <QTreeWidget>

#include <set>

#include "driver.h"
#include "inventory.h"
#include "shell/draft.h"

namespace merlu::test {
namespace {

constexpr const char* kLongText =
    "A remark that is longer than most of them are, for it tells the whole of a long night";

class Tour {
 public:
  Tour(const QStringList& parts, const QSize& size, const LookAt& look)
      : parts_(parts), size_(size), look_(look), driver_(Prepared()) {
    driver_.Start();
    Main().resize(size);
    driver_.Settle();
  }

  void Go() {
    if (Wants("sheets")) Sheets();
    if (Wants("docks")) Docks();
    if (Wants("grids")) Grids();
    if (Wants("dialogs")) {
      Review();
      Files();
      Descriptions();
    }
    if (Wants("boxes")) Boxes();
    if (Wants("draft")) Draft();
  }

 private:
  std::string Prepared() {
    std::string path = folder_.path("inventory.mdb");
    MakeTourInventory(path);
    return path;
  }
  bool Wants(const char* part) const { return parts_.isEmpty() || parts_.contains(part); }
  MainWindow& Main() { return *driver_.app->window(); }
  Session& S() { return driver_.app->session(); }
  void Look(QWidget& widget, const std::string& name) {
    driver_.Settle();
    QCoreApplication::processEvents();
    look_(widget, name);
  }
  std::vector<std::string> Keys(std::size_t length) {
    std::vector<std::string> keys;
    for (const TreeNode& node : S().tree.nodes)
      if (node.key.size() == length) keys.push_back(node.key);
    return keys;
  }
  void In(Mode mode) {
    if (S().mode == mode) return;
    driver_.Select(Keys(6).front());
    driver_.Command("mnuSetEditMode");
  }
  // The first piece of the type, of the month or, with 26 characters, of the descriptions.
  std::string NodeOf(const std::string& type, std::size_t length, int which = 0) {
    for (const std::string& key : Keys(length))
      if (key.substr(length - 11, 3) == type && which-- == 0) return key;
    ADD_FAILURE() << "no " << type;
    return "";
  }
  // The dialog that the act opens, after some work in it; then it is closed, and what it asks is answered with No.
  void Dialog(
      const std::string& name, const std::function<void()>& opens, const std::function<void()>& work = [] {}) {
    driver_.OnNextModal([&](QWidget* dialog) {
      work();
      Look(*dialog, name);
      static_cast<QDialog*>(dialog)->reject();
    });
    opens();
    EXPECT_TRUE(driver_.AllModalsCame()) << name;
  }
  void Dialog(
      const std::string& name, const char* command, const std::function<void()>& work = [] {}) {
    Dialog(
        name, [&] { driver_.Command(command); }, work);
  }
  void NameFile(const std::string& path) {
    driver_.OnNextModal([path](QWidget* widget) {
      auto* line = widget->findChild<QLineEdit*>("fileNameEdit");
      ASSERT_TRUE(line != nullptr) << "a file dialog";
      line->setText(QString::fromStdString(path));
      QTest::keyClick(line, Qt::Key_Return);
    });
  }
  QTabWidget* Tabs() {
    for (auto* tabs : Main().findChildren<QTabWidget*>())
      if (tabs->isVisible()) return tabs;
    return nullptr;
  }
  void Pages(const std::string& name) {
    QTabWidget* tabs = Tabs();
    ASSERT_NE(tabs, nullptr) << name;
    const int first = tabs->currentIndex();
    for (int page = 0; page < tabs->count(); ++page) {
      if (!tabs->isTabEnabled(page)) continue;
      tabs->setCurrentIndex(page);
      Look(Main(), name + (page == first ? "" : "-page" + std::to_string(page + 1)));
    }
    tabs->setCurrentIndex(first);
  }
  void Node(const std::string& key, const std::string& name) {
    driver_.Select(key);
    Pages(name);
    if (!driver_.Widget("cmdEdit")->isVisible()) return;
    driver_.Click("cmdEdit");
    Look(Main(), name + "-edit");
    driver_.Click("cmdCANCEL");
  }

  void Sheets() {
    driver_.Select(Keys(6).front());
    driver_.Select(Keys(12)[2]);
    driver_.OnNextBox();
    driver_.Click("cmdQC");
    Pages("12-survey");
    driver_.Select(Keys(6).front());
    Node(Keys(6).front(), "10-operator");
    Node(Keys(21).front(), "13-structure-month");
    std::set<std::string> types;
    for (const std::string& key : Keys(32))
      if (types.insert(key.substr(21, 3)).second) Node(key, "20-" + key.substr(21, 3) + "-month");
    In(Mode::kDesc);
    Node(Keys(15)[1], "14-structure");
    types.clear();
    for (const std::string& key : Keys(26))
      if (types.insert(key.substr(15, 3)).second) Node(key, "30-" + key.substr(15, 3));
  }

  // Two flagged months with copied values beside the docks.
  void Docks() {
    In(Mode::kActv);
    driver_.Select(NodeOf("FLA", 32, 1));
    driver_.Command("mnuRStrip");
    Look(Main(), "40-strip");
    driver_.Command("mnuRFindings");
    driver_.Command("mnuRNext");
    Look(Main(), "41-strip-and-findings");
    driver_.Command("mnuRStrip");
    if (!driver_.Widget("lvwFND_List")->isVisible()) driver_.Command("mnuRFindings");  // gave way on a low screen
    Look(Main(), "42-findings");
    driver_.Type("txtFND_Filter", "nothing has this");
    Look(Main(), "43-findings-none");
    driver_.Type("txtFND_Filter", " ");
    driver_.Command("mnuRFindings");
    driver_.Command("mnuRCompleteness");
    driver_.Widget("grdCMP_Matrix")->setFocus();
    Look(Main(), "44-completeness");
    driver_.Choose("cmbCMP_Show", driver_.Find<ListField>("cmbCMP_Show")->itemText(1));
    Look(Main(), "45-completeness-equipment");
    driver_.Command("mnuRCompleteness");
    driver_.Type("txtTREE_Filter", "pump");
    QTest::qWait(300);  // the tree is searched when the typing pauses
    Look(Main(), "46-tree-filter");
    driver_.Find<QLineEdit>("txtTREE_Filter")->clear();
    driver_.Type("txtTREE_Filter", " ");
    driver_.Find<QLineEdit>("txtTREE_Filter")->clear();
  }

  void Grids() {
    In(Mode::kActv);
    driver_.Select(NodeOf("FLA", 32));
    driver_.OnNextModal([&](QWidget* dialog) {
      driver_.Choose("cmbGRD_Month", "2017/05");
      auto* types = driver_.Find<ListField>("cmbGRD_Type");
      QStringList names;
      for (int i = 0; i < types->count(); ++i) names << types->itemText(i);
      for (const QString& type : names) {
        driver_.Choose("cmbGRD_Type", type);
        TypeIntoGrid();
        Look(*dialog, "50-grid-" + type.left(8).simplified().toStdString());
      }
      auto* grid = driver_.Find<QAbstractItemView>("grdGRD");
      QApplication::clipboard()->setText("12\t1,200\tzzz\n13\tabc\tq\n");
      grid->setCurrentIndex(grid->model()->index(0, 2));
      Dialog("51-paste-plan", [&] { QTest::keyClick(grid, Qt::Key_V, Qt::ControlModifier); });
      driver_.Choose("cmbGRD_View", "One piece of equipment, all months");
      Look(*dialog, "52-grid-months");
      driver_.OnNextModal([&](QWidget* box) {
        Look(*box, "53-grid-close");
        QTest::mouseClick(static_cast<QMessageBox*>(box)->button(QMessageBox::No), Qt::LeftButton);
      });
      static_cast<QDialog*>(dialog)->reject();
    });
    driver_.Command("mnuNGrid");
  }
  void TypeIntoGrid() {
    auto* grid = driver_.Find<QAbstractItemView>("grdGRD");
    grid->setFocus();
    for (const auto& [row, text] : {std::pair(0, "99999999"), {1, "12,5"}, {2, "abc"}}) {
      if (row >= grid->model()->rowCount()) break;
      grid->setCurrentIndex(grid->model()->index(row, 2));
      for (const char key : std::string(text)) QTest::keyClick(QApplication::focusWidget(), key);
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    grid->setCurrentIndex(grid->model()->index(grid->model()->rowCount() - 1, 2));
    QTest::keyClick(grid, Qt::Key_Delete);
    driver_.Click("cmdGRD_Copy");
    grid->setCurrentIndex(grid->model()->index(0, 2));
  }

  void Review() {
    In(Mode::kActv);
    driver_.Select(NodeOf("FLA", 32));
    Comment();
    Dialog("60-hand-in", "mnuRHandIn");
    Dialog("61-history", "mnuRHistory", [&] {
      auto* steps = driver_.Find<QAbstractItemView>("lvwHIS_Steps");
      steps->setFocus();
      QTest::keyClick(steps, Qt::Key_Down);
    });
    Dialog("62-go-to", "mnuRFind");
    Dialog("63-go-to-typed", "mnuRFind", [&] { driver_.Type("txtGOT_Text", "hours"); });
    Dialog("64-go-to-none", "mnuRFind", [&] { driver_.Type("txtGOT_Text", "qqqqqq"); });
    Dialog("65-shortcuts", "shortcutSheet");
    Dialog("66-about", "mnuHAbout");
    Dialog("67-help", "mnuHCurrentScreen");
  }
  void Comment() {
    driver_.Command("mnuRFindings");
    auto* list = driver_.Find<QAbstractItemView>("lvwFND_List");
    list->setFocus();
    for (int row = 0; row < 2; ++row) {
      QTest::keyClick(list, Qt::Key_Down, row == 0 ? Qt::NoModifier : Qt::ShiftModifier);
      driver_.OnNextModal([&](QWidget* dialog) {
        driver_.Type("txtComments", kLongText);
        Look(*dialog, row == 0 ? "68-comment" : "69-comment-several");
        driver_.Click("cmdOK");
      });
      driver_.Click("cmdFND_Comment");
    }
    Look(Main(), "70-findings-explained");
    driver_.Command("mnuRFindings");
  }

  void Files() {
    In(Mode::kActv);
    driver_.Select(NodeOf("FLA", 32));
    Dialog("71-backups", "mnuFBackups", [&] { driver_.Click("cmdBAK_Make"); });
    Dialog("72-export-survey", "mnuFExport", [&] {
      driver_.Find<QTreeWidget>("lvwSurveys")->topLevelItem(2)->setSelected(true);
      driver_.Type("txtExportFilename", "/home/somebody/handed-in/2017/the-month-of-march-2017.mdb");
    });
    Dialog("73-export-inventory", "mnuFExportInventory");
    Dialog("74-export-structures", "mnuEStructS",
           [&] { driver_.Find<QTreeWidget>("lvwStructures")->topLevelItem(1)->setSelected(true); });
    Dialog("75-import-empty", "mnuEStructB");
    const std::string other = folder_.path("other.mdb");
    fs::copy_file(folder_.path("inventory.mdb"), other);
    Raw(other, {"UPDATE PD_PLATFORM_DESC SET CMPLX_ID_NUM='77777' WHERE PD_ID_AK=2", "UPDATE EA_FLA SET OP_HR=12",
                "UPDATE ED_FLA SET STK_OUT_ELEV=7"});
    Dialog("76-import", "mnuEStructB", [&] {
      driver_.Type("txtImportFilename", QString::fromStdString(other));
      driver_.Click("cmdLoad");
      auto* list = driver_.Find<QTreeWidget>("lvwStructures");
      for (int row = 0; row < list->topLevelItemCount(); ++row) list->topLevelItem(row)->setSelected(true);
      Dialog(
          "77-import-plan", [&] { driver_.Click("cmdPlan"); },
          [&] {
            auto* plan = driver_.Find<QAbstractItemView>("lvwPLN_Structures");
            plan->setFocus();
            QTest::keyClick(plan, Qt::Key_Down);
          });
      // as long on every machine
      driver_.Type("txtImportFilename", "/media/gi-43-a.mdb");
    });
    const std::string book = folder_.path("month.xlsx");
    In(Mode::kActv);
    NameFile(book);
    driver_.OnNextBox();  // done
    driver_.Command("mnuFWorkbookMake");
    Raw(folder_.path("inventory.mdb"), {"UPDATE EA_FLA SET OP_HR=77 WHERE EA_ID_AK%2=0"});
    driver_.OnNextModal([&, book](QWidget* widget) {
      auto* line = widget->findChild<QLineEdit*>("fileNameEdit");
      line->setText(QString::fromStdString(book));
      driver_.OnNextModal([&](QWidget* dialog) {
        Look(*dialog, "78-read-plan");
        static_cast<QDialog*>(dialog)->reject();
      });
      QTest::keyClick(line, Qt::Key_Return);
    });
    driver_.Command("mnuFWorkbookRead");
  }

  void Descriptions() {
    In(Mode::kDesc);
    driver_.Select(Keys(6).front());
    Dialog("79-new-structure", [&] { driver_.Click("cmdUSER_AddStructure"); });
    driver_.Select(Keys(15)[1]);
    Dialog("80-new-equipment", [&] { driver_.Click("cmdSTRUCTURE_AddEquip"); });
  }

  void Boxes() {
    In(Mode::kActv);
    driver_.Select(NodeOf("FLA", 32));
    driver_.Click("cmdEdit");
    driver_.Type("txtFLA_HrsOperated", "745");
    Dialog("90-box-run", [&] { driver_.Click("cmdQC"); });
    Dialog("91-box-drop", [&] { driver_.Click("cmdCANCEL"); });
    driver_.OnNextBox(QMessageBox::Yes);
    driver_.Click("cmdCANCEL");
    In(Mode::kDesc);
    driver_.Select(Keys(15)[1]);
    Dialog("92-box-delete", "mnuEDelete");
    driver_.app->PaintWait({true, "Preparing QA Summary", "March 2017, structure 1001 1 of 40", 12, 40});
    Look(*driver_.Top("frmWait"), "93-wait");
    driver_.app->PaintWait({});
    for (const char* name : {"mnuFile", "mnuEdit", "mnuQC", "mnuReview", "mnuEntry", "sheetMenu", "mnuHelp"})
      if (auto* menu = Main().findChild<QMenu*>(name)) {
        menu->adjustSize();
        Look(*menu, std::string("94-") + name);
      }
  }

  // The edit is still open in one program when another one starts on copies of its files.
  void Draft() {
    In(Mode::kActv);
    driver_.Select(NodeOf("FLA", 32));
    driver_.Click("cmdEdit");
    driver_.Type("txtFLA_HrsOperated", "612");
    driver_.Type("txtFLA_VolFlared", "44");
    driver_.Widget("txtFLA_HrsOperated")->setFocus();
    KeepDraftOfEdit(S(), When::kAtOnce);
    driver_.LeaveDialogsToTheTest();  // it is the other's
    TemporaryFolder copy;
    for (const char* name : {"inventory.mdb", "inventory.mdb.history"})
      fs::copy_file(folder_.path(name), copy.path(name));
    Driver later(copy.path("inventory.mdb"));
    later.OnNextModal([&](QWidget* dialog) {
      Look(*dialog, "95-draft");
      static_cast<QDialog*>(dialog)->reject();
    });
    later.Start();
    EXPECT_TRUE(later.AllModalsCame());
  }

  QStringList parts_;
  QSize size_;
  const LookAt& look_;
  TemporaryFolder folder_;
  Driver driver_;
};

void FirstRun(const LookAt& look) {
  Driver driver;
  driver.OnNextModal([&](QWidget* dialog) {
    look(*dialog, "01-first-run");
    driver.OnNextBox();
    dialog->close();
  });
  driver.Start();
}

}  // namespace

void MakeTourInventory(const std::string& path) {
  InventoryPlan plan;
  plan.structures = 4;
  plan.equipment = 64;
  plan.months = 5;
  plan.fault_share = 0.3;
  MakeInventory(TemplatePath(), path, plan);
  Raw(path, {"UPDATE CO_COMPANY SET CO_NAME='The Very Long Named Deep Water Exploration and Production Company'",
             "UPDATE PD_PLATFORM_DESC SET Name='Long Name of A Platform' WHERE PD_ID_AK=2"});
}

void TourScreens(const QStringList& parts, const QSize& window, const LookAt& look) {
  if (parts.isEmpty() || parts.contains("first")) FirstRun(look);
  Tour tour(parts, window, look);
  tour.Go();
}

}  // namespace merlu::test
