#include "desktop/look.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QPainter>
#include <QScreen>
#include <QStyleOption>
#include <QTabBar>

#include <algorithm>
#include <cmath>

namespace merlu {
namespace {

constexpr int kDockIcon = 16;
constexpr int kIconSizes[] = {16, 24, 32, 48, 64, 128, 256};

QColor Mix(const QColor& a, const QColor& b, qreal share) {
  return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - share) + b.redF() * share),
                          static_cast<float>(a.greenF() * (1 - share) + b.greenF() * share),
                          static_cast<float>(a.blueF() * (1 - share) + b.blueF() * share));
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& colour) {
    const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
  };
  const double first = luminance(a), second = luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

bool IsHighContrast(const QPalette& palette) {
  constexpr double kStark = 20;  // black on white and white on black have 21
  return Contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)) >= kStark;
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

QColor Accent(const QPalette& palette) {
  return IsDark(palette) ? QColor(90, 150, 220) : QColor(45, 108, 180);
}

QColor AccentGround(const QPalette& palette) {
  return IsDark(palette) ? QColor(48, 103, 172) : Accent(palette);
}

QColor EditingRed(const QPalette& palette) {
  return IsDark(palette) ? QColor(255, 118, 118) : QColor(192, 0, 0);
}

QColor Quiet(const QPalette& palette) {
  return Mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window),
             IsHighContrast(palette) ? 0.1 : 0.35);
}

// As faint as a text may be that is to be read on the grounds of windows and fields.
QColor Dimmed(const QPalette& palette) {
  constexpr double kReadable = 4.6;
  const QColor ink = palette.color(QPalette::WindowText), window = palette.color(QPalette::Window);
  QColor dimmed = ink;
  for (int share = 55; share > 0; share -= 2) {
    dimmed = Mix(ink, window, share / 100.0);
    if (Contrast(dimmed, FaceColour(palette)) >= kReadable && Contrast(dimmed, window) >= kReadable) break;
  }
  return dimmed;
}

QColor CopiedGround(const QPalette& palette) {
  return Mix(palette.color(QPalette::Base), Accent(palette), 0.18);
}

QColor CopiedFace(const QPalette& palette) {
  return Mix(FaceColour(palette), Accent(palette), 0.18);
}

QColor RestingGround(const QPalette& palette) {
  return Mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window),
             IsHighContrast(palette) ? 0.55 : 0.78);
}

QColor Line(const QPalette& palette) {
  return Mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window),
             IsHighContrast(palette) ? 0.35 : 0.78);
}

QColor Border(const QPalette& palette) {
  return Mix(palette.color(QPalette::WindowText), palette.color(QPalette::Window), IsHighContrast(palette) ? 0 : 0.55);
}

QColor FaceColour(const QPalette& palette) {
  return Mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.015);
}

bool IsLowScreen(const QWidget& widget) {
  constexpr int kLow = 560;
  return widget.screen()->availableSize().height() < kLow;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : kIconSizes) icon.addFile(QString(":/icons/%1/merlu.png").arg(size), {size, size});
  return icon;
}

LookStyle::LookStyle() : QProxyStyle("Fusion") {}

// Boxes order their buttons as the dialogs do: the accepting one last, none with an icon.
int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
  if (hint == SH_DialogButtonLayout) return QDialogButtonBox::GnomeLayout;
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  if (hint == SH_EtchDisabledText) return 0;  // on a dark ground it would outshine the others
  return QProxyStyle::styleHint(hint, option, widget, data);
}

// A dock's own buttons are as easy to hit as others.
int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  constexpr int kAroundDockIcon = 6;
  if (metric == PM_DockWidgetTitleBarButtonMargin) return kAroundDockIcon;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

