// What is told by colours and borders on a desktop of high contrast, where all grounds are alike.
#include <QPushButton>

#include <set>

#include "dark.h"
#include "desktop/fields.h"
#include "desktop/look.h"
#include "driver.h"

namespace merlu::test {
namespace {

QPalette BlackOnWhite() {
  QPalette stark = ContrastPalette();
  for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button})
    stark.setColor(ground, Qt::white);
  for (const QPalette::ColorRole ink : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    stark.setColor(ink, Qt::black);
  return stark;
}

// A border of one piece has one colour along the edge.
bool IsInterrupted(QWidget& widget) {
  QCoreApplication::processEvents();
  const QImage picture = widget.grab().toImage();
  std::set<QString> colours;
  for (int x = picture.width() / 4; x < picture.width() * 3 / 4; ++x) colours.insert(picture.pixelColor(x, 0).name());
  return colours.size() > 1;
}

TEST(StarkColours, tell_what_is_picked_where_the_keyboard_is_not) {
  for (const QPalette& palette : {ContrastPalette(), BlackOnWhite()}) {
    ASSERT_TRUE(IsHighContrast(palette));
    EXPECT_GE(Contrast(RestingGround(palette), palette.color(QPalette::Base)), 3);
    EXPECT_GE(Contrast(RestingGround(palette), palette.color(QPalette::WindowText)), 3);
    EXPECT_GE(Contrast(AccentGround(palette), palette.color(QPalette::Base)), 3);
  }
}

TEST(StarkColours, tell_a_list_that_can_be_chosen_from_by_its_border) {
  ListField list(nullptr);
  list.setPalette(ContrastPalette());
  list.resize(160, 30);
  list.SetState(false, Back::kWindow, false);
  EXPECT_FALSE(IsInterrupted(list));
  list.SetState(true, Back::kFace, false);
  EXPECT_TRUE(IsInterrupted(list));
  list.SetState(false, Back::kWindow, false);
  list.setEnabled(false);
  EXPECT_TRUE(IsInterrupted(list));
}

TEST(StarkColours, tell_a_button_that_can_be_pressed_by_its_border) {
  QPushButton button("Edit QC Comment");
  button.setStyleSheet(StyleSheet(ContrastPalette()));
  button.resize(180, 30);
  EXPECT_FALSE(IsInterrupted(button));
  button.setEnabled(false);
  EXPECT_TRUE(IsInterrupted(button));
}

// The end of a field shows the ellipsis alone, whatever text it cuts.
TEST(LongText, that_does_not_fit_its_field_ends_in_an_ellipsis) {
  LineField line(nullptr);
  line.resize(160, 26);
  const auto end = [&](const QString& text) {
    line.setText(text);
    line.setCursorPosition(0);
    QCoreApplication::processEvents();
    const QImage picture = line.grab().toImage();
    return picture.copy(picture.width() - 12, 4, 9, picture.height() - 8);
  };
  EXPECT_EQ(end(QString(60, 'M')), end(QString(300, 'I')));
  EXPECT_NE(end("short"), end(QString(60, 'M')));
}

}  // namespace
}  // namespace merlu::test
