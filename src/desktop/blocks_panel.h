// A page of fields: blocks with a heading, in one or two columns by the room there is. Captions end at a
// common edge and wrap; what does not fit scrolls.
#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QWidget>

#include <string>
#include <vector>

#include "desktop/binding.h"

namespace merlu {

class BlocksPanel : public QWidget {
  Q_OBJECT
 public:
  explicit BlocksPanel(QWidget* parent);

  // Adds a field below the heading; blocks are shown in the order in which they were first named.
  void Add(const std::string& heading, Bound& bound, QLabel* note);
  // Lays out what is visible now.
  void Arrange();
  // Whether check boxes that do not show keep their places. With the next arrangement.
  void KeepPlaces(bool keep) { keeps_places_ = keep; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Row {
    Bound* bound;
    QLabel* note;
  };
  struct Block {
    std::string heading;
    QLabel* title;
    QFrame* rule;
    std::vector<Row> rows;
  };
  Block& BlockOf(const std::string& heading);
  static bool HasVisible(const Block& block);
  int CaptionWidth(int column) const;
  // Places a block, or only measures it; returns its height.
  int LayOut(Block& block, int x, int y, int width, int caption_width, bool move);
  static int PlaceBelowCaption(Bound& bound, const QRect& place, bool move);
  static int PlaceRow(const Row& row, int x, int y, int width, int caption_width, bool move);

  std::vector<Block> blocks_;
  QLabel* nothing_;  // shows while no field does
  bool keeps_places_ = false;
};

// Fields that scroll inside their page.
class ScrollingPage : public QScrollArea {
  Q_OBJECT
 public:
  ScrollingPage(QWidget* panel, QWidget* parent);
  // The fields go first: the one with the focus gives it up, and the page hears of that.
  ~ScrollingPage() override { delete takeWidget(); }

 protected:
  // The field that has the focus stays in view when page or panel get another height.
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* of, QEvent* event) override;

 private:
  void KeepFocusInView();
};

}  // namespace merlu
