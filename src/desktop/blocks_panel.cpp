#include "desktop/blocks_panel.h"

#include <QApplication>
#include <QComboBox>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

#include "desktop/look.h"

namespace merlu {
namespace {

constexpr int kBetweenBlocks = 16, kBetweenRows = 8, kBetweenColumns = 28, kToField = 10;
constexpr int kNarrowestColumn = 380, kNoteGap = 3;

// On one line.
int NoteWidth(const QLabel& note) {
  return note.fontMetrics().horizontalAdvance(note.text()) + 4;
}

// Free text takes the room there is, other fields are as wide as what they hold.
bool TakesWidth(const Control& control) {
  return control.kind == Kind::kMasked || (control.kind == Kind::kText && !control.numeric);
}

}  // namespace

BlocksPanel::BlocksPanel(QWidget* parent)
    : QWidget(parent), nothing_(new QLabel(tr("Nothing to enter here: this page is filled in month by month."), this)) {
  nothing_->setObjectName("nothingHere");
  nothing_->setAlignment(Qt::AlignCenter);
  nothing_->setWordWrap(true);
  QPalette quiet = nothing_->palette();
  quiet.setColor(QPalette::WindowText, Quiet(quiet));
  nothing_->setPalette(quiet);
}

BlocksPanel::Block& BlocksPanel::BlockOf(const std::string& heading) {
  const auto found = std::find_if(blocks_.begin(), blocks_.end(), [&](const Block& b) { return b.heading == heading; });
  if (found != blocks_.end()) return *found;
  auto* title = new QLabel(QString::fromStdString(heading), this);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  title->setTextFormat(Qt::PlainText);
  title->setWordWrap(true);
  QPalette quiet = title->palette();
  quiet.setColor(QPalette::WindowText, Quiet(quiet));
  title->setPalette(quiet);
  auto* rule = new QFrame(this);
  rule->setFixedHeight(1);
  QPalette line = rule->palette();
  line.setColor(QPalette::Window, Line(line));
  rule->setPalette(line);
  rule->setAutoFillBackground(true);
  return blocks_.emplace_back(Block{heading, title, rule, {}});
}

void BlocksPanel::Add(const std::string& heading, Bound& bound, QLabel* note) {
  BlockOf(heading).rows.push_back({&bound, note});
}

bool BlocksPanel::HasVisible(const Block& block) {
  return std::any_of(block.rows.begin(), block.rows.end(), [](const Row& row) { return !row.bound->row->isHidden(); });
}

int BlocksPanel::CaptionWidth(int column) const {
  int widest = 0, field = 0;
  for (const Block& block : blocks_)
    for (const Row& row : block.rows) {
      if (row.bound->caption == nullptr) continue;
      widest = std::max(widest, row.bound->caption->fontMetrics().horizontalAdvance(row.bound->caption->text()) + 4);
      // a list is as wide as its longest item, so the captions make room
      if (row.bound->control->kind == Kind::kList) field = std::max(field, row.bound->row->sizeHint().width());
    }
  return std::min({widest, column / 2, std::max(column / 3, column - kToField - field)});
}

// A remark needs more room than beside its caption, so it takes the column.
int BlocksPanel::PlaceBelowCaption(Bound& bound, const QRect& place, bool move) {
  const int caption = bound.caption->heightForWidth(place.width()), field = bound.row->sizeHint().height();
  if (move) {
    bound.caption->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    bound.caption->setGeometry(place.x(), place.y(), place.width(), caption);
    bound.row->setGeometry(place.x(), place.y() + caption + kNoteGap, place.width(), field);
  }
  return caption + kNoteGap + field;
}

int BlocksPanel::PlaceRow(const Row& row, int x, int y, int width, int caption_width, bool move) {
  QWidget* field = row.bound->row;
  QLabel* caption = row.bound->caption;
  const int left = x + caption_width + kToField;
  const int room = x + width - left;
  if (row.bound->control->lines && caption != nullptr)
    return PlaceBelowCaption(*row.bound, QRect(x, y, width, 0), move);
  const int field_height = field->sizeHint().height();
  // after the field when both fit, otherwise below it
  const bool below = row.note != nullptr && field->sizeHint().width() + kToField + NoteWidth(*row.note) > room;
  const int note_width = row.note == nullptr || below ? 0 : NoteWidth(*row.note) + kToField;
  int height = field_height;
  if (caption != nullptr) height = std::max(height, caption->heightForWidth(caption_width));
  const int note_height = below ? row.note->heightForWidth(room) + kNoteGap : 0;
  QLabel* remark = row.bound->remark;
  const int remark_height = remark == nullptr || remark->isHidden() ? 0 : remark->heightForWidth(room) + kNoteGap;
  if (!move) return height + note_height + remark_height;
  if (remark_height > 0) remark->setGeometry(left, y + height + note_height + kNoteGap, room, remark_height - kNoteGap);
  int field_width = room - note_width;
  if (note_width > 0 && !TakesWidth(*row.bound->control)) field_width = field->sizeHint().width();
  field->setGeometry(left, y + (height - field_height) / 2, field_width, field_height);
  if (below) row.note->setGeometry(left, y + height + kNoteGap, room, note_height - kNoteGap);
  if (note_width > 0) row.note->setGeometry(left + field_width + kToField, y, note_width - kToField, height);
  if (caption != nullptr) caption->setGeometry(x, y, caption_width, height);
  return height + note_height + remark_height;
}

int BlocksPanel::LayOut(Block& block, int x, int y, int width, int caption_width, bool move) {
  const bool visible = HasVisible(block);
  if (move) {
    block.title->setVisible(visible && !block.heading.empty());
    block.rule->setVisible(visible && !block.heading.empty());
  }
  if (!visible) return 0;
  int at = y;
  if (!block.heading.empty()) {
    const int title_height = block.title->heightForWidth(width);
    if (move) {
      block.title->setGeometry(x, at, width, title_height);
      block.rule->setGeometry(x, at + title_height + 3, width, 1);
    }
    at += title_height + 4 + kBetweenRows;
  }
  for (const Row& row : block.rows) {
    // a mark that comes with an edit has its place before, so that no field jumps
    const bool comes = keeps_places_ && row.bound->control->kind == Kind::kCheck;
    if (row.bound->row->isHidden() && !comes) continue;
    at += PlaceRow(row, x, at, width, caption_width, move) + kBetweenRows;
  }
  return at - kBetweenRows - y + kBetweenBlocks;
}

void BlocksPanel::Arrange() {
  const int margin = IsLowScreen(*this) ? 4 : 12;
  const int room = width() - 2 * margin;
  const int shown = static_cast<int>(std::count_if(blocks_.begin(), blocks_.end(), HasVisible));
  const int columns = shown > 1 && room >= 2 * kNarrowestColumn + kBetweenColumns ? 2 : 1;
  const int column = columns == 2 ? (room - kBetweenColumns) / 2 : std::min(room, 760);
  const int captions = CaptionWidth(column);
  int total = 0;
  for (Block& block : blocks_) total += LayOut(block, 0, 0, column, captions, false);
  int x = margin, y = margin, tallest = 0;
  for (Block& block : blocks_) {
    const int height = LayOut(block, 0, 0, column, captions, false);
    // the second column begins where the first would grow past its half
    if (columns == 2 && x == margin && y > margin && height > 0 && y - margin + height / 2 > total / 2) {
      x += column + kBetweenColumns;
      y = margin;
    }
    LayOut(block, x, y, column, captions, true);
    y += height;
    tallest = std::max(tallest, y);
  }
  nothing_->setVisible(shown == 0);
  if (shown == 0) tallest = nothing_->heightForWidth(room) + 2 * margin;
  setMinimumHeight(tallest);
  // a page that became lower does not keep an empty end to scroll to
  if (parentWidget() != nullptr) resize(width(), std::max(tallest, parentWidget()->height()));
  nothing_->setGeometry(margin, margin, room, height() - 2 * margin);
}

void BlocksPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) Arrange();
}

