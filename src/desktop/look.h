// Colours and the one style of the program, made from the desktop's palette so that light and dark themes
// both work.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QProxyStyle>
#include <QString>

namespace merlu {

bool IsDark(const QPalette& palette);
// Whether text and background have the greatest contrast (high-contrast themes): borders are drawn in it too then.
bool IsHighContrast(const QPalette& palette);
QColor Accent(const QPalette& palette);
// The accent as a ground for white text: what is selected, the main act.
QColor AccentGround(const QPalette& palette);
// Title of a sheet while it is edited: dark red, or a red light enough to read on a dark ground.
QColor EditingRed(const QPalette& palette);
QColor Quiet(const QPalette& palette);       // captions of lesser things
QColor Line(const QPalette& palette);        // thin borders and rules
QColor Border(const QPalette& palette);      // of what can be edited
QColor FaceColour(const QPalette& palette);  // background of what is read-only

QColor RestingGround(const QPalette& palette);  // of what is selected where the focus is not
QColor Dimmed(const QPalette& palette);         // texts of what is disabled
QColor CopiedGround(const QPalette& palette);   // of a value taken over and not yet confirmed
QColor CopiedFace(const QPalette& palette);     // the same in view
// The contrast ratio of two colours, 1 to 21.
double Contrast(const QColor& a, const QColor& b);

// Whether the screen is so low that margins cost the fields their room: a laptop's at 200 %.
bool IsLowScreen(const QWidget& widget);

// The program's icon, in the sizes that are part of the program.
QIcon ProgramIcon();

inline const QColor kFlagBack(255, 128, 128);
inline const QColor kFlagText(40, 10, 10);

// The common style, with check and option marks that show on dark grounds too.
class LookStyle : public QProxyStyle {
 public:
  LookStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
};

QString StyleSheet(const QPalette& palette);

}  // namespace merlu
