// Names for screen readers: every control has a name, and every caption is the label of its field.
#include <QAccessible>
#include <QAction>
#include <QHeaderView>
#include <QTreeWidget>

#include <set>

#include "desktop/captions.h"
#include "desktop/shortcuts.h"
#include "driver.h"
#include "examples.h"
#include "sheets/units.h"

namespace merlu::test {
namespace {

QString SpokenName(QWidget& widget) {
  // of a list the toolkit speaks what is chosen, and finds the name by the label that leads to it
  if (qobject_cast<QComboBox*>(&widget)) return widget.accessibleName();
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  return spoken == nullptr ? QString() : spoken->text(QAccessible::Name);
}

bool TakesInput(const QWidget& widget) {
  if (widget.objectName().startsWith("qt_") || qobject_cast<const QHeaderView*>(&widget)) return false;
  return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
         qobject_cast<const QPlainTextEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QTabWidget*>(&widget);
}

// Whether it is a part of a control, such as the list that a choice drops.
bool IsPart(const QWidget& widget) {
  for (const QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
    if (qobject_cast<const QTabBar*>(at)) return true;
    if (qobject_cast<const QComboBox*>(at)) return !qobject_cast<const QLineEdit*>(&widget);
  }
  return false;
}

void ExpectNames(QWidget& top) {
  int seen = 0;
  for (auto* widget : top.findChildren<QWidget*>()) {
    if (!TakesInput(*widget) || IsPart(*widget)) continue;
    EXPECT_FALSE(SpokenName(*widget).trimmed().isEmpty())
        << top.objectName().toStdString() << ": " << widget->objectName().toStdString() << " ("
        << widget->metaObject()->className() << ")";
    EXPECT_FALSE(SpokenName(*widget).contains('&') && !SpokenName(*widget).contains(" & "))
        << widget->objectName().toStdString();
    ++seen;
  }
  EXPECT_GT(seen, 0) << top.objectName().toStdString();
}

// The fields of the form in the window: each has its caption as its name and one label that leads to it.
void ExpectCaptions(QWidget& top, const Form& form, const std::string& frame) {
  const auto labels = top.findChildren<QLabel*>();
  const auto in_frame = [&](const Control& control) {
    for (const Control* at = &control; !at->parent.empty(); at = &form.At(at->parent))
      if (at->parent == frame) return true;
    return frame.empty();
  };
  int seen = 0;
  for (const Control& control : form.controls()) {
    const bool is_field = control.kind == Kind::kText || control.kind == Kind::kMasked || control.kind == Kind::kList;
    if (!is_field || !in_frame(control)) continue;
    auto* field = top.findChild<QWidget*>(QString::fromStdString(control.name));
    ASSERT_NE(field, nullptr) << control.name;
    EXPECT_FALSE(LabelText(control).isEmpty()) << control.name;
    EXPECT_EQ(SpokenName(*field).toStdString(), SpokenCaption(control).toStdString());
    int captions = 0, beside = 0;
    for (const auto* label : labels) {
      if (label->buddy() != field) continue;
      ++(label->parentWidget() == field->parentWidget() ? beside : captions);
      // the caption that shows may hold its unit together; what a choice is named by is plain words
      const bool shows = label->parentWidget() != field->parentWidget();
      EXPECT_EQ(label->text().toStdString(), (shows ? LabelText(control) : SpokenCaption(control)).toStdString());
    }
    EXPECT_EQ(captions, 1) << control.name;
    // a list's own name is its choice: assistive programs name it by a label beside it
    EXPECT_EQ(beside, control.kind == Kind::kList ? 1 : 0) << control.name;
    ++seen;
  }
  EXPECT_GT(seen, 0) << form.name() << " " << frame;
}

// An inventory with equipment of every type.
class Names : public testing::Test {
 protected:
  Names() {
    CopyTemplate(folder_);
    Prepare(folder_, ReadExample("year-of-all-types.merlu"));
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
    driver_->Start();
  }
  // Selects every node whose key has that length, and returns the types of those that are equipment.
  std::set<std::string> WalkSheets(std::size_t length, std::size_t type_at) {
    std::set<std::string> types;
    Session& s = driver_->app->session();
    for (const TreeNode& node : std::vector<TreeNode>(s.tree.nodes)) {
      if (node.key.size() != length || !types.insert(node.key.substr(type_at, 3)).second) continue;
      driver_->Select(node.key);
      for (auto* view : driver_->app->window()->findChildren<SheetView*>()) {
        if (!view->isVisible()) continue;
        EXPECT_NE(&view->form(), s.main) << node.key;
        ExpectNames(*view);
        ExpectCaptions(*view, view->form(), view->frame());
      }
    }
    return types;
  }
  void ExpectFrame(const char* key) {
    driver_->Select(key);
    ExpectNames(*driver_->app->window());
    for (auto* view : driver_->app->window()->findChildren<SheetView*>())
      if (view->isVisible() && view->frame() != "fraSurvey") ExpectCaptions(*view, view->form(), view->frame());
  }
  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver_;
};

TEST_F(Names, are_told_by_all_sixteen_sheets_in_both_modes) {
  const auto monthly =
      std::count_if(AllSheets().begin(), AllSheets().end(), [](const SheetSpec* sheet) { return sheet->has_activity; });
  EXPECT_EQ(WalkSheets(32, 21).size(), static_cast<std::size_t>(monthly));
  driver_->Select("K12345");
  driver_->Command("mnuSetEditMode");
  EXPECT_EQ(WalkSheets(26, 15).size(), AllSheets().size());
}

TEST_F(Names, are_told_by_the_sheets_of_operator_survey_and_structure_in_both_modes) {
  for (const char* key : {"K12345", "K12345 12017", "K12345 12017   1001 1"}) ExpectFrame(key);
  driver_->Select("K12345");
  driver_->Command("mnuSetEditMode");
  for (const char* key : {"K12345", "K12345   1001 1"}) ExpectFrame(key);
}

TEST_F(Names, are_told_by_the_dialogs) {
  std::set<std::string> seen;
  const auto look = [&](QWidget* dialog) {
    seen.insert(dialog->objectName().toStdString());
    ExpectNames(*dialog);
    const Form* form = driver_->app->session().desk.Find(dialog->objectName().toStdString());
    if (form != nullptr && form->name() != "frmAbout") ExpectCaptions(*dialog, *form, "");
    dialog->close();
  };
  driver_->OnNextModal(look);
  driver_->Command("mnuHAbout");
  driver_->OnNextModal(look);
  driver_->Command(shortcut::kSheet);
  driver_->Command("mnuSetEditMode");
  driver_->OnNextModal(look);
  driver_->Click("cmdUSER_AddStructure");
  driver_->Select("K12345   1001 1");
  driver_->OnNextModal(look);
  driver_->Click("cmdSTRUCTURE_AddEquip");
  EXPECT_EQ(seen.size(), 4u);
}

TEST(NamesOfTheFirstRun, are_told) {
  Driver driver;
  bool came = false;
  driver.OnNextModal([&](QWidget* dialog) {
    came = true;
    ExpectNames(*dialog);
    ExpectCaptions(*dialog, *driver.app->session().desk.Find("frmNewUser"), "");
    driver.OnNextBox();
    dialog->close();
  });
  driver.Start();
  EXPECT_TRUE(came);
}

TEST(NamesOfAFinding, are_told_by_the_comment_dialog_and_the_flagged_field) {
  TemporaryFolder folder;
  CopyTemplate(folder);
  Prepare(folder, ReadExample("first-month.merlu"));
  Driver driver(folder.path("inventory.mdb"));
  driver.Start();
  driver.Select("K12345 22017   1001 1FLA      F1");
  driver.Click("cmdEdit");
  driver.Type("txtFLA_HrsOperated", "745");
  driver.OnNextBox();
  driver.Click("cmdQC");
  EXPECT_EQ(driver.Widget("txtFLA_HrsOperated")->accessibleDescription(),
            "hrs\nValue not in expected range (0 to 744)");
  driver.Find<QTabWidget>("tabFLA")->setCurrentIndex(2);
  driver.Find<QTreeWidget>("lvwFLA_QCResults")->topLevelItem(0)->setSelected(true);
  bool came = false;
  driver.OnNextModal([&](QWidget* dialog) {
    came = dialog->objectName() == "frmQCComment";
    ExpectNames(*dialog);
    ExpectCaptions(*dialog, *driver.app->session().desk.Find("frmQCComment"), "");
    dialog->close();
  });
  driver.Click("cmdFLA_EditQCComment");
  EXPECT_TRUE(came);
}

}  // namespace
}  // namespace merlu::test
