// A list whose rows are read from their model as they are painted: 100,000 rows take no longer to show than a few.
#pragma once

#include <QAbstractTableModel>
#include <QTreeView>

#include <string>

#include "desktop/acts.h"
#include "forms/form.h"
#include "forms/list_model.h"

namespace merlu {

// The rows of a list view's model as Qt asks for them.
class ListAdapter : public QAbstractTableModel {
  Q_OBJECT
 public:
  ListAdapter(const Control& control, QObject* parent);
  // Reads anew when the rows have changed; true when they had.
  bool Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const Control& control_;
  std::uint64_t revision_;
  int rows_ = 0;
};

class ModelList : public QTreeView {
  Q_OBJECT
 public:
  ModelList(Acts& acts, Form& form, const Control& control, QString empty_text, QWidget* parent);
  // Draws what changed.
  void Sync();

  // As large as it would be where the screen has the room.
  void Want(const QSize& size);
  QSize sizeHint() const override { return wanted_.isValid() ? wanted_ : QTreeView::sizeHint(); }
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  // Has the model read ahead the rows in sight.
  void Prepare();
  void Open();
  void CopyRows() const;
  void ShowPicked();
  bool IsInDialog() const;
  void FitColumns();
  void ShareWidth();
  void KeepWidths();

  Acts& acts_;
  Form& form_;
  const Control& control_;
  ListAdapter* adapter_;
  QString empty_text_;
  QSize wanted_;
  QList<int> wanted_widths_;
  // columns fit the first rows that show, unless the user gave them widths
  bool fitting_ = true, fitted_ = false, chosen_ = false;
};

// A text as one line of a list: without line ends, and no longer than can be read there.
QString OneLine(const std::string& text);

}  // namespace merlu
