// A list of rows: findings, surveys, structures. Rows alternate in colour and wrap; a grey line is shown when the list
// is empty.
#pragma once

#include <QTreeWidget>

#include "forms/control.h"

namespace merlu {

class ResultsList : public QTreeWidget {
  Q_OBJECT
 public:
  ResultsList(const Control& control, QString empty_text, QWidget* parent);
  void ShowRows(const Control& control);
  void ShowPicked(const Control& control);
  // What shows while there are no rows.
  void SetEmptyText(const QString& text);
  const QString& EmptyText() const { return empty_text_; }
  QList<int> Picked() const;
  // Rows of a list that cannot be used now are still read, scrolled and copied.
  void SetUsable(bool usable) { usable_ = usable; }
  bool usable() const { return usable_; }
  // Widths that the user gave columns, as text from one run to the next; empty while he gave none.
  QString ChosenWidths() const;
  void ChooseWidths(const QString& widths);
  // As large as it would be where the screen has the room.
  void Want(const QSize& size);
  QSize sizeHint() const override { return wanted_.isValid() ? wanted_ : QTreeWidget::sizeHint(); }
  QSize minimumSizeHint() const override;

 signals:
  void Opened();  // Enter or a double click on a row, where one row is picked at a time
  void WidthsChosen();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitColumns();
  void NarrowWidest();
  void ShowHeads(const Control& control);
  int WidestText(int column) const;
  void Copy() const;
  void KeepWidth(int column, int width);
  QString empty_text_;
  QSize wanted_;
  QList<int> chosen_;  // 0 for a column that fits itself
  bool fitting_ = false, usable_ = true;
  const bool opens_;  // a row that is picked can be opened
};

}  // namespace merlu
