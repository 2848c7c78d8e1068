#include "desktop/grid_cells.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

#include "desktop/captions.h"
#include "desktop/look.h"
#include "desktop/model_list.h"

namespace merlu {
namespace {

constexpr int kAside = 6, kCorner = 9;
constexpr QColor kUnusable(255, 170, 0);

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

QColor Tinted(const QPalette& palette, const QColor& tint) {
  const QColor ground = palette.color(QPalette::Base);
  const int share = IsDark(palette) ? 70 : 45;  // of 255
  const auto mix = [&](int a, int b) { return (a * (255 - share) + b * share) / 255; };
  return {mix(ground.red(), tint.red()), mix(ground.green(), tint.green()), mix(ground.blue(), tint.blue())};
}

// A save will make something else of what was typed.
bool IsUnusable(const GridCell& cell) {
  return !cell.locked && !cell.hint.empty();
}

// What is wrong shows in the cell in hand too.
QColor GroundOf(const QPalette& palette, const GridCell& cell, bool selected) {
  if (cell.back == Back::kFlag) return kFlagBack;
  if (IsUnusable(cell)) return Tinted(palette, kUnusable);
  if (selected) return AccentGround(palette);
  if (cell.copied) return Tinted(palette, Accent(palette));
  switch (cell.tone) {
    case Tone::kGood: return Tinted(palette, QColor(40, 160, 80));
    case Tone::kLook: return Tinted(palette, QColor(230, 160, 20));
    case Tone::kStop: return Tinted(palette, QColor(220, 50, 50));
    case Tone::kPlain:
    case Tone::kQuiet: break;
  }
  return cell.locked || cell.back == Back::kFace ? FaceColour(palette) : palette.color(QPalette::Base);
}

QColor InkOf(const QPalette& palette, const GridCell& cell, bool selected) {
  if (cell.back == Back::kFlag) return kFlagText;
  if (IsUnusable(cell)) return palette.color(QPalette::Text);
  if (selected) return Qt::white;
  return cell.tone == Tone::kQuiet ? Quiet(palette) : palette.color(QPalette::Text);
}

// Of the cell in hand.
QColor FrameOf(const QPalette& palette, const GridCell& cell, bool selected) {
  if (cell.back == Back::kFlag || IsUnusable(cell)) return InkOf(palette, cell, selected);
  return selected ? palette.color(QPalette::Base) : Accent(palette);
}

// What a state is known by where colours are not seen: a tick, a triangle, a cross or a ring. They are drawn, as a font
// may lack them.
void DrawSign(QPainter& painter, const QRect& room, Tone tone, const QColor& ink) {
  const qreal half = std::min(room.width(), room.height()) * 0.24;
  const QPointF middle = QPointF(room.left() + half + 1, QRectF(room).center().y());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const auto at = [&](qreal x, qreal y) { return middle + QPointF(x, y) * half; };
  switch (tone) {
    case Tone::kGood: painter.drawPolyline(QPolygonF({at(-1, 0.1), at(-0.3, 0.9), at(1, -0.9)})); break;
    case Tone::kLook:
      painter.setBrush(ink);
      painter.drawPolygon(QPolygonF({at(0, -0.9), at(1, 0.8), at(-1, 0.8)}));
      break;
    case Tone::kStop:
      painter.drawLine(at(-0.9, -0.9), at(0.9, 0.9));
      painter.drawLine(at(-0.9, 0.9), at(0.9, -0.9));
      break;
    case Tone::kPlain: painter.drawEllipse(middle, half * 0.9, half * 0.9); break;
    case Tone::kQuiet: break;
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(ink);
}

// One line of text, laid out once to be measured and drawn.
class LaidOut {
 public:
  LaidOut(const QString& text, const QFont& font) : layout_(text, font) {
    layout_.setCacheEnabled(true);
    layout_.beginLayout();
    line_ = layout_.createLine();
    layout_.endLayout();
  }
  qreal Width() const { return line_.isValid() ? line_.naturalTextWidth() : 0; }
  void Draw(QPainter& painter, const QRect& room, bool right) const {
    if (!line_.isValid()) return;
    const qreal left = right ? room.left() + room.width() - Width() : room.left();
    layout_.draw(&painter, QPointF(left, room.top() + (room.height() - line_.height()) / 2));
  }

 private:
  QTextLayout layout_;
  QTextLine line_;
};

void DrawText(QPainter& painter, const QRect& room, const LaidOut& text, const QString& whole, const QFont& font,
              bool right) {
  if (text.Width() <= room.width()) return text.Draw(painter, room, right);
  LaidOut(QFontMetrics(font).elidedText(whole, Qt::ElideRight, room.width()), font).Draw(painter, room, right);
}

}  // namespace

bool HasSign(const GridCell& cell) {
  return cell.locked && !cell.hint.empty();
}

GridAdapter::GridAdapter(const Control& control, QObject* parent)
    : QAbstractTableModel(parent),
      grid_(*control.grid),
      revision_(grid_.Revision()),
      shape_(grid_.Shape()),
      rows_(grid_.RowCount()),
      columns_(static_cast<int>(grid_.Columns().size())) {}

bool GridAdapter::Refresh() {
  if (shape_ != grid_.Shape()) {
    beginResetModel();
    shape_ = grid_.Shape();
    revision_ = grid_.Revision();
    rows_ = grid_.RowCount();
    columns_ = static_cast<int>(grid_.Columns().size());
    endResetModel();
    return true;
  }
  if (revision_ == grid_.Revision()) return false;
  revision_ = grid_.Revision();
  if (rows_ > 0 && columns_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
  return false;
}

const GridCell& GridAdapter::At(const QModelIndex& index) const {
  static const GridCell none;
  // between a change and the next drawing there may be fewer than there were
  if (shape_ != grid_.Shape()) return none;
  if (cell_row_ != index.row() || cell_column_ != index.column() || cell_revision_ != grid_.Revision()) {
    cell_ = grid_.Cell(index.row(), index.column());
    cell_row_ = index.row();
    cell_column_ = index.column();
    cell_revision_ = grid_.Revision();
  }
  return cell_;
}

int GridAdapter::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridAdapter::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant GridAdapter::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const GridCell& cell = At(index);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: return OneLine(cell.text);
    case Qt::EditRole: return Q(cell.text);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: {
      QStringList lines;
      for (const std::string& line : {cell.finding, cell.hint})
        if (!line.empty()) lines << Q(line);
      if (cell.copied) lines << tr("Copied from the month before, not yet confirmed");
      return lines.isEmpty() ? QVariant() : lines.join('\n');
    }
    default: return {};
  }
}

QVariant GridAdapter::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
  if (section >= columns_ || shape_ != grid_.Shape()) return {};
  if (role == Qt::DisplayRole) return WithWholeUnit(Q(Head(section).caption).simplified(), Head(section).unit);
  if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) return Q(Head(section).caption);
  return {};
}

