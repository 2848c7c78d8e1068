#include "walk.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include <algorithm>
#include <set>

#include "base/text.h"
#include "desktop/captions.h"
#include "desktop/fields.h"
#include "desktop/results_list.h"
#include "forms/desk.h"

namespace merlu::test {
namespace {

std::string Named(const QWidget& widget, const QString& text = {}) {
  return (widget.window()->objectName() + " " + widget.objectName() + " \"" + text + "\"").toStdString();
}

int WidthOf(const QWidget& widget, const QString& text) {
  return widget.fontMetrics().horizontalAdvance(text);
}

void ExpectLabelWhole(const QLabel& label) {
  if (label.text().isEmpty() || label.textFormat() == Qt::RichText) return;
  const std::string name = Named(label, label.text());
  if (label.objectName() == "SB1") {
    // the path in the status bar leaves out its middle when the room is short, and takes all the room there is
    EXPECT_GE(label.width(), std::min(label.sizeHint().width(), label.parentWidget()->width() / 3)) << name;
    EXPECT_GE(label.height(), label.fontMetrics().height()) << name;
  } else if (label.wordWrap()) {
    EXPECT_GE(label.height(), label.heightForWidth(label.width())) << name;
    for (const QString& word : label.text().split(' ')) EXPECT_GE(label.width(), WidthOf(label, word)) << name;
  } else {
    EXPECT_GE(label.width(), label.sizeHint().width()) << name;
    EXPECT_GE(label.height(), label.fontMetrics().height()) << name;
  }
}

void ExpectFieldWhole(const QLineEdit& line, int longest) {
  EXPECT_GE(line.height(), line.fontMetrics().height()) << Named(line);
  if (line.text().size() > longest) return;
  const int margins = line.parentWidget()->inherits("QComboBox") ? 0 : 2 * 8;
  EXPECT_GE(line.width() - margins, WidthOf(line, line.text())) << Named(line, line.text());
}

void ExpectListWhole(const ListField& list) {
  constexpr int kFrameAndArrow = 8 + 26;
  EXPECT_GE(list.width() - kFrameAndArrow, WidthOf(list, list.currentText())) << Named(list, list.currentText());
}

// The text of a list that takes free text has the background of the list, which shows its state.
void ExpectOneGround(ListField& list) {
  if (!list.isEditable()) return;
  const QImage picture = list.grab().toImage();
  const auto at = [&](int x, int y) { return picture.pixelColor(QPoint(x, y) * picture.devicePixelRatio()).name(); };
  const QRect text = list.lineEdit()->geometry();
  EXPECT_EQ(at(text.right() - 2, text.top() + 2), at(list.width() - 5, list.height() - 5)) << Named(list);
}

void ExpectTabsWhole(const QTabBar& bar) {
  EXPECT_LE(bar.tabRect(bar.count() - 1).right(), bar.width()) << Named(bar);
}

void ExpectColumnsWhole(const QTreeWidget& list) {
  constexpr int kMargins = 6;
  for (int column = 0; column < list.columnCount(); ++column) {
    const QString head = list.headerItem()->text(column);
    EXPECT_GE(list.columnWidth(column) - kMargins, WidthOf(*list.header(), head)) << Named(list, head);
  }
}

void ExpectButtonWhole(const QAbstractButton& button) {
  if (button.text().isEmpty()) return;
  EXPECT_GE(button.width(), button.sizeHint().width()) << Named(button, button.text());
}

bool IsPartOfField(const QWidget& widget) {
  return widget.objectName().startsWith("qt_") || qobject_cast<const QComboBox*>(widget.parentWidget()) != nullptr;
}

}  // namespace

Album::Album(const char* walk) {
  const QString root = qEnvironmentVariable("MERLU_WALK_FOLDER");
  if (root.isEmpty()) return;
  folder_ = root + "/" + walk;
  QDir(folder_).removeRecursively();
  QDir().mkpath(folder_);
}

void Album::Keep(QWidget& window, const std::string& name) {
  QCoreApplication::processEvents();
  const QPixmap picture = window.grab();
  EXPECT_FALSE(picture.isNull()) << name;
  if (folder_.isEmpty()) return;
  const QString file = QString("%1/%2-%3.png").arg(folder_).arg(++count_, 3, 10, QChar('0')).arg(name.c_str());
  EXPECT_TRUE(picture.save(file)) << file.toStdString();
}

void ExpectNothingCut(QWidget& window, int longest) {
  for (auto* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    if (auto* list = qobject_cast<ListField*>(widget)) ExpectOneGround(*list);
    if (const auto* label = qobject_cast<const QLabel*>(widget)) ExpectLabelWhole(*label);
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) ExpectFieldWhole(*line, longest);
    if (const auto* list = qobject_cast<const ListField*>(widget)) ExpectListWhole(*list);
    if (const auto* bar = qobject_cast<const QTabBar*>(widget)) ExpectTabsWhole(*bar);
    if (const auto* rows = qobject_cast<const QTreeWidget*>(widget)) ExpectColumnsWhole(*rows);
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) ExpectButtonWhole(*button);
  }
}

