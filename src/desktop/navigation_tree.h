// The tree of the inventory: found by typing a type or an ID, and readable when it is narrow.
#pragma once

#include <QElapsedTimer>
#include <QTreeView>

namespace merlu {

// The text of a node in that many pixels: its type is shortened, never its ID.
QString ShortNodeText(const QString& text, const QFontMetrics& metrics, int width);

class NavigationTree : public QTreeView {
  Q_OBJECT
 public:
  explicit NavigationTree(QWidget* parent);
  void keyboardSearch(const QString& typed) override;

 signals:
  // Enter, or a double click, on a node.
  void Opened();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString sought_;
  QElapsedTimer typed_;
};

}  // namespace merlu
