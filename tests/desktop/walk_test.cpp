// A walk through everything that the windows show: each command, dialog, sheet, page and mode is looked at as a whole.
#include <QAction>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPrintDialog>
#include <QTreeWidget>

#include <map>
#include <set>

#include "desktop/access_keys.h"
#include "desktop/shortcuts.h"
#include "driver.h"
#include "examples.h"
#include "sheets/units.h"
#include "walk.h"

namespace merlu::test {
namespace {

// Stands in for what the system has for documents.
class Documents : public QObject {
  Q_OBJECT
 public:
  Documents() { QDesktopServices::setUrlHandler("file", this, "Open"); }
  ~Documents() override { QDesktopServices::unsetUrlHandler("file"); }
  QStringList opened;
 public slots:
  void Open(const QUrl& url) { opened << url.fileName(); }
};

// Looks at every dialog and box that opens, and closes it by its own way out.
class Visitor {
 public:
  Visitor(Driver& driver, Album& album) : driver_(driver), album_(album) {
    driver_.LeaveDialogsToTheTest();
    Watch();
  }
  void Expecting(const std::string& what) { what_ = what; }
  std::set<std::string> seen;
  int boxes = 0, files = 0;

 private:
  void Watch() {
    QTimer::singleShot(1, &guard_, [this] {
      Watch();
      QWidget* modal = QApplication::activeModalWidget();
      if (modal == nullptr || visited_.contains(modal)) return;
      visited_ << modal;
      QObject::connect(modal, &QObject::destroyed, &guard_, [this, modal] { visited_.removeAll(modal); });
      Visit(*modal);
    });
  }

  void Visit(QWidget& modal) {
    driver_.Settle();
    const std::string name = modal.objectName().toStdString();
    album_.Keep(modal, what_ + (name.empty() || name.starts_with("qt_") ? "" : "-" + name));
    if (qobject_cast<QFileDialog*>(&modal) || qobject_cast<QPrintDialog*>(&modal)) {
      ++files;  // the toolkit's own
    } else if (qobject_cast<QMessageBox*>(&modal)) {
      ++boxes;
      ExpectNothingCut(modal);
    } else {
      seen.insert(name);
      ExpectNothingCut(modal);
      ExpectTabReachesAll(modal);
      const Form* form = driver_.app->session().desk.Find(name);
      if (form != nullptr) {
        EXPECT_EQ(modal.windowTitle().toStdString(), form->caption);
        ExpectAsTheFormSays(modal, *form);
      }
      if (auto* browse = modal.findChild<QPushButton*>("cmdBrowse")) browse->click();
    }
    static_cast<QDialog&>(modal).reject();
    visited_.removeAll(&modal);  // a dialog that stays alive can open again
    if (modal.isVisible()) visited_ << &modal;
  }

