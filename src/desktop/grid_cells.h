// The cells of a grid: read from its model, painted, and edited in place.
#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QStyledItemDelegate>

#include <cstdint>

#include "forms/grid_model.h"

namespace merlu {

// The room in front of a cell's text for the sign of its state, and for the mark of a finding.
inline constexpr int kSignWidth = 15, kMarkWidth = 11;
bool HasSign(const GridCell& cell);

// The cells of a grid as Qt asks for them.
class GridAdapter : public QAbstractTableModel {
  Q_OBJECT
 public:
  GridAdapter(const Control& control, QObject* parent);
  // Reads anew what has changed; true when rows or columns are others than before.
  bool Refresh();
  // The cell as it is now. Asked for many times while it is painted, so the last one is kept.
  const GridCell& At(const QModelIndex& index) const;
  const GridColumn& Head(int column) const { return grid_.Columns()[static_cast<std::size_t>(column)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const GridModel& grid_;
  std::uint64_t revision_, shape_;
  int rows_ = 0, columns_ = 0;
  mutable GridCell cell_;
  mutable int cell_row_ = -1, cell_column_ = -1;
  mutable std::uint64_t cell_revision_ = 0;
};

// How cells look and are edited.
class GridCells : public QStyledItemDelegate {
  Q_OBJECT
 public:
  GridCells(const GridAdapter& adapter, QObject* parent) : QStyledItemDelegate(parent), adapter_(adapter) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  bool eventFilter(QObject* editor, QEvent* event) override;

 signals:
  void Typed(int row, int column, const QString& text) const;
  void Left(GridStep step);

 private:
  struct Fonts {
    bool is_known = false;
    QFont plain, bold, small;
  };
  const Fonts& FontsOf(const QFont& font) const;

  const GridAdapter& adapter_;
  mutable Fonts fonts_;
};

}  // namespace merlu
