// The palette of a dark desktop.
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

}  // namespace merlu::test
