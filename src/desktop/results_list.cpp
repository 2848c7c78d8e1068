#include "desktop/results_list.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

#include "desktop/look.h"

namespace merlu {
namespace {

constexpr int kAboveAndBelow = 3;
constexpr int kBetweenColumns = 16;
constexpr int kWidestColumn = 2000;
constexpr const char* kLastOfFindings = "Operator Comment";
constexpr QSize kSmallest(160, 76);

// Rows as high as their wrapped texts; a plain QTreeWidget has rows of one line.
class WrappingRows : public QStyledItemDelegate {
 public:
  explicit WrappingRows(QTreeView* list) : QStyledItemDelegate(list), list_(list) {}
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const int margin = list_->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &item, list_) + 1;
    const int width = std::max(1, list_->columnWidth(index.column()) - 2 * margin);
    const QRect text = item.fontMetrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, item.text);
    return {text.width() + 2 * margin, std::max(text.height(), item.fontMetrics.height()) + 2 * kAboveAndBelow};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    list_->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, list_);
    QStyleOptionViewItem text = option;
    text.rect.adjust(0, kAboveAndBelow, 0, -kAboveAndBelow);
    text.state &= ~QStyle::State_HasFocus;
    QStyledItemDelegate::paint(painter, text, index);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::WrapText;
  }

 private:
  QTreeView* list_;
};

}  // namespace

ResultsList::ResultsList(const Control& control, QString empty_text, QWidget* parent)
    : QTreeWidget(parent), empty_text_(std::move(empty_text)), opens_(!control.many) {
  setColumnCount(static_cast<int>(control.columns.size()));
  ShowHeads(control);
  setRootIsDecorated(false);
  setAlternatingRowColors(true);
  setWordWrap(true);
  setItemDelegate(new WrappingRows(this));
  setUniformRowHeights(false);
  setSelectionMode(control.many ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
  setAllColumnsShowFocus(true);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
  chosen_.fill(0, columnCount());
  connect(header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
    scheduleDelayedItemsLayout();
    KeepWidth(column, width);
  });
  connect(this, &QTreeWidget::itemDoubleClicked, this, [this] { emit Opened(); });
}

void ResultsList::ShowRows(const Control& control) {
  clear();
  ShowHeads(control);
  for (const auto& row : control.rows) {
    auto* item = new QTreeWidgetItem(this);
    for (std::size_t i = 0; i < row.size(); ++i) {
      item->setText(static_cast<int>(i), QString::fromStdString(row[i]));
      item->setTextAlignment(static_cast<int>(i), Qt::AlignTop | Qt::AlignLeft);
    }
  }
  FitColumns();
  viewport()->update();
}

// Other rows may be of other columns.
void ResultsList::ShowHeads(const Control& control) {
  QStringList heads;
  for (const std::string& column : control.columns) heads << QString::fromStdString(column);
  const bool others = heads.size() != columnCount();
  if (others) setColumnCount(static_cast<int>(heads.size()));
  setHeaderLabels(heads);
  if (others) chosen_.fill(0, columnCount());
}

void ResultsList::Want(const QSize& size) {
  wanted_ = size;
  updateGeometry();
}

QSize ResultsList::minimumSizeHint() const {
  return kSmallest;
}

// The room that the texts of a column take when they do not wrap.
int ResultsList::WidestText(int column) const {
  constexpr int kMargins = 8;
  int widest = header()->sectionSizeHint(column);
  for (int row = 0; row < topLevelItemCount(); ++row)
    widest = std::max(widest, fontMetrics().horizontalAdvance(topLevelItem(row)->text(column)) + kMargins);
  return widest;
}

void ResultsList::SetEmptyText(const QString& text) {
  if (empty_text_ == text) return;
  empty_text_ = text;
  viewport()->update();
}

void ResultsList::ShowPicked(const Control& control) {
  clearSelection();
  for (int row : control.picked)
    if (QTreeWidgetItem* item = topLevelItem(row)) item->setSelected(true);
}