Qt::ItemFlags GridAdapter::flags(const QModelIndex& index) const {
  const Qt::ItemFlags seen = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  return index.isValid() && !At(index).locked ? seen | Qt::ItemIsEditable : seen;
}

// ---- how they look ----

const GridCells::Fonts& GridCells::FontsOf(const QFont& font) const {
  if (fonts_.is_known && fonts_.plain == font) return fonts_;
  fonts_ = {true, font, font, font};
  fonts_.bold.setBold(true);
  fonts_.small.setPointSizeF(font.pointSizeF() * 0.85);
  return fonts_;
}

void GridCells::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const GridCell& cell = adapter_.At(index);
  const bool numeric = adapter_.Head(index.column()).numeric;
  const bool selected = option.state & QStyle::State_Selected;
  const QRect place = option.rect;
  const Fonts& fonts = FontsOf(option.font);
  const QColor ink = InkOf(option.palette, cell, selected);
  painter->save();
  painter->fillRect(place, GroundOf(option.palette, cell, selected));
  // where all backgrounds have the same colour, a hatch marks the locked cells
  if (cell.locked && cell.text.empty() && IsHighContrast(option.palette))
    painter->fillRect(place, QBrush(Line(option.palette), Qt::BDiagPattern));
  painter->setPen(ink);
  QRect room = place.adjusted(kAside, 0, -kAside, 0);
  const bool found = cell.back == Back::kFlag || !cell.finding.empty();
  if (found || IsUnusable(cell)) {
    painter->setFont(fonts.bold);
    painter->drawText(QRect(place.left() + 3, place.top(), kMarkWidth, place.height()), Qt::AlignVCenter,
                      found ? "!" : "?");
    room.setLeft(room.left() + kMarkWidth);
  }
  if (HasSign(cell)) {
    DrawSign(*painter, QRect(room.left(), room.top(), kSignWidth, room.height()), cell.tone, ink);
    room.setLeft(room.left() + kSignWidth);
  }
  const QString whole = OneLine(cell.text);
  const LaidOut text(whole, fonts.plain);
  DrawText(*painter, room, text, whole, fonts.plain, numeric);
  if (!cell.was.empty() && numeric) {
    painter->setPen(selected || cell.back == Back::kFlag ? ink : Quiet(option.palette));
    const LaidOut was(Q(cell.was), fonts.small);
    if (was.Width() <= room.width() - text.Width() - kAside) was.Draw(*painter, room, false);
  }
  if (!cell.hint.empty() || cell.copied) {
    const QPoint corner = place.bottomRight() + QPoint(1, 1);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ink);
    if (IsUnusable(cell))
      painter->drawPolygon(QPolygon({corner, corner - QPoint(kCorner, 0), corner - QPoint(0, kCorner)}));
    if (cell.copied) painter->fillRect(QRect(place.left(), place.top() + 2, 2, place.height() - 4), ink);
  }
  if (option.state & QStyle::State_HasFocus) {
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(FrameOf(option.palette, cell, selected), 2));
    painter->drawRect(place.adjusted(2, 2, -2, -2));
  }
  painter->restore();
}

