// The navigation tree as a model over the session's own nodes; nothing is copied.
#pragma once

#include <QAbstractItemModel>

#include "session/tree.h"

namespace merlu {

class TreeModel : public QAbstractItemModel {
  Q_OBJECT
 public:
  TreeModel(const Tree& tree, QObject* parent) : QAbstractItemModel(parent), tree_(tree) {}

  // The nodes have changed.
  void Reset();
  QModelIndex IndexOf(int node) const;
  static int NodeOf(const QModelIndex& index) { return index.isValid() ? static_cast<int>(index.internalId()) : -1; }

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& = {}) const override { return 1; }
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const std::vector<int>& Children(const QModelIndex& parent) const;
  int RowOf(int node) const;
  const Tree& tree_;
};

}  // namespace merlu