QIcon LookStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
  if (qobject_cast<const QDockWidget*>(widget) == nullptr ||
      (which != SP_TitleBarCloseButton && which != SP_TitleBarNormalButton))
    return QProxyStyle::standardIcon(which, option, widget);
  QIcon icon;
  for (const int scale : {1, 2}) {
    QPixmap picture(kDockIcon * scale, kDockIcon * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QApplication::palette().color(QPalette::WindowText), 1.6, Qt::SolidLine, Qt::RoundCap));
    constexpr int kFrom = 3, kTo = kDockIcon - 3;
    if (which == SP_TitleBarCloseButton) {
      painter.drawLine(kFrom, kFrom, kTo, kTo);
      painter.drawLine(kFrom, kTo, kTo, kFrom);
    } else {
      painter.drawRect(kFrom, kFrom + 3, kTo - kFrom - 3, kTo - kFrom - 3);
      painter.drawPolyline(QPolygon({{kFrom + 4, kFrom}, {kTo, kFrom}, {kTo, kTo - 4}}));
    }
    icon.addPixmap(picture);
  }
  return icon;
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (element == PE_FrameFocusRect && qobject_cast<const QTabBar*>(widget) != nullptr) {
    // a focus frame would cross the text, which is close to the edges of its tab
    const QRect line(option->rect.left(), option->rect.bottom() + 1, option->rect.width(), 2);
    return painter->fillRect(line, Accent(option->palette));
  }
  // rows come without their list
  if (element == PE_FrameFocusRect &&
      (widget == nullptr || qobject_cast<const QAbstractItemView*>(widget) != nullptr)) {
    // a frame of one colour around the row; on a picked row's background it is drawn in the base colour
    painter->setPen(option->state & State_Selected ? option->palette.color(QPalette::Base) : Accent(option->palette));
    painter->setBrush(Qt::NoBrush);
    return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  }
  if (element == PE_PanelMenu) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    painter->setPen(Line(option->palette));
    painter->setBrush(Qt::NoBrush);
    return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  }
  const bool box = element == PE_IndicatorCheckBox, round = element == PE_IndicatorRadioButton;
  if (!box && !round) return QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool on = option->state & State_On, enabled = option->state & State_Enabled;
  const QColor accent = enabled ? Accent(option->palette) : Quiet(option->palette);
  // the ink of what is disabled is dimmed already: a line of it would not be seen
  const QColor border = option->state & State_HasFocus ? accent
                        : enabled                      ? Border(option->palette)
                                                       : Line(QApplication::palette());
  const QRectF place = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(on ? accent : border, option->state & State_HasFocus ? 2 : 1));
  painter->setBrush(on ? accent : enabled ? option->palette.color(QPalette::Base) : FaceColour(option->palette));
  if (box)
    painter->drawRoundedRect(place, 3, 3);
  else
    painter->drawEllipse(place);
  const QPointF middle = place.center();
  if (on && box) {
    const qreal unit = place.width() / 12;
    painter->setPen(QPen(Qt::white, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF(
        {middle + QPointF(-3, 0) * unit, middle + QPointF(-1, 2.5) * unit, middle + QPointF(3.5, -2.5) * unit}));
  } else if (on) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(Qt::white);
    painter->drawEllipse(middle, place.width() / 5, place.height() / 5);
  }
  painter->restore();
}

