#include "desktop/model_list.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <numeric>
#include <vector>

#include "base/text.h"
#include "desktop/look.h"
#include "shell/messages.h"

namespace merlu {
namespace {

constexpr const char* kWidthsSection = "Columns";
constexpr std::size_t kLongestLine = 300, kLongestTip = 3000;  // characters
constexpr int kAboveAndBelow = 3, kBetweenColumns = 16, kLeastBetween = 6;
constexpr int kNarrowest = 40, kWidest = 2000, kWidestFitted = 320, kFewRows = 20, kWidestOfFew = 460,
              kWidestInDialog = 1300;
constexpr QSize kSmallest(160, 76);

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

// Rows of one height, with the air that other lists have.
class EvenRows : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {QStyledItemDelegate::sizeHint(option, index).width(), option.fontMetrics.height() + 2 * kAboveAndBelow};
  }

 protected:
  // A place that is too long keeps its end, the equipment's ID.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const QString head = index.model()->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString();
    if (head == "Place" || head == "Row") option->textElideMode = Qt::ElideMiddle;
  }
};

}  // namespace

QString OneLine(const std::string& text) {
  const std::string first = FirstCharacters(text, kLongestLine);
  QString line = Q(first);
  if (first.size() < text.size()) line += QChar(0x2026);
  for (QChar& c : line)
    if (c == '\n' || c == '\r' || c == '\t') c = ' ';
  return line;
}

ListAdapter::ListAdapter(const Control& control, QObject* parent)
    : QAbstractTableModel(parent), control_(control), revision_(control.model->Revision()) {
  rows_ = control.model->RowCount();
}

bool ListAdapter::Refresh() {
  if (revision_ == control_.model->Revision()) return false;
  beginResetModel();
  revision_ = control_.model->Revision();
  rows_ = control_.model->RowCount();
  endResetModel();
  return true;
}

int ListAdapter::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int ListAdapter::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(control_.columns.size());
}

QVariant ListAdapter::data(const QModelIndex& index, int role) const {
  // between a change and the next drawing rows may be fewer than they were
  if (!index.isValid() || index.row() >= control_.model->RowCount()) return {};
  const bool shown = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
  if (!shown && role != Qt::ToolTipRole) return {};
  const std::string text = control_.model->Text(index.row(), index.column());
  if (shown) return OneLine(text);
  return text.empty() ? QVariant() : Q(FirstCharacters(text, kLongestTip)).toHtmlEscaped();
}

QVariant ListAdapter::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount()) return {};
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return Q(control_.columns[static_cast<std::size_t>(section)]);
}

ModelList::ModelList(Acts& acts, Form& form, const Control& control, QString empty_text, QWidget* parent)
    : QTreeView(parent),
      acts_(acts),
      form_(form),
      control_(control),
      adapter_(new ListAdapter(control, this)),
      empty_text_(std::move(empty_text)) {
  setModel(adapter_);
  setItemDelegate(new EvenRows(this));
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(control.many ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
  header()->setMinimumSectionSize(kNarrowest);
  header()->setSectionsClickable(control.model->CanSort());
  header()->setSortIndicator(-1, Qt::AscendingOrder);
  header()->setSortIndicatorShown(control.model->CanSort());
  connect(header(), &QHeaderView::sectionClicked, this,
          [this](int column) { acts_.Do([&] { return act::Sort(acts_.s.desk, form_, control_.name, column); }); });
  connect(this, &QTreeView::doubleClicked, this, [this] { Open(); });
  const QStringList widths = Q(acts.s.host.Setting(kWidthsSection, control.name)).split(' ', Qt::SkipEmptyParts);
  chosen_ = widths.size() == adapter_->columnCount();
  for (int column = 0; chosen_ && column < widths.size(); ++column)
    setColumnWidth(column, std::clamp(widths[column].toInt(), kNarrowest, kWidest));
  fitting_ = false;
  connect(header(), &QHeaderView::sectionResized, this, [this](int column) {
    // the last column follows the window
    if (!fitting_ && column + 1 < adapter_->columnCount()) KeepWidths();
  });
  FitColumns();
}

void ModelList::Sync() {
  const bool changed = adapter_->Refresh();
  const Qt::SortOrder order = control_.descending ? Qt::DescendingOrder : Qt::AscendingOrder;
  if (header()->sortIndicatorSection() != control_.sorted_by || header()->sortIndicatorOrder() != order)
    header()->setSortIndicator(control_.sorted_by, order);
  if (changed) FitColumns();
  ShowPicked();
}

void ModelList::ShowPicked() {
  QItemSelection wanted;
  const int rows = adapter_->rowCount(), last = adapter_->columnCount() - 1;
  for (std::size_t i = 0; i < control_.picked.size();) {
    const int first = control_.picked[i];
    int end = first;
    while (++i < control_.picked.size() && control_.picked[i] == end + 1) ++end;
    if (end < rows) wanted.select(adapter_->index(first, 0), adapter_->index(end, last));
  }
  const QItemSelection now = selectionModel()->selection();
  if (now == wanted) return;
  qsizetype selected = 0;
  for (const QItemSelectionRange& range : now) selected += range.height();
  if (selected == static_cast<qsizetype>(control_.picked.size()) &&
      std::all_of(control_.picked.begin(), control_.picked.end(),
                  [&](int row) { return selectionModel()->isSelected(adapter_->index(row, 0)); }))
    return;
  selectionModel()->select(wanted, QItemSelectionModel::ClearAndSelect);
  if (control_.picked.size() != 1 || wanted.isEmpty()) return;
  const QModelIndex row = adapter_->index(control_.picked.front(), 0);
  selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
  scrollTo(row);
}

void ModelList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  // a view that is being made reports a change of nothing
  if (acts_.IsDrawing() || (selected.isEmpty() && deselected.isEmpty())) return;
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  acts_.Do([&] { return act::Pick(acts_.s.desk, form_, control_.name, rows); });
}