namespace {

// Whether the control's page is the one that shows.
bool IsOnShownPage(const Form& form, const Control& control) {
  for (const Control* at = &control; !at->parent.empty(); at = &form.At(at->parent)) {
    const Control& parent = form.At(at->parent);
    if (parent.kind == Kind::kTab && parent.index != at->page) return false;
  }
  return true;
}

bool StandsIn(const Form& form, const Control& control, const std::string& frame) {
  for (const Control* at = &control; !at->parent.empty(); at = &form.At(at->parent))
    if (at->parent == frame) return true;
  return frame.empty();
}

bool IsDrawn(Kind kind) {
  return kind != Kind::kFrame && kind != Kind::kMenu && kind != Kind::kTree;
}

QString TextOf(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return line->text();
  if (const auto* notes = qobject_cast<const QPlainTextEdit*>(&widget)) return notes->toPlainText();
  if (const auto* list = qobject_cast<const ListField*>(&widget)) return list->currentText();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return WithoutJoints(label->text());
  return {};
}

// A field's caption is dimmed with its field.
bool IsCaption(const Form& form, const Control& control) {
  for (const Control& field : form.controls())
    if (control.kind == Kind::kLabel && field.label == control.name) return true;
  return false;
}

void ExpectAsSaid(const QWidget& widget, const Form& form, const Control& control) {
  const std::string name = form.name() + "." + control.name;
  // a caption is dimmed with its field, a list is read and scrolled while it cannot be used
  const auto* list = qobject_cast<const ResultsList*>(&widget);
  const bool enabled = list != nullptr ? list->usable() : widget.isEnabled();
  EXPECT_TRUE(IsCaption(form, control) || enabled == IsEnabled(form, control)) << name;
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    EXPECT_EQ(button->text().toStdString(), control.caption) << name;
    EXPECT_EQ(button->isChecked(), button->isCheckable() && control.checked) << name;
  } else if (const auto* tab = qobject_cast<const QTabWidget*>(&widget)) {
    EXPECT_EQ(tab->currentIndex(), control.index) << name;
    for (int page = 0; page < tab->count(); ++page) {
      const auto at = static_cast<std::size_t>(page);
      EXPECT_TRUE(tab->tabText(page).startsWith(QString::fromStdString(control.items[at]))) << name;
      EXPECT_EQ(tab->isTabEnabled(page), control.page_available[at]) << name;
    }
  } else if (const auto* rows = qobject_cast<const QTreeWidget*>(&widget)) {
    EXPECT_EQ(rows->topLevelItemCount(), static_cast<int>(control.rows.size())) << name;
  } else if (control.document == nullptr) {
    const bool is_label = qobject_cast<const QLabel*>(&widget) != nullptr;
    EXPECT_EQ(TextOf(widget).toStdString(), is_label ? TrimRight(control.text) : control.text) << name;
  }
}

}  // namespace

void ExpectAsTheFormSays(QWidget& window, const Form& form, const std::string& frame) {
  int seen = 0;
  for (const Control& control : form.controls()) {
    if (!IsDrawn(control.kind) || !StandsIn(form, control, frame) || !IsOnShownPage(form, control)) continue;
    if (control.kind == Kind::kLabel && control.text.empty()) continue;
    const auto* widget = window.findChild<QWidget*>(QString::fromStdString(control.name));
    ASSERT_NE(widget, nullptr) << form.name() << "." << control.name;
    const bool shows = IsVisible(form, control) && IsInFront(form, control);
    EXPECT_EQ(widget->isVisible(), shows) << form.name() << "." << control.name;
    if (!shows) continue;
    ExpectAsSaid(*widget, form, control);
    ++seen;
  }
  EXPECT_GT(seen, 0) << form.name() << " " << frame;
}

void ExpectTabReachesAll(QWidget& window) {
  std::set<const QWidget*> wanted;
  for (const auto* widget : window.findChildren<QWidget*>()) {
    const bool taken = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled();
    const bool is_field = qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
                          qobject_cast<const ListField*>(widget) || qobject_cast<const QAbstractButton*>(widget) ||
                          qobject_cast<const QTreeWidget*>(widget);
    if (taken && is_field && widget->window() == &window && !IsPartOfField(*widget)) wanted.insert(widget);
  }
  EXPECT_FALSE(wanted.empty()) << Named(window);
  QWidget* const before = QApplication::focusWidget();
  std::set<const QWidget*> reached;
  for (std::size_t steps = 0; steps < 4 * wanted.size() + 40; ++steps) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &window, Qt::Key_Tab);
    for (const QWidget* at = QApplication::focusWidget(); at != nullptr; at = at->parentWidget()) reached.insert(at);
  }
  for (const QWidget* widget : wanted) EXPECT_TRUE(reached.contains(widget)) << Named(*widget) << " by Tab";
  if (before != nullptr) before->setFocus();
}

}  // namespace merlu::test
