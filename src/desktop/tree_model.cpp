#include "desktop/tree_model.h"

#include <algorithm>

namespace merlu {

void TreeModel::Reset() {
  beginResetModel();
  endResetModel();
}

const std::vector<int>& TreeModel::Children(const QModelIndex& parent) const {
  return parent.isValid() ? tree_.nodes[static_cast<std::size_t>(NodeOf(parent))].children : tree_.roots;
}

int TreeModel::RowOf(int node) const {
  const int parent = tree_.nodes[static_cast<std::size_t>(node)].parent;
  const auto& siblings = parent < 0 ? tree_.roots : tree_.nodes[static_cast<std::size_t>(parent)].children;
  return static_cast<int>(std::find(siblings.begin(), siblings.end(), node) - siblings.begin());
}

QModelIndex TreeModel::IndexOf(int node) const {
  if (node < 0 || node >= static_cast<int>(tree_.nodes.size())) return {};
  return createIndex(RowOf(node), 0, static_cast<quintptr>(node));
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
  const auto& children = Children(parent);
  if (column != 0 || row < 0 || row >= static_cast<int>(children.size())) return {};
  return createIndex(row, column, static_cast<quintptr>(children[static_cast<std::size_t>(row)]));
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
  const int node = NodeOf(child);
  return node < 0 || node >= static_cast<int>(tree_.nodes.size())
             ? QModelIndex()
             : IndexOf(tree_.nodes[static_cast<std::size_t>(node)].parent);
}

int TreeModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(Children(parent).size());
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole && role != Qt::ToolTipRole))
    return {};
  return QString::fromStdString(tree_.nodes[static_cast<std::size_t>(NodeOf(index))].text);
}

}  // namespace merlu
