#include "desktop/tree_panel.h"

#include <QMouseEvent>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

#include "desktop/fields.h"
#include "session/main_names.h"
#include "shell/sheet_acts.h"

namespace merlu {

TreePanel::TreePanel(Acts& acts, FormBinding& fields, QWidget* parent) : QWidget(parent), acts_(acts), s_(acts.s) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  if (s_.main->Find(names::txtTREE_Filter) != nullptr) MakeFilter(fields);
  tree_ = new NavigationTree(this);
  column->addWidget(tree_, 1);
  tree_->setObjectName(names::tvwTree);
  tree_->setAccessibleName("Navigation tree");
  model_ = new TreeModel(s_.tree, tree_);
  tree_->setModel(model_);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  tree_->setMinimumWidth(80);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& now) { Click(now); });
  // assistive programs select without the keyboard or the mouse
  connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection& now) {
    if (!now.isEmpty()) Click(now.indexes().front());
  });
  tree_->viewport()->installEventFilter(this);
  connect(tree_, &QTreeView::expanded, this, [this](const QModelIndex& index) {
    if (!acts_.IsDrawing()) s_.tree.nodes[static_cast<std::size_t>(TreeModel::NodeOf(index))].expanded = true;
  });
  connect(tree_, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
    if (!acts_.IsDrawing()) s_.tree.nodes[static_cast<std::size_t>(TreeModel::NodeOf(index))].expanded = false;
  });
  connect(tree_, &QTreeView::customContextMenuRequested, this, &TreePanel::AskForMenu);
  connect(tree_, &NavigationTree::Opened, this, &TreePanel::Opened);
}

// A line that hides the nodes that do not match. Enter and Down move on to the tree.
void TreePanel::MakeFilter(FormBinding& fields) {
  fields.LeaveOutMarks();
  Bound& filter = fields.AddField(s_.main->At(names::txtTREE_Filter), this, false);
  layout()->addWidget(filter.row);
  auto* line = static_cast<QLineEdit*>(filter.widget);
  line->setPlaceholderText(tr("Find in the tree"));
  line->setAccessibleName(tr("Find in the tree"));
  AddClearButton(*line);
  // a large tree is searched when the typing pauses
  constexpr int kPause = 150;  // milliseconds
  auto* pause = new QTimer(line);
  pause->setSingleShot(true);
  pause->setInterval(kPause);
  connect(line, &QLineEdit::textChanged, pause, [this, pause] {
    if (!acts_.IsDrawing()) pause->start();
  });
  connect(pause, &QTimer::timeout, this,
          [this] { acts_.Do([&] { return act::LostFocus(s_.desk, *s_.main, names::txtTREE_Filter); }); });
  fields.enter = [this](QWidget*) {
    tree_->setFocus(Qt::TabFocusReason);
    GoToFirstFound();
    return true;
  };
}

// When the filter hides the selected node, the first one that it leaves is selected.
void TreePanel::GoToFirstFound() {
  const auto& nodes = s_.tree.nodes;
  const auto is_hidden = [&](int node) { return nodes[static_cast<std::size_t>(node)].hidden; };
  if (s_.tree.selected < 0 || !is_hidden(s_.tree.selected)) return;
  for (const int node : s_.tree.InOrder()) {
    const std::vector<int>& below = nodes[static_cast<std::size_t>(node)].children;
    if (is_hidden(node) || !std::all_of(below.begin(), below.end(), is_hidden)) continue;
    return tree_->setCurrentIndex(model_->IndexOf(node));
  }
}

// ---- acts ----

void TreePanel::Click(const QModelIndex& index) {
  const int node = TreeModel::NodeOf(index);
  if (acts_.IsDrawing() || node < 0 || !s_.tree.enabled || node == s_.tree.selected) return;
  acts_.Run([&] { ClickNode(s_, node); });
}

