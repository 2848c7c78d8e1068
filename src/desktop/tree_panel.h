// The left side of the main window: the tree of the inventory with its filter, kept in step with the session's tree.
#pragma once

#include <QWidget>

#include <cstdint>

#include "desktop/acts.h"
#include "desktop/binding.h"
#include "desktop/navigation_tree.h"
#include "desktop/tree_model.h"

namespace merlu {

class TreePanel : public QWidget {
  Q_OBJECT
 public:
  // The filter is a field of the main form, which `fields` binds.
  TreePanel(Acts& acts, FormBinding& fields, QWidget* parent);

  NavigationTree& tree() { return *tree_; }
  // Selects the next node (1) or the one before (-1); collapsed nodes on the way are expanded.
  void Step(int step);
  // Draws what changed.
  void Sync();

 signals:
  // Enter, or a double click, on a node.
  void Opened();
  // The context menu of the selected node is wanted at that point of the screen.
  void MenuWanted(const QPoint& at);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeFilter(FormBinding& fields);
  void GoToFirstFound();
  void Click(const QModelIndex& index);
  void AskForMenu(const QPoint& at);
  void SyncExpansion();

  Acts& acts_;
  Session& s_;
  NavigationTree* tree_ = nullptr;
  TreeModel* model_ = nullptr;
  bool filtered_ = false;   // some nodes are hidden
  int pressed_again_ = -1;  // the selected node, while the mouse button is down on it
  std::uint64_t seen_revision_ = ~std::uint64_t{0}, seen_expansion_ = ~std::uint64_t{0};
};

}  // namespace merlu