// ---- editing ----

QWidget* GridCells::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const GridColumn& head = adapter_.Head(index.column());
  if (head.items.empty()) {
    auto* line = new QLineEdit(parent);
    line->setFrame(false);
    if (head.limit > 0) line->setMaxLength(head.limit);
    if (head.numeric) line->setAlignment(Qt::AlignRight);
    line->setAccessibleName(Q(head.caption));
    return line;
  }
  auto* choice = new QComboBox(parent);
  for (const std::string& item : head.items) choice->addItem(Q(item));
  choice->setEditable(head.free_text);
  choice->setAccessibleName(Q(head.caption));
  return choice;
}

void GridCells::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const QString text = Q(adapter_.At(index).text);
  if (auto* line = qobject_cast<QLineEdit*>(editor)) line->setText(text);
  if (auto* choice = qobject_cast<QComboBox*>(editor)) {
    choice->setCurrentIndex(choice->findText(text));
    if (choice->isEditable()) choice->setEditText(text);
  }
}

void GridCells::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
  QString text;
  if (const auto* line = qobject_cast<QLineEdit*>(editor)) text = line->text();
  if (const auto* choice = qobject_cast<QComboBox*>(editor)) text = choice->currentText();
  if (text.toStdString() != adapter_.At(index).text) emit Typed(index.row(), index.column(), text);
}

bool GridCells::eventFilter(QObject* editor, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QStyledItemDelegate::eventFilter(editor, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool back = key->modifiers() & Qt::ShiftModifier, choice = qobject_cast<QComboBox*>(editor) != nullptr;
  GridStep step = GridStep::kRight;
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: step = back ? GridStep::kUp : GridStep::kDown; break;
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (choice) return false;
      step = key->key() == Qt::Key_Up ? GridStep::kUp : GridStep::kDown;
      break;
    case Qt::Key_Tab: break;
    case Qt::Key_Backtab: step = GridStep::kLeft; break;
    default: return QStyledItemDelegate::eventFilter(editor, event);
  }
  auto* widget = static_cast<QWidget*>(editor);
  emit commitData(widget);
  emit closeEditor(widget, NoHint);
  emit Left(step);
  return true;
}

}  // namespace merlu