void ModelList::Open() {
  acts_.Do([&] { return act::DoubleClick(acts_.s.desk, form_, control_.name); });
}

void ModelList::CopyRows() const {
  std::vector<int> rows = control_.picked;
  std::sort(rows.begin(), rows.end());
  QString text;
  for (const int row : rows) {
    QStringList cells;
    for (int column = 0; column < adapter_->columnCount(); ++column)
      cells << Q(control_.model->Text(row, column)).replace('\t', ' ').replace('\n', ' ');
    text += cells.join('\t') + '\n';
  }
  QApplication::clipboard()->setText(text);
}

void ModelList::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->matches(QKeySequence::Copy)) return CopyRows();
  if (!enter) return QTreeView::keyPressEvent(event);
  if (form_.Handles(control_.name, Event::kDoubleClick) && !control_.picked.empty())
    Open();
  else
    event->ignore();  // the dialog's own button
}

// As wide as what shows; the last column takes the rest. In a dialog, whose rows can be others with each key, columns
// grow and do not shrink again, and all of them are in sight.
void ModelList::FitColumns() {
  const bool in_dialog = IsInDialog();
  if (chosen_ || (fitted_ && !in_dialog) || adapter_->rowCount() == 0) return;
  const int widest = in_dialog || adapter_->rowCount() <= kFewRows ? kWidestOfFew : kWidestFitted;
  const int last = adapter_->columnCount() - 1;
  wanted_widths_.resize(last + 1);
  for (int column = 0; column <= last; ++column) {
    const int wanted = std::max(sizeHintForColumn(column), header()->sectionSizeHint(column)) + kBetweenColumns;
    wanted_widths_[column] = std::max(wanted_widths_[column], column == last ? wanted : std::min(wanted, widest));
  }
  fitted_ = true;
  ShareWidth();
  if (!in_dialog) return;
  const int around = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  const int wanted = std::accumulate(wanted_widths_.begin(), wanted_widths_.end(), around);
  Want(QSize(std::min(wanted, kWidestInDialog), 0));
}

bool ModelList::IsInDialog() const {
  return qobject_cast<QDialog*>(window()) != nullptr;
}

// Gives the columns what they want; in a dialog that is too narrow for it they come closer, then the widest ones give
// way.
void ModelList::ShareWidth() {
  const int last = adapter_->columnCount() - 1;
  if (chosen_ || !fitted_ || last < 0) return;
  int most = kWidest, closer = 0;
  std::vector<int> heads;  // the widths of the captions, which take a while to find out
  for (int column = 0; column <= last; ++column) heads.push_back(header()->sectionSizeHint(column));
  const auto width_of = [&](int column) {
    const int wanted = wanted_widths_[column] - closer;
    const int least = std::min(wanted, heads[static_cast<std::size_t>(column)]);
    return std::clamp(wanted, least, std::max(least, most));
  };
  const auto all = [&] {
    int sum = 0;
    for (int column = 0; column <= last; ++column) sum += width_of(column);
    return sum;
  };
  if (IsInDialog() && isVisible()) {
    while (closer < kBetweenColumns - kLeastBetween && all() > viewport()->width()) ++closer;
    while (most > kNarrowest && all() > viewport()->width()) --most;
  }
  fitting_ = true;
  for (int column = 0; column <= last; ++column) setColumnWidth(column, width_of(column));
  fitting_ = false;
}

void ModelList::Want(const QSize& size) {
  wanted_ = wanted_.expandedTo(size);
  updateGeometry();
}

QSize ModelList::minimumSizeHint() const {
  return kSmallest;
}

void ModelList::KeepWidths() {
  chosen_ = true;
  QStringList widths;
  for (int column = 0; column < adapter_->columnCount(); ++column) widths << QString::number(columnWidth(column));
  KeepSetting(acts_.s, kWidthsSection, control_.name, widths.join(' ').toStdString());
}

void ModelList::Prepare() {
  const QModelIndex top = indexAt(QPoint(0, 0));
  const int height = top.isValid() ? rowHeight(top) : 0;
  if (height > 0) control_.model->Prepare(top.row(), viewport()->height() / height + 2);
}

void ModelList::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  if (IsInDialog()) ShareWidth();
  Prepare();
}

void ModelList::scrollContentsBy(int dx, int dy) {
  QTreeView::scrollContentsBy(dx, dy);
  if (dy != 0) Prepare();
}

void ModelList::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (adapter_->rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(Quiet(palette()));
  const bool is_read = control_.model->Revision() > 0;
  painter.drawText(viewport()->rect(), Qt::AlignCenter, is_read ? empty_text_ : tr("Reading..."));
}

}  // namespace merlu