QList<int> ResultsList::Picked() const {
  QList<int> rows;
  for (QTreeWidgetItem* item : selectedItems()) rows << indexOfTopLevelItem(item);
  return rows;
}

// Columns of short texts are as wide as these, findings get a share of the list's width, the last column the rest.
void ResultsList::FitColumns() {
  fitting_ = true;
  const int width = viewport()->width();
  constexpr int widest = 240;
  const bool findings = columnCount() > 0 && headerItem()->text(columnCount() - 1) == kLastOfFindings;
  for (int column = 0; column + 1 < columnCount(); ++column) {
    if (chosen_[column] > 0) {
      setColumnWidth(column, chosen_[column]);
    } else if (findings) {
      setColumnWidth(column, width * (column == 0 ? 28 : 36) / 100);
    } else {
      setColumnWidth(column, std::min(WidestText(column) + kBetweenColumns, std::max(widest, width / 2)));
    }
  }
  if (!findings) NarrowWidest();
  // it takes what is left, but no less than its head
  if (columnCount() > 0 && !findings) setColumnWidth(columnCount() - 1, header()->sectionSizeHint(columnCount() - 1));
  fitting_ = false;
}

// Where the columns are too wide together, the widest one gives way and wraps, but never its head.
void ResultsList::NarrowWidest() {
  const int last = columnCount() - 1;
  if (last < 1 || !isVisible()) return;
  int beyond = header()->sectionSizeHint(last) - viewport()->width(), at = -1;
  for (int column = 0; column < last; ++column) {
    beyond += columnWidth(column);
    const bool fits = chosen_[column] == 0 && columnWidth(column) > header()->sectionSizeHint(column);
    if (fits && (at < 0 || columnWidth(column) > columnWidth(at))) at = column;
  }
  if (beyond > 0 && at >= 0) setColumnWidth(at, std::max(header()->sectionSizeHint(at), columnWidth(at) - beyond));
}

void ResultsList::KeepWidth(int column, int width) {
  // the last column follows the window
  if (fitting_ || column + 1 >= columnCount()) return;
  chosen_[column] = width;
  emit WidthsChosen();
}

QString ResultsList::ChosenWidths() const {
  QStringList widths;
  for (const int width : chosen_) widths << QString::number(width);
  return widths.join(' ');
}

void ResultsList::ChooseWidths(const QString& widths) {
  const QStringList texts = widths.split(' ', Qt::SkipEmptyParts);
  if (texts.size() != columnCount()) return;
  for (int column = 0; column < columnCount(); ++column)
    chosen_[column] = std::clamp(texts[column].toInt(), 0, kWidestColumn);
  FitColumns();
}

void ResultsList::resizeEvent(QResizeEvent* event) {
  QTreeWidget::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) FitColumns();
}

// The rows that are picked, or all of them.
void ResultsList::Copy() const {
  QString text;
  for (int row = 0; row < topLevelItemCount(); ++row) {
    const QTreeWidgetItem* item = topLevelItem(row);
    if (!selectedItems().isEmpty() && !item->isSelected()) continue;
    QStringList cells;
    for (int column = 0; column < columnCount(); ++column) cells << item->text(column).simplified();
    text += cells.join('\t') + '\n';
  }
  QApplication::clipboard()->setText(text);
}

void ResultsList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return Copy();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool steps = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
  if (((enter && opens_) || steps) && selectedItems().isEmpty() && topLevelItemCount() > 0) {
    // the row that looks chosen is the first to be chosen
    setCurrentItem(currentItem() == nullptr ? topLevelItem(0) : currentItem(), 0,
                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (steps) return;
  }
  if (!enter) return QTreeWidget::keyPressEvent(event);
  if (opens_ && !selectedItems().isEmpty())
    emit Opened();
  else
    event->ignore();  // the dialog's own button
}

void ResultsList::paintEvent(QPaintEvent* event) {
  QTreeWidget::paintEvent(event);
  if (topLevelItemCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(Quiet(palette()));
  painter.drawText(viewport()->rect(), Qt::AlignCenter, empty_text_);
}

}  // namespace merlu
