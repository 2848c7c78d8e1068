// What the windows let a user do, and how they show their states.
#include <QAction>
#include <QMenu>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>

#include "desktop/look.h"
#include "desktop/results_list.h"
#include "driver.h"
#include "session/node_keys.h"
#include "shell/sheet_acts.h"

namespace merlu::test {
namespace {

// A flare of a structure, in description mode, in view.
class Window : public testing::Test {
 protected:
  Window() {
    TestRun run;
    run.StartWith("FLA", "F1");
    run.s.db.Close();
    fs::copy_file(run.folder.path("inventory.mdb"), folder_.path("inventory.mdb"));
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
    driver_->Start();
    driver_->Command("mnuSetEditMode");
    driver_->Select("K12345   1001 1FLA      F1");
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : driver_->app->window(), static_cast<Qt::Key>(key), modifiers);
    driver_->Settle();
  }
  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver_;
};

TEST_F(Window, shows_read_only_editable_disabled_and_flagged_fields_differently) {
  auto* h2s = driver_->Find<QLineEdit>("txtFLA_ConcH2S");
  auto* feed = driver_->Find<QLineEdit>("txtFLA_PilotFuelFeedRate");
  EXPECT_TRUE(h2s->isReadOnly());
  EXPECT_TRUE(h2s->isEnabled());
  EXPECT_EQ(h2s->property("look"), "face");
  driver_->Click("cmdEdit");
  EXPECT_FALSE(h2s->isReadOnly());
  EXPECT_EQ(h2s->property("look"), "window");
  EXPECT_FALSE(feed->isEnabled());
  driver_->OnNextBox();
  driver_->Click("cmdQC");
  EXPECT_EQ(h2s->property("look"), "flag");
  EXPECT_EQ(h2s->toolTip(), "Required field left blank");
  EXPECT_EQ(driver_->Text("txtFLA_ConcH2S_Mark"), "!");
  driver_->Type("txtFLA_ConcH2S", "5");
  driver_->OnNextBox();
  driver_->Click("cmdQC");
  EXPECT_EQ(h2s->property("look"), "window");
  EXPECT_EQ(h2s->toolTip(), "");
  EXPECT_EQ(driver_->Text("txtFLA_ConcH2S_Mark"), "");
}

TEST_F(Window, lets_a_read_only_text_be_selected_and_takes_no_key_for_it) {
  driver_->Click("cmdEdit");
  driver_->Type("txtFLA_ConcH2S", "40");
  driver_->Click("cmdSaveEdits");
  driver_->Click("cmdCANCEL");
  auto* h2s = driver_->Find<QLineEdit>("txtFLA_ConcH2S");
  h2s->setFocus();
  QTest::keyClicks(h2s, "9");
  EXPECT_EQ(h2s->text(), "40");
  h2s->selectAll();
  EXPECT_EQ(h2s->selectedText(), "40");
}

TEST_F(Window, keeps_a_locked_list_shut_to_keys_and_wheel) {
  auto* smoke = driver_->Find<ListField>("cmbFLA_FlareSmoke");
  ASSERT_TRUE(smoke->locked());
  smoke->setFocus();
  QTest::keyClick(smoke, Qt::Key_Down);
  QTest::keyClicks(smoke, "H");
  smoke->showPopup();
  EXPECT_EQ(smoke->currentText(), "");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  driver_->Click("cmdEdit");
  smoke->setFocus();
  QTest::keyClicks(smoke, "H");
  EXPECT_EQ(smoke->currentText(), "Heavy");
  EXPECT_EQ(driver_->app->session().desk.Find("frmFLA")->At("cmbFLA_FlareSmoke").text, "Heavy");
}

TEST_F(Window, skips_disabled_fields_by_tab_and_goes_on_by_enter) {
  driver_->Click("cmdEdit");
  auto* pilot = driver_->Find<ListField>("cmbFLA_HasContFlarePilot");
  pilot->setFocus();
  Key(Qt::Key_Tab);
  EXPECT_TRUE(driver_->Widget("txtFLA_StackOutletElev")->hasFocus());
  Key(Qt::Key_Return);
  EXPECT_TRUE(driver_->Widget("txtFLA_StackInnerDiam")->hasFocus());
}

TEST_F(Window, selects_the_text_of_a_field_that_is_entered) {
  driver_->Click("cmdEdit");
  driver_->Type("txtFLA_ConcH2S", "40");
  driver_->Widget("txtFLA_FlareEfficiency")->setFocus();
  auto* h2s = driver_->Find<QLineEdit>("txtFLA_ConcH2S");
  h2s->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(h2s->selectedText(), "40");
}

TEST_F(Window, edits_saves_and_cancels_by_keyboard) {
  Key(Qt::Key_E, Qt::ControlModifier);
  ASSERT_TRUE(driver_->app->session().editing);
  EXPECT_TRUE(driver_->Widget("txtFLA_ConcH2S")->hasFocus());
  QTest::keyClicks(driver_->Widget("txtFLA_ConcH2S"), "7");
  Key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(ToNumber(driver_->Sql("SELECT CONC_H2S FROM ED_FLA")), 7);
  EXPECT_TRUE(driver_->app->session().editing);
  QTest::keyClicks(driver_->Widget("txtFLA_ConcH2S"), "8");
  Key(Qt::Key_Escape);
  EXPECT_EQ(driver_->Text("txtFLA_ConcH2S"), "7") << "the field is taken back first";
  EXPECT_TRUE(driver_->app->session().editing);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(driver_->app->session().editing);
  EXPECT_EQ(driver_->Text("txtFLA_ConcH2S"), "7");
}

TEST_F(Window, refuses_to_close_while_editing_and_keeps_the_text) {
  driver_->Click("cmdEdit");
  driver_->Type("txtFLA_ConcH2S", "7");
  driver_->OnNextBox();
  driver_->app->window()->close();
  driver_->Settle();
  EXPECT_EQ(driver_->texts.back(), "Sorry, you may not end the program while in edit mode.");
  EXPECT_TRUE(driver_->app->window()->isVisible());
  EXPECT_EQ(driver_->Text("txtFLA_ConcH2S"), "7");
  driver_->Click("cmdCANCEL");
  driver_->app->window()->close();
  EXPECT_TRUE(driver_->app->session().ended);
}

TEST_F(Window, disables_tree_and_menus_while_editing) {
  driver_->Click("cmdEdit");
  EXPECT_FALSE(driver_->app->window()->tree().isEnabled());
  EXPECT_FALSE(driver_->app->window()->findChild<QMenu*>("mnuFile")->isEnabled());
  EXPECT_FALSE(driver_->Widget("cmdEdit")->isVisible());
  EXPECT_TRUE(driver_->Widget("cmdSaveExit")->isVisible());
  driver_->Click("cmdCANCEL");
  EXPECT_TRUE(driver_->app->window()->tree().isEnabled());
  EXPECT_TRUE(driver_->Widget("cmdEdit")->isVisible());
  EXPECT_FALSE(driver_->Widget("cmdSaveExit")->isVisible());
}

TEST_F(Window, keeps_the_tree_as_it_was_through_a_save) {
  QTreeView& tree = driver_->app->window()->tree();
  auto& model = static_cast<TreeModel&>(*tree.model());
  const auto index = [&](const char* key) { return model.IndexOf(driver_->app->session().tree.Find(key)); };
  EXPECT_TRUE(tree.isExpanded(index("K12345   1001 1")));
  driver_->Click("cmdEdit");
  driver_->OnNextBox();
  driver_->Click("cmdSaveExit");
  EXPECT_EQ(TreeModel::NodeOf(tree.currentIndex()), driver_->app->session().tree.Find("K12345   1001 1FLA      F1"));
  tree.collapse(index("K12345   1001 1"));
  EXPECT_FALSE(driver_->app->session().tree.nodes[1].expanded);
}

TEST_F(Window, follows_the_keyboard_in_the_tree) {
  QTreeView& tree = driver_->app->window()->tree();
  tree.setFocus();
  QTest::keyClick(&tree, Qt::Key_Up);
  EXPECT_EQ(driver_->app->session().current.Level, "STRUCTURE");
  EXPECT_TRUE(driver_->Widget("txtSTRUCTURE_Area")->isVisible());
  QTest::keyClick(&tree, Qt::Key_Up);
  EXPECT_EQ(driver_->app->session().current.Level, "USER");
}

TEST_F(Window, gives_every_control_that_shows_a_name_and_a_widget) {
  for (const char* key : {"K12345", "K12345   1001 1", "K12345   1001 1FLA      F1"}) {
    driver_->Select(key);
    Session& s = driver_->app->session();
    for (const Form* form : s.desk.showing)
      for (const Control& control : form->controls()) {
        const bool drawn = control.kind != Kind::kFrame && control.kind != Kind::kMenu;
        if (!drawn || !IsVisible(*form, control) || !IsInFront(*form, control)) continue;
        QWidget* widget = driver_->Widget(control.name.c_str());
        ASSERT_NE(widget, nullptr) << control.name;
        const bool speaks_its_text = control.kind == Kind::kTab || control.kind == Kind::kLabel;
        EXPECT_TRUE(speaks_its_text || !widget->accessibleName().isEmpty()) << control.name;
      }
  }
}

TEST_F(Window, masks_a_phone_number_while_it_is_typed) {
  driver_->Select("K12345");
  driver_->Click("cmdEdit");
  auto* phone = driver_->Find<QLineEdit>("txtUSER_Phone");
  phone->setFocus();
  phone->selectAll();
  QTest::keyClicks(phone, "985");
  EXPECT_EQ(phone->text(), "(985) ___ - ____ ext ____");
  QTest::keyClicks(phone, "a5");
  EXPECT_EQ(phone->text(), "(985) 5__ - ____ ext ____");
  QTest::keyClick(phone, Qt::Key_Backspace);
  EXPECT_EQ(phone->text(), "(985) ___ - ____ ext ____");
  QTest::keyClicks(phone, "55512341234");
  EXPECT_EQ(phone->text(), "(985) 555 - 1234 ext 1234");
}

TEST_F(Window, stops_typing_at_the_limit_of_a_field) {
  driver_->Select("K12345   1001 1");
  driver_->OnNextModal([&](QWidget* dialog) {
    driver_->Type("txtEquipID", "123456789");
    EXPECT_EQ(driver_->Text("txtEquipID"), "12345678");
    QTest::keyClick(driver_->Widget("txtEquipID"), Qt::Key_Backspace);
    EXPECT_EQ(driver_->Text("txtEquipID"), "1234567");
    EXPECT_TRUE(driver_->Find<QLineEdit>("txtComplxID")->isReadOnly());
    dialog->close();
  });
  driver_->Click("cmdSTRUCTURE_AddEquip");
  EXPECT_TRUE(driver_->AllModalsCame());
}

TEST_F(Window, opens_while_editing_the_comment_of_a_finding_by_double_click) {
  driver_->OnNextBox();
  driver_->Click("cmdQC");
  driver_->Click("cmdEdit");
  driver_->Find<QTabWidget>("tabFLA")->setCurrentIndex(2);
  auto* list = driver_->Find<QTreeWidget>("lvwFLA_QCResults");
  ASSERT_GT(list->topLevelItemCount(), 0);
  bool came = false;
  driver_->OnNextModal([&](QWidget* dialog) {
    came = dialog->objectName() == "frmQCComment";
    dialog->close();
  });
  list->topLevelItem(0)->setSelected(true);
  emit list->itemDoubleClicked(list->topLevelItem(0), 0);
  driver_->Settle();
  EXPECT_TRUE(came);
}

// Every text field filled with a long name, at the given size: captions are whole, nothing overlaps.
void HoldsLongNames(Driver& driver, const QSize& size) {
  MainWindow* window = driver.app->window();
  window->resize(size);
  driver.Settle();
  for (auto* label : window->findChildren<QLabel*>()) {
    if (!label->isVisible() || label->buddy() == nullptr) continue;
    EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
    const QPoint field = label->buddy()->mapTo(label->parentWidget(), QPoint(0, 0));
    EXPECT_TRUE(label->geometry().right() <= field.x() || label->geometry().bottom() <= field.y())
        << label->text().toStdString();
  }
  QList<QRect> rows;
  for (auto* field : window->findChildren<QWidget*>()) {
    const bool is_field =
        qobject_cast<QLineEdit*>(field) || qobject_cast<QPlainTextEdit*>(field) || qobject_cast<ListField*>(field);
    if (!is_field || !field->isVisible() || qobject_cast<ListField*>(field->parentWidget())) continue;
    const QRect place(field->mapTo(window, QPoint(0, 0)), field->size());
    for (const QRect& other : rows) EXPECT_FALSE(place.intersects(other)) << field->objectName().toStdString();
    rows << place;
  }
  EXPECT_FALSE(rows.isEmpty());
}

TEST_F(Window, holds_long_names_without_cutting_or_overlapping) {
  const QString name(60, 'W');
  for (const char* key : {"K12345", "K12345   1001 1", "K12345   1001 1FLA      F1"}) {
    driver_->Select(key);
    driver_->Click("cmdEdit");
    for (auto* line : driver_->app->window()->findChildren<QLineEdit*>())
      if (line->isVisible() && line->isEnabled() && !line->isReadOnly())
        driver_->Type(line->objectName().toUtf8(), name);
    HoldsLongNames(*driver_, {1280, 800});
    HoldsLongNames(*driver_, {1024, 700});
    driver_->Click("cmdCANCEL");
  }
}

// How much lighter one colour is than the other, by the eye: 1 to 21.
double Contrast(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& colour) {
    const auto share = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * share(colour.redF()) + 0.7152 * share(colour.greenF()) + 0.0722 * share(colour.blueF()) + 0.05;
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

TEST(LongDialog, scrolls_on_a_low_screen_above_its_buttons) {
  Driver driver;
  driver.OnNextModal([&](QWidget* dialog) {
    const int whole = dialog->height();
    EXPECT_GT(whole, 400) << "all of it shows where there is room";
    dialog->resize(dialog->width(), 300);
    driver.Settle();
    EXPECT_LT(dialog->height(), 320);
    const QWidget* button = driver.Widget("cmdOK");
    EXPECT_LE(button->mapTo(dialog, QPoint(0, button->height())).y(), dialog->height());
    auto* last = driver.Find<QLineEdit>("txtUSER_Email");
    EXPECT_TRUE(last->visibleRegion().isEmpty());
    driver.Widget("txtUSER_Fax")->setFocus();
    QTest::keyClick(driver.Widget("txtUSER_Fax"), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), last);
    EXPECT_FALSE(last->visibleRegion().isEmpty()) << "the keys bring it into sight";
    driver.OnNextBox();
    dialog->close();
  });
  driver.Start();
  EXPECT_TRUE(driver.AllModalsCame());
}

TEST(Colours, can_be_read_on_their_grounds_in_light_and_dark) {
  constexpr double kReadable = 4.5;
  for (const int ground : {239, 45}) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(ground, ground, ground));
    palette.setColor(QPalette::WindowText, ground > 128 ? QColor(0, 0, 0) : QColor(228, 228, 228));
    const QColor window = palette.color(QPalette::Window);
    EXPECT_GE(Contrast(AccentGround(palette), Qt::white), kReadable) << ground;
    EXPECT_GE(Contrast(EditingRed(palette), window), kReadable) << ground;
    EXPECT_GE(Contrast(Quiet(palette), window), kReadable) << ground;
    EXPECT_GE(Contrast(FaceColour(palette), palette.color(QPalette::WindowText)), kReadable) << ground;
    EXPECT_GE(Contrast(Accent(palette), window), 3.0) << ground;
  }
  EXPECT_GE(Contrast(kFlagBack, kFlagText), kReadable);
}

