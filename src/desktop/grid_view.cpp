#include "desktop/grid_view.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

#include "desktop/captions.h"
#include "desktop/fields.h"
#include "desktop/model_list.h"

namespace merlu {
namespace {

constexpr int kAboveAndBelow = 4, kAside = 6, kHeadLines = 3;
constexpr int kNarrowest = 56, kWidest = 260, kWritten = 220;

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

GridView::GridView(Acts& acts, Form& form, const Control& control, QWidget* parent)
    : QTableView(parent), acts_(acts), form_(form), control_(control), adapter_(new GridAdapter(control, this)) {
  auto* cells = new GridCells(*adapter_, this);
  setModel(adapter_);
  setItemDelegate(cells);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                  QAbstractItemView::DoubleClicked);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  horizontalHeader()->setDefaultAlignment(Qt::Alignment(Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap));
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setStretchLastSection(true);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2 * kAboveAndBelow);
  connect(cells, &GridCells::Typed, this, [this](int row, int column, const QString& text) {
    acts_.Do([&] { return act::TypeCell(acts_.s.desk, form_, control_.name, row, column, text.toStdString()); });
  });
  connect(cells, &GridCells::Left, this, &GridView::Move);
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& at) {
    acts_.Do([&] { return act::DoubleClick(acts_.s.desk, form_, control_.name, at.row(), at.column()); });
  });
  FitColumns();
  MakeFixed();
}

void GridView::Sync() {
  if (adapter_->Refresh()) {
    FitColumns();
    MakeFixed();
  }
  const QModelIndex at = adapter_->index(control_.at_row, control_.at_column);
  if (at.isValid() && at != currentIndex()) {
    setCurrentIndex(at);
    scrollTo(at);
  }
}

// Room for the caption on a few lines and for a number, at least; for what is written at the end of a row, some more.
void GridView::FitColumns() {
  const QFontMetrics metrics = fontMetrics();
  const int last = adapter_->columnCount() - 1;
  int lines = metrics.height();
  for (int column = 0; column <= last; ++column) {
    const GridColumn& head = adapter_->Head(column);
    const QString caption = WithWholeUnit(Q(head.caption).simplified(), head.unit);
    int width = head.numeric ? std::max(kNarrowest, metrics.horizontalAdvance("0000000000")) : 0;
    for (const QString& word : caption.split(' ')) width = std::max(width, metrics.horizontalAdvance(word));
    width = std::max(width, metrics.horizontalAdvance(caption) * 10 / (kHeadLines * 8));
    for (const std::string& item : head.items) width = std::max(width, metrics.horizontalAdvance(Q(item)));
    for (int row = 0; row < std::min(adapter_->rowCount(), 40); ++row) {
      const QModelIndex at = adapter_->index(row, column);
      // a number can be marked as soon as it is typed
      const int sign = (HasSign(adapter_->At(at)) ? kSignWidth : 0) + (head.numeric ? kMarkWidth : 0);
      width = std::max(width, sign + metrics.horizontalAdvance(adapter_->data(at, Qt::DisplayRole).toString()));
    }
    const bool is_written = column == last && !head.numeric && head.items.empty() && adapter_->rowCount() > 0 &&
                            !adapter_->At(adapter_->index(0, column)).locked;
    width = std::max(std::min(width, kWidest), is_written ? kWritten : 0) + 2 * kAside + 4;
    const auto head_height = [&] {
      const QRect room(0, 0, width - 2 * kAside, 1000);
      return metrics.boundingRect(room, Qt::AlignHCenter | Qt::TextWordWrap, caption).height();
    };
    while (width < kWidest && head_height() > kHeadLines * metrics.lineSpacing()) width += kAside;
    setColumnWidth(column, width);
    lines = std::max(lines, head_height());
  }
  horizontalHeader()->setFixedHeight(lines + 12);
}

// ---- columns that stay ----

