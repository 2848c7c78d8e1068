#include "desktop/navigation_tree.h"

#include <QKeyEvent>
#include <QStyledItemDelegate>

#include <algorithm>

#include "desktop/long_line.h"

namespace merlu {
namespace {

constexpr int kPause = 1000;  // milliseconds after which a name begins anew

// Where the ID begins in a text like "Combustion Flare: F1"; -1 without one.
qsizetype IdOf(const QString& text) {
  const qsizetype colon = text.indexOf(": ");
  return colon < 0 ? -1 : colon + 2;
}

// Rows of one calm height.
class TreeRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), option.fontMetrics.height() + 6};
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    constexpr int kAside = 10;
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = WithoutMiddle(option->text);
    if (option->rect.width() > kAside)
      option->text = ShortNodeText(option->text, option->fontMetrics, option->rect.width() - kAside);
  }
};

bool Begins(const QString& text, const QString& sought) {
  const qsizetype id = IdOf(text);
  return text.startsWith(sought, Qt::CaseInsensitive) ||
         (id > 0 && QStringView(text).mid(id).startsWith(sought, Qt::CaseInsensitive));
}

}  // namespace

QString ShortNodeText(const QString& whole, const QFontMetrics& metrics, int width) {
  const QString text = WithoutMiddle(whole);
  if (metrics.horizontalAdvance(text) <= width) return text;
  const qsizetype id = IdOf(text);
  if (id < 0) return metrics.elidedText(text, Qt::ElideMiddle, width);
  const QString behind = text.mid(id - 2);
  const QString type = metrics.elidedText(text.left(id - 2), Qt::ElideRight, width - metrics.horizontalAdvance(behind));
  return type.size() > 1 ? type + behind : text.mid(id);
}

NavigationTree::NavigationTree(QWidget* parent) : QTreeView(parent) {
  setItemDelegate(new TreeRows(this));
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setIndentation(16);
  connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& at) {
    if (!model()->hasChildren(at)) emit Opened();
  });
}

void NavigationTree::keyboardSearch(const QString& typed) {
  const bool goes_on = typed_.isValid() && typed_.elapsed() < kPause;
  typed_.start();
  const bool same_letter = goes_on && sought_.compare(typed, Qt::CaseInsensitive) == 0;
  sought_ = goes_on && !same_letter ? sought_ + typed : typed;
  // of the nodes that show: the selected one may be hidden by the filter
  const QModelIndex first = moveCursor(MoveHome, Qt::NoModifier);
  const bool shows = visualRect(currentIndex()).isValid();
  QModelIndex at = shows ? currentIndex() : first;
  const QModelIndex from = at;
  // the first letter, and the same letter again, moves on to the next node
  if (shows && (!goes_on || same_letter)) at = indexBelow(at).isValid() ? indexBelow(at) : first;
  for (bool round = false; at.isValid(); at = indexBelow(at).isValid() ? indexBelow(at) : first) {
    if (Begins(at.data().toString(), sought_)) return setCurrentIndex(at);
    if (round && at == from) return;
    round = true;
  }
}

void NavigationTree::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter || event->modifiers() & ~Qt::KeypadModifier) return QTreeView::keyPressEvent(event);
  emit Opened();
}

}  // namespace merlu
