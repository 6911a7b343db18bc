#pragma once

#include "contents/FolderTree.h"

#include <QAbstractItemModel>

/// The nodes of a list's folder tree for a view. Their order among siblings is that of the list.
class FolderModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    void setNodes(const QList<FolderNode>& nodes);
    const QList<FolderNode>& nodes() const { return m_nodes; }
    QModelIndex indexOf(int node) const;
    /// The node that stands for a folder path, -1 without one.
    int find(const QString& path) const;
    /// -1 for an invalid index.
    int nodeAt(const QModelIndex& index) const { return index.isValid() ? int(index.internalId()) : -1; }
    QString pathAt(const QModelIndex& index) const { return FolderPathOf(m_nodes, nodeAt(index)); }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;

private:
    /// Children of a node; those of -1 are the top-level ones.
    const QList<int>& children(int node) const { return m_children[node + 1]; }

    QList<FolderNode> m_nodes;
    QList<QList<int>> m_children{{}};
    QList<int> m_rows; // of each node among its siblings
};