// A click on the selected node clicks it again; the selection model reports no change then.
bool TreePanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tree_->viewport() && event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QModelIndex index = tree_->indexAt(mouse->position().toPoint());
    const int node = TreeModel::NodeOf(index);
    const bool on_text = index.isValid() && tree_->visualRect(index).contains(mouse->position().toPoint());
    if (mouse->button() == Qt::LeftButton && on_text && node == pressed_again_ && s_.tree.enabled)
      acts_.Run([&] { ClickNode(s_, node); });
    pressed_again_ = -1;
  }
  if (watched == tree_->viewport() && event->type() == QEvent::MouseButtonPress) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const int node = TreeModel::NodeOf(tree_->indexAt(mouse->position().toPoint()));
    pressed_again_ = node >= 0 && node == s_.tree.selected ? node : -1;
  }
  return QWidget::eventFilter(watched, event);
}

void TreePanel::Step(int step) {
  const QModelIndex now = tree_->currentIndex();
  if (!s_.tree.enabled || !now.isValid()) return;
  // collapsed nodes are opened on the way
  if (step > 0) {
    tree_->expand(now);
    if (const QModelIndex next = tree_->indexBelow(now); next.isValid()) tree_->setCurrentIndex(next);
    return;
  }
  QModelIndex before = tree_->indexAbove(now);
  while (before.isValid() && before != now.parent() && model_->hasChildren(before) && !tree_->isExpanded(before)) {
    tree_->expand(before);
    before = tree_->indexAbove(now);
  }
  if (before.isValid()) tree_->setCurrentIndex(before);
}

void TreePanel::AskForMenu(const QPoint& at) {
  if (!s_.tree.enabled) return;
  const int node = TreeModel::NodeOf(tree_->indexAt(at));
  if (node >= 0 && node != s_.tree.selected) acts_.Run([&] { ClickNode(s_, node); });
  emit MenuWanted(tree_->viewport()->mapToGlobal(at));
}

// ---- drawing ----

void TreePanel::SyncExpansion() {
  const bool filtered =
      std::any_of(s_.tree.nodes.begin(), s_.tree.nodes.end(), [](const TreeNode& n) { return n.hidden; });
  if (filtered || filtered_) {
    for (std::size_t node = 0; node < s_.tree.nodes.size(); ++node) {
      const QModelIndex index = model_->IndexOf(static_cast<int>(node));
      tree_->setRowHidden(index.row(), index.parent(), s_.tree.nodes[node].hidden);
    }
    filtered_ = filtered;
  }
  // what was found is expanded, unless it is too much to look through
  constexpr std::ptrdiff_t kFew = 500;
  const bool expands = filtered && std::count_if(s_.tree.nodes.begin(), s_.tree.nodes.end(),
                                                 [](const TreeNode& n) { return !n.hidden; }) <= kFew;
  for (std::size_t node = 0; node < s_.tree.nodes.size(); ++node) {
    if (s_.tree.nodes[node].children.empty()) continue;
    const QModelIndex index = model_->IndexOf(static_cast<int>(node));
    const bool expanded = s_.tree.nodes[node].expanded || (expands && !s_.tree.nodes[node].hidden);
    if (tree_->isExpanded(index) != expanded) tree_->setExpanded(index, expanded);
  }
}

void TreePanel::Sync() {
  if (seen_revision_ != s_.tree.revision) {
    model_->Reset();
    seen_revision_ = s_.tree.revision;
    seen_expansion_ = ~std::uint64_t{0};
  }
  if (seen_expansion_ != s_.tree.expansion) {
    SyncExpansion();
    seen_expansion_ = s_.tree.expansion;
  }
  const QModelIndex selected = model_->IndexOf(s_.tree.selected);
  if (tree_->currentIndex() != selected) {
    tree_->setCurrentIndex(selected);
    if (selected.isValid()) tree_->scrollTo(selected);
  }
  tree_->setEnabled(s_.tree.enabled);
}

}  // namespace merlu
