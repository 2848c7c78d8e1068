// A grid: cells that are read from their model as they show and edited in place.
#pragma once

#include <QTableView>

#include "desktop/acts.h"
#include "desktop/grid_cells.h"
#include "forms/form.h"

namespace merlu {

class GridView : public QTableView {
  Q_OBJECT
 public:
  GridView(Acts& acts, Form& form, const Control& control, QWidget* parent);
  // Draws what changed.
  void Sync();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  // Tab moves through the open cells, and to the next field after the last one.
  bool focusNextPrevChild(bool next) override;
  void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  // The fixed columns cover the columns that scroll beneath them.
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 private:
  void MakeFixed();
  void PlaceFixed();
  void FitColumns();
  int FixedWidth() const;
  void Move(GridStep step);
  void Copy() const;
  void Paste();
  void Clear();

  Acts& acts_;
  Form& form_;
  const Control& control_;
  GridAdapter* adapter_;
  QTableView* fixed_ = nullptr;  // shows the columns that stay, over the others
};

}  // namespace merlu
