// The help as a window: where it opens, what its keys do, and that it fetches nothing.
#include <QAction>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>

#include "desktop/help_dialog.h"
#include "desktop/look.h"
#include "driver.h"

namespace merlu::test {
namespace {

// A flare of a structure, in description mode, in view.
class HelpWindow : public testing::Test {
 protected:
  HelpWindow() {
    TestRun run;
    run.StartWith("FLA", "F1");
    run.s.db.Close();
    fs::copy_file(run.folder.path("inventory.mdb"), folder_.path("inventory.mdb"));
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
    driver_->Start();
    driver_->Command("mnuSetEditMode");
    driver_->Select("K12345   1001 1FLA      F1");
  }
  // Runs the step in the help that F1 opens.
  void OnF1(const std::function<void(QWidget*)>& step) {
    bool came = false;
    driver_->OnNextModal([&](QWidget* dialog) {
      came = true;
      QTest::qWait(20);  // the place is taken once the window is laid out
      step(dialog);
      if (dialog->isVisible()) dialog->close();
    });
    driver_->Settle();
    QTest::keyClick(driver_->app->window(), Qt::Key_F1);
    EXPECT_TRUE(came) << "F1 opens the help";
  }
  static QTextBrowser* TextOf(QWidget* dialog) { return dialog->findChild<QTextBrowser*>("rtfHelp"); }
  // The first line in view.
  static QString Top(QTextBrowser* text) { return text->cursorForPosition(QPoint(40, 12)).block().text(); }

  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver_;
};

TEST_F(HelpWindow, opens_at_the_top_without_a_field) {
  driver_->app->window()->tree().setFocus();
  OnF1([&](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "MERLU Help");
    EXPECT_EQ(TextOf(dialog)->verticalScrollBar()->value(), 0);
    EXPECT_EQ(TextOf(dialog)->document()->firstBlock().text(), "Combustion Flare");
    EXPECT_TRUE(TextOf(dialog)->isReadOnly());
  });
}

TEST_F(HelpWindow, of_a_structure_tells_what_saving_it_does_to_its_equipment) {
  driver_->Select("K12345   1001 1");
  driver_->app->window()->tree().setFocus();
  OnF1([&](QWidget* dialog) {
    EXPECT_EQ(TextOf(dialog)->document()->firstBlock().text(), "Structure");
    EXPECT_TRUE(TextOf(dialog)->toPlainText().contains("status of its equipment anew"));
    EXPECT_TRUE(TextOf(dialog)->toPlainText().contains("12000.5")) << "how decimals are typed";
  });
}

TEST_F(HelpWindow, opens_at_the_field_that_has_the_focus_also_while_editing) {
  driver_->Click("cmdEdit");
  driver_->Type("txtFLA_StackInnerDiam", "77");
  OnF1([&](QWidget* dialog) {
    EXPECT_GT(TextOf(dialog)->verticalScrollBar()->value(), 100);
    EXPECT_EQ(Top(TextOf(dialog)), "Stack Inner Diameter (in)");
  });
  EXPECT_TRUE(driver_->app->session().editing);
  EXPECT_EQ(driver_->Text("txtFLA_StackInnerDiam"), "77");
  driver_->Widget("cmbFLA_FlareSmoke")->setFocus();
  OnF1([&](QWidget* dialog) { EXPECT_EQ(Top(TextOf(dialog)), "Smoking Condition"); });
}

TEST_F(HelpWindow, of_a_dock_is_its_own_page_at_the_field_in_hand) {
  driver_->Command("mnuRFindings");
  driver_->Widget("cmbFND_State")->setFocus();
  OnF1([&](QWidget* dialog) {
    EXPECT_EQ(TextOf(dialog)->document()->firstBlock().text(), "Findings");
    const QString all = TextOf(dialog)->toPlainText();
    EXPECT_TRUE(all.contains("All; Open; Explained; Stale.")) << all.toStdString();
  });
  driver_->Widget("txtFLA_StackInnerDiam")->setFocus();
  OnF1([&](QWidget* dialog) { EXPECT_EQ(TextOf(dialog)->document()->firstBlock().text(), "Combustion Flare"); });
}

TEST_F(HelpWindow, closes_with_escape_and_first_its_bar_when_that_shows) {
  bool bar_first = false, window_then = false;
  OnF1([&](QWidget* dialog) {
    QTest::keyClick(dialog, Qt::Key_F, Qt::ControlModifier);
    auto* bar = dialog->findChild<QWidget*>("helpFindBar");
    EXPECT_TRUE(bar->isVisible());
    QTest::keyClick(dialog->findChild<QLineEdit*>("helpFind"), Qt::Key_Escape);
    bar_first = !bar->isVisible() && dialog->isVisible();
    QTest::keyClick(TextOf(dialog), Qt::Key_Escape);
    window_then = !dialog->isVisible() || driver_->app->session().desk.Dialog() == nullptr;
  });
  EXPECT_TRUE(bar_first);
  EXPECT_TRUE(window_then);
}

TEST_F(HelpWindow, finds_text_and_begins_again_at_the_end) {
  OnF1([&](QWidget* dialog) {
    QTest::keyClick(dialog, Qt::Key_F, Qt::ControlModifier);
    auto* sought = dialog->findChild<QLineEdit*>("helpFind");
    QTest::keyClicks(sought, "purge");
    EXPECT_EQ(TextOf(dialog)->textCursor().selectedText().toLower(), "purge");
    const int first = TextOf(dialog)->textCursor().position();
    for (int i = 0; i < 3; ++i) QTest::keyClick(sought, Qt::Key_Return);
    EXPECT_EQ(TextOf(dialog)->textCursor().position(), first) << "the only place, again and again";
    EXPECT_TRUE(dialog->isVisible()) << "Enter seeks and does not close";
    QTest::keyClicks(sought, "zzz");
    EXPECT_EQ(sought->property("look"), "flag");
  });
}

using WalkOfHelp = HelpWindow;  // in a narrow and in a wide font too

TEST_F(WalkOfHelp, has_no_bar_at_its_foot_while_all_of_its_text_is_in_sight) {
  OnF1([&](QWidget* dialog) {
    QTextBrowser* text = TextOf(dialog);
    for (int width = 640; width < 900; width += 13) {
      dialog->resize(width, 500);
      driver_->Settle();
      const qreal beyond = text->document()->size().width() - text->viewport()->width();
      EXPECT_LE(beyond, text->document()->documentMargin()) << "its tables fit";
      EXPECT_FALSE(text->horizontalScrollBar()->isVisible()) << width << ", beyond " << beyond;
    }
    text->document()->setPlainText(QString(400, 'x'));
    text->setLineWrapMode(QTextEdit::NoWrap);
    dialog->resize(700, 500);
    driver_->Settle();
    EXPECT_TRUE(text->horizontalScrollBar()->isVisible()) << "where there is more, it is reached";
  });
}

TEST_F(HelpWindow, keeps_its_size_for_the_next_time) {
  OnF1([&](QWidget* dialog) {
    EXPECT_EQ(dialog->size(), QSize(760, 640));
    dialog->resize(600, 500);
  });
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  OnF1([&](QWidget* dialog) { EXPECT_EQ(dialog->size(), QSize(600, 500)); });
}

TEST_F(HelpWindow, shows_headings_larger_the_higher_they_stand) {
  OnF1([&](QWidget* dialog) {
    std::map<int, qreal> sizes;
    for (QTextBlock block = TextOf(dialog)->document()->begin(); block.isValid(); block = block.next())
      if (const int level = block.blockFormat().headingLevel(); level > 0 && !block.text().isEmpty())
        sizes[level] = block.begin().fragment().charFormat().fontPointSize();
    ASSERT_EQ(sizes.size(), 4u);
    EXPECT_GT(sizes[1], sizes[2]);
    EXPECT_GT(sizes[2], sizes[3]);
    EXPECT_GE(sizes[3], sizes[4]);
  });
}

TEST_F(HelpWindow, follows_a_change_of_the_palette) {
  OnF1([&](QWidget* dialog) {
    QPalette dark = dialog->palette();
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    TextOf(dialog)->setPalette(dark);
    QTextBlock block = TextOf(dialog)->document()->begin();
    while (block.blockFormat().headingLevel() != 2) block = block.next();
    EXPECT_EQ(block.begin().fragment().charFormat().foreground().color(), Accent(dark));
  });
}

TEST_F(HelpWindow, opens_over_a_dialog_at_its_field_and_leaves_it_open) {
  driver_->Select("K12345");
  QString top;
  bool open = false, gone = false;
  driver_->OnNextModal([&](QWidget* dialog) {
    driver_->Type("txtArea", "GI");
    driver_->OnNextModal([&](QWidget* help) {
      QTest::qWait(20);
      top = Top(TextOf(help));
      help->close();
    });
    QTest::keyClick(driver_->Widget("txtArea"), Qt::Key_F1);
    gone = driver_->app->session().desk.Dialog()->name() == "frmNewStructure";
    open = dialog->isVisible() && driver_->Text("txtArea") == "GI";
    dialog->close();
  });
  driver_->Click("cmdUSER_AddStructure");
  EXPECT_EQ(top, "Area");
  EXPECT_TRUE(open);
  EXPECT_TRUE(gone);
}

TEST_F(HelpWindow, fetches_nothing_that_a_text_names) {
  HelpView view(nullptr);
  EXPECT_FALSE(view.loadResource(QTextDocument::ImageResource, QUrl("file:///etc/hostname")).isValid());
  EXPECT_FALSE(view.openLinks());
}

TEST_F(HelpWindow, menu_holds_the_other_screens_in_a_menu_of_their_own) {
  auto* other = driver_->app->window()->findChild<QMenu*>("mnuHOther");
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(other->actions().size(), 20) << "nineteen screens and a line";
  auto* here = driver_->app->window()->findChild<QAction*>("mnuHCurrentScreen");
  EXPECT_EQ(here->shortcut(), QKeySequence(Qt::Key_F1));
  for (const QAction* action : other->actions())
    EXPECT_EQ(action->text().isEmpty(), action->isSeparator()) << "a line is only a line";
  const auto entries = driver_->app->window()->findChild<QMenu*>("mnuHelp")->actions();
  EXPECT_EQ(entries.last()->objectName(), "mnuHAbout");
}

}  // namespace
}  // namespace merlu::test
