// What is told by colours and borders on a desktop of high contrast, where all grounds are alike.
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>

#include <algorithm>
#include <set>

#include "dark.h"
#include "desktop/captions.h"
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

// On a dark ground a menu has an outline, and lines between its parts.
TEST(StarkColours, tell_a_menu_from_what_it_covers_and_its_parts_from_each_other) {
  constexpr double kSeen = 1.5;
  for (const QPalette& palette : {ContrastPalette(), DarkPalette()}) {
    QMenu menu;
    menu.setPalette(palette);
    menu.setStyleSheet(StyleSheet(palette));
    menu.addAction("Findings");
    const QAction* line = menu.addSeparator();
    menu.addAction("Completeness");
    menu.adjustSize();
    QCoreApplication::processEvents();
    const QImage picture = menu.grab().toImage();
    const QRect place = menu.actionGeometry(const_cast<QAction*>(line));
    const QColor ground = picture.pixelColor(3, 6);
    double outline = 0, parting = 0;
    for (int x = 0; x < 2; ++x) outline = std::max(outline, Contrast(picture.pixelColor(x, 6), ground));
    for (int y = place.top(); y <= place.bottom(); ++y)
      parting = std::max(parting, Contrast(picture.pixelColor(place.center().x(), y), ground));
    EXPECT_GE(outline, kSeen);
    EXPECT_GE(parting, kSeen);
  }
}

// A mark that cannot be set shows where it is.
TEST(StarkColours, tell_a_mark_that_cannot_be_set_from_the_ground) {
  const QPalette before = QApplication::palette();
  for (const QPalette& palette : {ContrastPalette(), BlackOnWhite()}) {
    QApplication::setPalette(palette);
    QStyleOptionButton option;
    option.palette = palette;
    option.palette.setColor(QPalette::WindowText, Dimmed(palette));
    option.rect = QRect(2, 2, 16, 16);
    QImage picture(20, 20, QImage::Format_RGB32);
    const QColor ground = palette.color(QPalette::Window);
    picture.fill(ground);
    QPainter painter(&picture);
    LookStyle().drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, nullptr);
    painter.end();
    double most = 0;
    for (int x = 2; x < 6; ++x) most = std::max(most, Contrast(picture.pixelColor(x, 10), ground));
    EXPECT_GE(most, 3);
  }
  QApplication::setPalette(before);
}

TEST(Captions, keep_a_choice_in_brackets_on_one_line) {
  const QString caption = "Other Control Device (Y/N):";
  const QString shown = WithWholeUnit(caption, "");
  EXPECT_EQ(WithoutJoints(shown), caption);
  EXPECT_TRUE(shown.contains(QString("/") + QChar(0x2060) + "N"));
  EXPECT_EQ(WithWholeUnit("Volume Loaded (bbl):", ""), "Volume Loaded (bbl):");
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