QString StyleSheet(const QPalette& palette) {
  const QString form = QStringLiteral(R"(
    QLineEdit, QPlainTextEdit { border: 1px solid %1; border-radius: 3px; padding: 3px 6px; background: %2; color: %3;
                                selection-background-color: %9; selection-color: white; }
    QLineEdit:focus, QPlainTextEdit:focus { border: 2px solid %4; padding: 2px 5px; }
    QLineEdit[look="face"], QPlainTextEdit[look="face"] { background: %5; border-color: %6; }
    QLineEdit[look="flag"], QPlainTextEdit[look="flag"] { background: rgb(255,128,128); color: rgb(40,10,10); border-color: rgb(170,50,50); }
    QLineEdit[look="window"][copied="true"], QPlainTextEdit[look="window"][copied="true"] { background: %10; }
    QLineEdit[look="face"][copied="true"], QPlainTextEdit[look="face"][copied="true"] { background: %11; }
    QLineEdit[look="face"]:focus, QPlainTextEdit[look="face"]:focus { border-color: %4; }
    QLineEdit[look="flag"]:focus, QPlainTextEdit[look="flag"]:focus { border-color: %3; }
    QLineEdit:disabled, QPlainTextEdit:disabled { background: %5; border-color: %6; color: %7; }
    QComboBox QLineEdit { border: none; padding: 0; background: transparent; }
    QLabel:disabled, QCheckBox:disabled, QRadioButton:disabled { color: %7; }
    QPushButton { border: 1px solid %1; border-radius: 4px; padding: 5px 15px; background: %2; color: %3; }
    QPushButton[tight="true"] { padding: 5px 7px; }
    QPushButton:hover { border-color: %4; }
    QPushButton:pressed { background: %5; }
    QPushButton:focus { border: 2px solid %4; padding: 4px 14px; }
    QPushButton[tight="true"]:focus { padding: 4px 6px; }
    QPushButton:disabled { color: %7; background: %5; border-color: %6; }
    QPushButton[main="true"] { background: %9; color: white; border-color: %9; }
    QPushButton[main="true"]:focus { border-color: %3; }
    QTabWidget::pane { border: 1px solid %6; border-radius: 4px; top: -1px; background: %8; }
    QTabBar::tab { padding: 6px 14px; border: 1px solid %6; border-bottom: none; border-top-left-radius: 4px;
                   border-top-right-radius: 4px; margin-right: 2px; background: %5; color: %3; }
    QTabBar[tight="true"]::tab { padding: 4px 8px; }
    QTabBar::tab:selected { background: %8; font-weight: bold; }
    QTabBar::tab:disabled { color: %7; }
    QTreeView { border: 1px solid %6; background: %2; alternate-background-color: %5; color: %3;
                selection-background-color: %9; selection-color: white; }
    QTreeView[look="face"] { background: %5; alternate-background-color: %8; }
    QTreeView:focus { border-color: %4; }
    QTreeView:!active { selection-background-color: %12; selection-color: %3; }
    QTreeView:disabled { color: %7; selection-background-color: %12; selection-color: %3; }
    QTreeView#tvwTree { border: 2px solid %8; background: %8; }
    QTreeView#tvwTree:focus { border-color: %4; }
    QTableView { border: 1px solid %6; gridline-color: %6; }
    QTableView:focus { border-color: %4; }
    QTableView[fixed="true"] { border: none; }
    QHeaderView { background: %5; }
    QHeaderView::section { padding: 5px 4px; border: none; border-bottom: 1px solid %6; background: %5; color: %3; }
    QProgressBar { border: 1px solid %6; border-radius: 4px; background: %2; min-height: 10px; max-height: 10px; }
    QProgressBar::chunk { border-radius: 3px; background: %4; }
    QMenu::separator { height: 1px; margin: 2px 5px; background: %6; }
    QStatusBar QLabel { padding: 2px 10px; }
    QScrollArea { border: none; background: transparent; }
    QScrollBar { background: %8; border: none; }
    QScrollBar:vertical { width: 14px; }
    QScrollBar:horizontal { height: 14px; }
    QScrollBar::handle { background: %13; border-radius: 4px; margin: 3px; }
    QScrollBar::handle:hover, QScrollBar::handle:pressed { background: %1; }
    QScrollBar::handle:disabled { background: %6; }
    QScrollBar::handle:vertical { min-height: 24px; }
    QScrollBar::handle:horizontal { min-width: 24px; }
    QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
  )");
  // where all backgrounds have the same colour the border shows which fields are open
  const QString stark = QStringLiteral(R"(
    QLineEdit[look="face"], QPlainTextEdit[look="face"] { border-style: dashed; }
    QLineEdit[look="flag"], QPlainTextEdit[look="flag"] { border-width: 2px; padding: 2px 5px; }
    QLineEdit:disabled, QPlainTextEdit:disabled { border-style: dotted; }
    QPushButton:disabled { border-style: dashed; }
    QScrollBar { background: %2; border: 1px solid %6; }
    QScrollBar::handle { background: %6; border-radius: 0; }
  )");
  const auto name = [](const QColor& colour) { return colour.name(); };
  const QColor ground = palette.color(QPalette::Window), ink = palette.color(QPalette::WindowText);
  const QString all = IsHighContrast(palette) ? form + stark : form;
  return all.arg(name(Border(palette)), name(palette.color(QPalette::Base)), name(ink), name(Accent(palette)),
                 name(FaceColour(palette)), name(Line(palette)), name(Dimmed(palette)),
                 name(Mix(ground, palette.color(QPalette::Base), 0.5)), name(AccentGround(palette)),
                 name(CopiedGround(palette)), name(CopiedFace(palette)), name(RestingGround(palette)),
                 name(Mix(ground, ink, 0.35)));
}

}  // namespace merlu