ScrollingPage::ScrollingPage(QWidget* panel, QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(QFrame::NoFrame);
  setWidget(panel);
  panel->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  setFocusPolicy(Qt::NoFocus);
  connect(qApp, &QApplication::focusChanged, this, &ScrollingPage::KeepFocusInView);
}

// The fields have their places only when the act that moved them is over. The whole field comes into view, where the
// scroll area by itself would show the line that the cursor is in.
void ScrollingPage::KeepFocusInView() {
  QTimer::singleShot(0, this, [this] {
    QWidget* focus = window()->focusWidget();
    if (focus == nullptr || !isAncestorOf(focus) || !widget()->isAncestorOf(focus)) return;
    if (qobject_cast<QComboBox*>(focus->parentWidget()) != nullptr) focus = focus->parentWidget();
    constexpr int kAround = 40;
    const int room = viewport()->height(), around = std::clamp((room - focus->height()) / 2, 0, kAround);
    const int top = focus->mapTo(widget(), QPoint(0, 0)).y(), end = top + focus->height();
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(std::max(bar.value(), end + around - room));
    bar.setValue(std::min(bar.value(), top - around));
  });
}

void ScrollingPage::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  KeepFocusInView();
}

bool ScrollingPage::eventFilter(QObject* of, QEvent* event) {
  const bool done = QScrollArea::eventFilter(of, event);
  if (event->type() == QEvent::Resize) KeepFocusInView();
  return done;
}

}  // namespace merlu
