// Long texts in lines and notes: a view shows the beginning, an edit has all of it.
#include "desktop/long_line.h"
#include "driver.h"
#include "long_inventory.h"

namespace merlu::test {
namespace {

const QString kLong = QString(100000, 'x') + "end";

class LongLine : public testing::Test {
 protected:
  LongLine() {
    other.setParent(&window);
    line.setParent(&window);
    window.show();
    window.activateWindow();
    other.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QObject::connect(&line, &QLineEdit::textEdited, [this](const QString& text) { edited = text; });
  }
  bool ShowsBeginning() const { return line.text().size() < 3000 && line.text().endsWith(QStringLiteral("…")); }

  QWidget window;
  QLineEdit other, line;
  QString edited;
};

TEST_F(LongLine, shows_its_beginning_and_knows_all_of_it) {
  ShowLine(line, "short");
  EXPECT_EQ(line.text(), "short");
  ShowLine(line, kLong);
  EXPECT_TRUE(ShowsBeginning());
  EXPECT_EQ(WholeText(line), kLong);
  ShowLine(line, "short again");
  EXPECT_EQ(line.text(), "short again");
  EXPECT_EQ(WholeText(line), "short again");
}

TEST_F(LongLine, has_its_whole_text_while_it_is_edited) {
  ShowLine(line, kLong);
  line.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(line.text(), kLong);
  QTest::keyClick(&line, Qt::Key_End);
  QTest::keyClicks(&line, "z");
  EXPECT_EQ(edited, kLong + "z");
  ShowLine(line, kLong + "z");
  EXPECT_EQ(line.text(), kLong + "z");
  other.setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(ShowsBeginning());
  EXPECT_EQ(WholeText(line), kLong + "z");
}

TEST_F(LongLine, that_cannot_be_changed_shows_its_beginning_also_with_the_focus) {
  line.setReadOnly(true);
  ShowLine(line, kLong);
  line.setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(ShowsBeginning());
  // an edit begins on the field that has the focus
  line.setReadOnly(false);
  QTest::keyClick(&line, Qt::Key_End);
  QTest::keyClicks(&line, "z");
  EXPECT_EQ(edited, kLong + "z");
}

TEST_F(LongLine, keeps_its_whole_text_under_its_menu) {
  ShowLine(line, kLong);
  line.setFocus(Qt::TabFocusReason);
  QFocusEvent out(QEvent::FocusOut, Qt::PopupFocusReason);
  QApplication::sendEvent(&line, &out);
  EXPECT_EQ(line.text(), kLong);
}

TEST(LongTextsInWindows, are_edited_whole) {
  TemporaryFolder folder;
  Driver driver(MakeLongInventory(folder, 60000));
  driver.Start();
  Session& s = driver.app->session();
  driver.Command("mnuSetEditMode");
  driver.Select(KeyWithEnd(s, "10001 1"));
  driver.Click("cmdEdit");
  int typed = 0;
  for (const Control& control : s.main->controls()) {
    auto* line = qobject_cast<LineField*>(driver.Widget(control.name.c_str()));
    auto* notes = qobject_cast<QPlainTextEdit*>(driver.Widget(control.name.c_str()));
    QWidget* field = line != nullptr ? static_cast<QWidget*>(line) : notes;
    if (field == nullptr || !field->isVisible() || control.locked || control.limit > 0) continue;
    if (control.text.size() < 50000) continue;
    const std::string before = control.text;
    field->setFocus(Qt::TabFocusReason);
    QTest::keyClick(field, Qt::Key_End, notes != nullptr ? Qt::ControlModifier : Qt::NoModifier);
    QTest::keyClicks(field, "z");
    // in a line a line break is a blank
    EXPECT_EQ(control.text.size(), before.size() + 1) << control.name;
    EXPECT_TRUE(control.text.ends_with("z")) << control.name;
    ++typed;
  }
  EXPECT_GT(typed, 0);
}

}  // namespace
}  // namespace merlu::test
