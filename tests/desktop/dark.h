// The palettes of a dark desktop and of one of high contrast.
#pragma once

#include <QPalette>

namespace merlu::test {

inline QPalette DarkPalette() {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(45, 45, 48));
  dark.setColor(QPalette::WindowText, QColor(228, 228, 228));
  dark.setColor(QPalette::Base, QColor(30, 30, 32));
  dark.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
  dark.setColor(QPalette::Text, QColor(228, 228, 228));
  dark.setColor(QPalette::Button, QColor(52, 52, 56));
  dark.setColor(QPalette::ButtonText, QColor(228, 228, 228));
  dark.setColor(QPalette::Highlight, QColor(60, 110, 170));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  return dark;
}

// White on black, as for people who see little.
inline QPalette ContrastPalette() {
  QPalette stark;
  for (const QPalette::ColorRole ground :
       {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button, QPalette::ToolTipBase})
    stark.setColor(ground, Qt::black);
  for (const QPalette::ColorRole ink : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                        QPalette::ToolTipText, QPalette::PlaceholderText, QPalette::BrightText})
    stark.setColor(ink, Qt::white);
  stark.setColor(QPalette::Highlight, QColor(0, 255, 255));
  stark.setColor(QPalette::HighlightedText, Qt::black);
  return stark;
}

}  // namespace merlu::test