TEST(ListWithFreeText, tells_its_state_by_one_ground) {
  ListField list(nullptr);
  list.setEditable(true);
  list.resize(160, 30);
  list.show();
  const auto ground = [&](bool locked, Back back) {
    list.SetState(locked, back, false);
    QCoreApplication::processEvents();
    return list.grab().toImage().pixelColor(100, 8).name();
  };
  EXPECT_EQ(ground(true, Back::kFace), FaceColour(list.palette()).name());
  EXPECT_EQ(ground(false, Back::kWindow), list.palette().color(QPalette::Base).name());
  EXPECT_EQ(ground(false, Back::kFlag), kFlagBack.name());
}

TEST(ListOfFindings, shows_texts_that_wrap_whole) {
  Control control;
  control.columns = {"Field Name", "Error Description", "Operator Comment"};
  control.rows = {{"Hours", "odd", "The meter ran on over the night of the twelfth, see the log of the platform."}};
  ResultsList list(control, "No findings", nullptr);
  list.resize(420, 300);
  list.show();
  list.ShowRows(control);
  QCoreApplication::processEvents();
  const int width = list.columnWidth(2) - 12;
  const QRect text = list.fontMetrics().boundingRect(QRect(0, 0, width, 1000), Qt::TextWordWrap,
                                                     QString::fromStdString(control.rows[0][2]));
  EXPECT_GT(text.height(), 3 * list.fontMetrics().lineSpacing());
  EXPECT_GE(list.visualItemRect(list.topLevelItem(0)).height(), text.height());
}

TEST(LargeTree, of_forty_thousand_nodes_is_walked_without_copies) {
  Tree tree;
  tree.Add("", "R", "root");
  for (int i = 0; i < 100; ++i) {
    const std::string parent = "P" + std::to_string(i);
    tree.Add("R", parent, "structure " + std::to_string(i));
    for (int j = 0; j < 400; ++j) tree.Add(parent, parent + "." + std::to_string(j), "flare " + std::to_string(j));
  }
  TreeModel model(tree, nullptr);
  const QModelIndex root = model.index(0, 0);
  EXPECT_EQ(model.rowCount(root), 100);
  const QModelIndex last = model.index(399, 0, model.index(99, 0, root));
  EXPECT_EQ(model.data(last, Qt::DisplayRole), "flare 399");
  EXPECT_EQ(model.parent(last), model.index(99, 0, root));
  EXPECT_EQ(model.IndexOf(TreeModel::NodeOf(last)), last);
  EXPECT_FALSE(model.index(400, 0, model.index(99, 0, root)).isValid());
}

}  // namespace
}  // namespace merlu::test