  Driver& driver_;
  Album& album_;
  std::string what_;
  QList<QWidget*> visited_;
  QObject guard_;
};

class Walk : public testing::Test {
 protected:
  Walk() {
    CopyTemplate(folder_);
    Prepare(folder_, ReadExample("year-of-all-types.merlu"));
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
    driver_->Start();
    Main().resize(1180, 760);  // the offscreen screen is smaller
    driver_->Settle();
  }
  MainWindow& Main() { return *driver_->app->window(); }
  Session& S() { return driver_->app->session(); }
  SheetView* Sheet() {
    for (auto* view : Main().findChildren<SheetView*>())
      if (view->isVisible()) return view;
    return nullptr;
  }
  QTabWidget* Tabs() {
    for (auto* tabs : Main().findChildren<QTabWidget*>())
      if (tabs->isVisible()) return tabs;
    return nullptr;
  }
  void LookAtWindow(Album& album, const std::string& name) {
    album.Keep(Main(), name);
    EXPECT_EQ(Main().windowTitle().toStdString(), S().main->caption);
    ExpectNothingCut(Main());
    SheetView* sheet = Sheet();
    ASSERT_NE(sheet, nullptr) << name;
    ExpectAsTheFormSays(*sheet, sheet->form(), sheet->frame());
  }
  // Each page of the sheet in view.
  void LookAtPages(Album& album, const std::string& name) {
    QTabWidget* tabs = Tabs();
    ASSERT_NE(tabs, nullptr) << name;
    const int first = tabs->currentIndex();
    for (int page = 0; page < tabs->count(); ++page) {
      if (!tabs->isTabEnabled(page)) continue;
      tabs->setCurrentIndex(page);
      driver_->Settle();
      LookAtWindow(album, name + "-page" + std::to_string(page + 1));
    }
    tabs->setCurrentIndex(first);
  }
  // The sheet of a node while it is read and while it is edited, each page of it.
  void LookAtNode(Album& album, const std::string& key, const std::string& name) {
    driver_->Select(key);
    LookAtPages(album, name + "-view");
    if (!driver_->Widget("cmdEdit")->isVisible()) return;
    driver_->Click("cmdEdit");
    ExpectFocusInFirstOpenField(name);
    LookAtPages(album, name + "-edit");
    for (int page = 0; page < Tabs()->count(); ++page) {
      if (!Tabs()->isTabEnabled(page)) continue;
      Tabs()->setCurrentIndex(page);
      ExpectTabReachesAll(Main());
    }
    Tabs()->setCurrentIndex(0);
    driver_->Click("cmdCANCEL");
  }
  void ExpectFocusInFirstOpenField(const std::string& name) {
    const SheetView* sheet = Sheet();
    const Form& form = const_cast<SheetView*>(sheet)->form();
    for (const Control& control : form.controls()) {
      const auto* field = sheet->findChild<QWidget*>(QString::fromStdString(control.name));
      const bool is_field = control.kind == Kind::kText || control.kind == Kind::kMasked || control.kind == Kind::kList;
      if (!is_field || field == nullptr || !field->isVisible() || !field->isEnabled() || control.locked) continue;
      const QWidget* focus = QApplication::focusWidget();
      EXPECT_TRUE(field == focus || field->isAncestorOf(focus)) << name << ": not " << control.name;
      return;
    }
  }
  // One node of each type below the first structure, by the length of its key and the place of the type in it.
  std::map<std::string, std::string> NodeOfEachType(std::size_t length, std::size_t type_at) {
    std::map<std::string, std::string> nodes;
    for (const TreeNode& node : S().tree.nodes)
      if (node.key.size() == length) nodes.emplace(node.key.substr(type_at, 3), node.key);
    return nodes;
  }
  std::vector<QMenu*> Menus() {
    std::vector<QMenu*> menus;
    for (auto* menu : Main().menuBar()->findChildren<QMenu*>())
      if (menu->objectName().startsWith("mnu")) menus.push_back(menu);  // the bar has one of its own
    return menus;
  }
  std::vector<QAction*> Commands() {
    std::vector<QAction*> commands;
    for (QMenu* menu : Menus())
      for (QAction* action : menu->actions())
        if (!action->isSeparator() && action->menu() == nullptr) commands.push_back(action);
    return commands;
  }
  // Gives each command that can be given here and was not yet; those that leave the place come last.
  void GiveCommands(Visitor& visitor, Album& album, std::set<std::string>& given, const std::string& where) {
    const std::string mode = "mnuSetEditMode", exit = "mnuFExit";
    for (QAction* command : Commands()) {
      const std::string name = command->objectName().toStdString();
      if (const Control* said = S().main->Find(name)) {
        EXPECT_EQ(command->isEnabled(), said->enabled && said->visible) << name;
        EXPECT_EQ(command->isVisible(), said->visible) << name;
        EXPECT_EQ(QString(command->text()).remove('&').toStdString(),
                  QString::fromStdString(said->caption).remove('&').toStdString());
      }
      if (name == mode || name == exit || !command->isEnabled() || !command->isVisible()) continue;
      if (!given.insert(name).second) continue;
      const std::string key = S().tree.nodes[static_cast<std::size_t>(S().tree.selected)].key;
      const Mode before = S().mode;
      visitor.Expecting(where + "-" + name);
      command->trigger();
      driver_->Settle();
      album.Keep(Main(), where + "-" + name + "-after");
      if (S().mode != before) driver_->Command(mode.c_str());
      if (S().tree.Find(key) >= 0) driver_->Select(key);
    }
  }

  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver_;
};

TEST_F(Walk, through_every_command_of_the_menus_and_the_dialogs_behind_them) {
  Album album("menus");
  Documents documents;
  Visitor visitor(*driver_, album);
  std::set<std::string> given;
  const auto open_menus = [&](const std::string& where) {
    for (QMenu* menu : Menus()) {
      if (menu->isEmpty()) continue;
      menu->popup(Main().mapToGlobal(QPoint(40, 30)));
      driver_->Settle();
      album.Keep(*menu, where + "-" + menu->objectName().toStdString());
      menu->hide();
    }
  };
  open_menus("month");
  for (const char* key : {"K12345", "K12345122017", "K12345122017   1001 1", "K12345122017   1001 1FLA   F-104"}) {
    driver_->Select(key);
    GiveCommands(visitor, album, given, "month");
  }
  driver_->Select("K12345");
  driver_->Command("mnuSetEditMode");
  given.insert("mnuSetEditMode");
  open_menus("description");
  for (const char* key : {"K12345", "K12345   1001 1", "K12345   1001 1FLA   F-104"}) {
    driver_->Select(key);
    GiveCommands(visitor, album, given, "description");
  }
  given.insert("mnuFExit");  // given at the end
  // commands of a month's record that is edited
  given.insert({"mnuNCopy", "mnuNConfirm", "mnuNNext", "mnuNPrevious"});
  // the files opened before have a command each, which shows as soon as there is such a file
  int recent = 0;
  for (QAction* command : Commands()) {
    if (command->objectName().startsWith("mnuFRecent") && !command->isVisible()) continue;
    recent += command->objectName().startsWith("mnuFRecent");
    EXPECT_TRUE(given.contains(command->objectName().toStdString())) << command->objectName().toStdString();
  }
  EXPECT_EQ(recent, 1);  // the one inventory of this walk
  for (const char* dialog : {"frmExportSurvey", "frmExportInventory", "frmExportStructure", "frmImportStructure",
                             "frmHelp", "frmAbout", "dlgShortcuts", "frmNewStructure", "frmNewEquipment"})
    EXPECT_TRUE(visitor.seen.contains(dialog)) << dialog;
  EXPECT_EQ(documents.opened, (QStringList{"User guide.html", "Quality rules.html", "Scripting.html"}));
  EXPECT_GE(visitor.boxes, 2);
  EXPECT_GE(visitor.files, 7);
  driver_->Command("mnuFExit");
  EXPECT_TRUE(S().ended);
}

TEST_F(Walk, finds_a_key_for_every_entry_and_no_key_twice_in_a_menu) {
  QString bar;
  for (const QAction* menu : Main().menuBar()->actions()) bar += AccessKey(menu->text());
  EXPECT_EQ(QSet<QChar>(bar.begin(), bar.end()).size(), Main().menuBar()->actions().size()) << bar.toStdString();
  const auto look = [&] {
    for (const QMenu* menu : Menus()) {
      std::map<QChar, std::string> keys;
      for (const QAction* entry : menu->actions()) {
        if (entry->isSeparator() || !entry->isVisible()) continue;
        const QChar key = AccessKey(entry->text());
        EXPECT_FALSE(key.isNull()) << entry->text().toStdString();
        EXPECT_TRUE(keys.emplace(key, entry->text().toStdString()).second)
            << entry->text().toStdString() << " and " << keys[key];
      }
    }
  };
  look();
  driver_->Select("K12345");
  driver_->Command("mnuSetEditMode");
  look();
}

TEST_F(Walk, through_the_sheets_of_a_month_read_and_edited) {
  Album album("sheets-month");
  LookAtNode(album, "K12345", "operator");
  LookAtNode(album, "K12345 12017", "survey");
  LookAtNode(album, "K12345 12017   1001 1", "structure");
  const auto nodes = NodeOfEachType(32, 21);
  const auto monthly =
      std::count_if(AllSheets().begin(), AllSheets().end(), [](const SheetSpec* sheet) { return sheet->has_activity; });
  EXPECT_EQ(nodes.size(), static_cast<std::size_t>(monthly));
  for (const auto& [type, key] : nodes) LookAtNode(album, key, type);
}

TEST_F(Walk, through_the_sheets_of_descriptions_read_and_edited) {
  Album album("sheets-description");
  driver_->Select("K12345");
  driver_->Command("mnuSetEditMode");
  LookAtNode(album, "K12345", "operator");
  LookAtNode(album, "K12345   1001 1", "structure");
  const auto nodes = NodeOfEachType(26, 15);
  EXPECT_EQ(nodes.size(), AllSheets().size());
  for (const auto& [type, key] : nodes) LookAtNode(album, key, type);
}

TEST_F(Walk, through_sheets_full_of_long_names) {
  Album album("long-names");
  const auto fill = [&](const std::string& key, const std::string& name) {
    driver_->Select(key);
    driver_->Click("cmdEdit");
    for (auto* line : Main().findChildren<QLineEdit*>())
      if (line->isVisible() && line->isEnabled() && !line->isReadOnly())
        driver_->Type(line->objectName().toUtf8(), "A name that is longer than most of them are");
    for (auto* notes : Main().findChildren<QPlainTextEdit*>())
      if (notes->isVisible() && notes->isEnabled() && !notes->isReadOnly())
        driver_->Type(notes->objectName().toUtf8(), QString("Words of a remark that goes on ").repeated(12));
    for (const QSize size : {QSize(1280, 800), QSize(1024, 700)}) {
      Main().resize(size);
      driver_->Settle();
      album.Keep(Main(), name + "-" + std::to_string(size.width()));
      ExpectNothingCut(Main());
    }
    driver_->Click("cmdCANCEL");
  };
  fill("K12345", "operator");
  fill("K12345 12017   1001 1", "structure-month");
  for (const auto& [type, key] : NodeOfEachType(32, 21)) fill(key, type + "-month");
  driver_->Select("K12345");
  driver_->Command("mnuSetEditMode");
  fill("K12345   1001 1", "structure");
  for (const auto& [type, key] : NodeOfEachType(26, 15)) fill(key, type);
}

TEST_F(Walk, through_findings_and_their_comment) {
  Album album("findings");
  Visitor visitor(*driver_, album);
  driver_->Select("K12345 22017   1001 1FLA   F-104");
  driver_->Click("cmdEdit");
  driver_->Type("txtFLA_HrsOperated", "745");
  visitor.Expecting("result");
  driver_->Click("cmdQC");
  LookAtPages(album, "flagged");
  Tabs()->setCurrentIndex(2);
  driver_->Find<QTreeWidget>("lvwFLA_QCResults")->topLevelItem(0)->setSelected(true);
  visitor.Expecting("comment");
  driver_->Click("cmdFLA_EditQCComment");
  EXPECT_TRUE(visitor.seen.contains("frmQCComment"));
  EXPECT_EQ(visitor.boxes, 1);
  driver_->Click("cmdSaveEdits");
  driver_->Click("cmdCANCEL");
  driver_->Select("K12345 22017");
  LookAtPages(album, "survey");
  driver_->Select("K12345 22017   1001 1");
  LookAtPages(album, "structure");
}

TEST(WalkOfTheFirstRun, through_the_question_for_the_operator) {
  Album album("first-run");
  Driver driver;
  Visitor visitor(driver, album);
  visitor.Expecting("start");
  driver.app->Start();
  EXPECT_TRUE(visitor.seen.contains("frmNewUser"));
  EXPECT_EQ(visitor.boxes, 1);
}

}  // namespace
}  // namespace merlu::test

#include "walk_test.moc"