void GridView::MakeFixed() {
  delete fixed_;
  fixed_ = nullptr;
  const int fixed = std::min(control_.grid->FixedColumns(), adapter_->columnCount());
  if (fixed <= 0) return;
  fixed_ = new QTableView(this);
  fixed_->setModel(adapter_);
  fixed_->setItemDelegate(
      new GridCells(*adapter_, fixed_));  // not shared: a delegate ends the edits of every view that uses it
  fixed_->setSelectionModel(selectionModel());
  fixed_->setEditTriggers(NoEditTriggers);
  fixed_->setFocusPolicy(Qt::NoFocus);
  fixed_->setSelectionBehavior(SelectRows);  // a click on what names a row picks it
  fixed_->setFrameShape(QFrame::NoFrame);
  SetLook(*fixed_, "fixed", true);
  fixed_->setWordWrap(false);
  fixed_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  fixed_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  fixed_->verticalHeader()->hide();
  fixed_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  fixed_->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
  fixed_->horizontalHeader()->setFixedHeight(horizontalHeader()->height());
  fixed_->horizontalHeader()->setDefaultAlignment(horizontalHeader()->defaultAlignment());
  fixed_->horizontalHeader()->setHighlightSections(false);
  for (int column = 0; column < adapter_->columnCount(); ++column) {
    fixed_->setColumnHidden(column, column >= fixed);
    fixed_->setColumnWidth(column, columnWidth(column));
  }
  fixed_->setVerticalScrollMode(verticalScrollMode());
  connect(verticalScrollBar(), &QScrollBar::valueChanged, fixed_->verticalScrollBar(), &QScrollBar::setValue);
  connect(fixed_->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
  connect(fixed_, &QTableView::doubleClicked, this, &QTableView::doubleClicked);
  connect(horizontalHeader(), &QHeaderView::sectionResized, fixed_, [this](int column, int, int width) {
    fixed_->setColumnWidth(column, width);
    PlaceFixed();
  });
  connect(fixed_->horizontalHeader(), &QHeaderView::sectionResized, fixed_,
          [this](int column, int, int width) { setColumnWidth(column, width); });
  PlaceFixed();
  fixed_->show();
}

int GridView::FixedWidth() const {
  int width = 0;
  for (int column = 0; fixed_ != nullptr && column < control_.grid->FixedColumns(); ++column)
    width += columnWidth(column);
  return width;
}

void GridView::PlaceFixed() {
  if (fixed_ == nullptr) return;
  const QRect place(frameWidth(), frameWidth(), FixedWidth(), viewport()->height() + horizontalHeader()->height());
  if (fixed_->geometry() != place) fixed_->setGeometry(place);
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  PlaceFixed();
}

void GridView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  PlaceFixed();
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  const int fixed = control_.grid->FixedColumns();
  if (index.column() < fixed) {
    // its row alone
    const int sideways = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(sideways);
    return;
  }
  QTableView::scrollTo(index, hint);
  const int hidden = FixedWidth() - visualRect(index).left();
  if (hidden > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
}

// ---- acts ----

void GridView::Move(GridStep step) {
  const QModelIndex now = currentIndex();
  if (!now.isValid()) return;
  const GridPlace next = NextOpenCell(*control_.grid, {now.row(), now.column()}, step);
  setCurrentIndex(adapter_->index(next.row, next.column));
}

void GridView::currentChanged(const QModelIndex& now, const QModelIndex& before) {
  QTableView::currentChanged(now, before);
  if (acts_.IsDrawing() || !now.isValid()) return;
  acts_.Do([&] { return act::GoToCell(acts_.s.desk, form_, control_.name, now.row(), now.column()); });
}

// What is picked are whole rows.
void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (acts_.IsDrawing()) return;
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    if (range.width() == adapter_->columnCount())
      for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  if (rows == control_.picked) return;
  acts_.Do([&] { return act::Pick(acts_.s.desk, form_, control_.name, rows); });
}

void GridView::Copy() const {
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) return;
  QRect block;
  for (const QItemSelectionRange& range : selection)
    block |= QRect(range.left(), range.top(), range.width(), range.height());
  QString text;
  for (int row = block.top(); row <= block.bottom(); ++row) {
    QStringList cells;
    for (int column = block.left(); column <= block.right(); ++column)
      cells << Q(control_.grid->Cell(row, column).text).replace('\t', ' ').replace('\n', ' ');
    text += cells.join('\t') + '\n';
  }
  QApplication::clipboard()->setText(text);
}

void GridView::Paste() {
  const QModelIndex at = currentIndex();
  const QString text = QApplication::clipboard()->text();
  if (!at.isValid() || text.isEmpty()) return;
  acts_.Do([&] { return act::Paste(acts_.s.desk, form_, control_.name, at.row(), at.column(), text.toStdString()); });
}

void GridView::Clear() {
  const QModelIndexList cells = selectionModel()->selectedIndexes();
  const QModelIndex now = currentIndex();
  // one act, however many they are
  acts_.Do([&] {
    std::string why;
    for (const QModelIndex& cell : cells)
      if (!adapter_->At(cell).locked && !adapter_->At(cell).text.empty())
        why = act::TypeCell(acts_.s.desk, form_, control_.name, cell.row(), cell.column(), "");
    return why;
  });
  setCurrentIndex(now);
}

bool GridView::focusNextPrevChild(bool next) {
  const QModelIndex before = currentIndex();
  Move(next ? GridStep::kRight : GridStep::kLeft);
  return currentIndex() != before || QTableView::focusNextPrevChild(next);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool back = event->modifiers() & Qt::ShiftModifier;
  const bool opens = form_.Handles(control_.name, Event::kDoubleClick) && currentIndex().isValid() &&
                     adapter_->At(currentIndex()).locked;
  if (event->matches(QKeySequence::Copy)) return Copy();
  if (event->matches(QKeySequence::Paste)) return Paste();
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (opens) return emit doubleClicked(currentIndex());
      return Move(back ? GridStep::kUp : GridStep::kDown);
    case Qt::Key_Delete:
    case Qt::Key_Backspace: return Clear();
    case Qt::Key_Space:
      if (back && currentIndex().isValid()) return selectRow(currentIndex().row());
      return QTableView::keyPressEvent(event);
    default: QTableView::keyPressEvent(event);
  }
}

}  // namespace merlu
