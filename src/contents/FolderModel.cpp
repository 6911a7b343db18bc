#include "contents/FolderModel.h"

#include "ui/Icons.h"

void FolderModel::setNodes(const QList<FolderNode>& nodes)
{
    beginResetModel();
    m_nodes = nodes;
    m_children = QList<QList<int>>(nodes.size() + 1);
    m_rows = QList<int>(nodes.size());
    for (int i = 0; i < nodes.size(); ++i) {
        QList<int>& siblings = m_children[nodes[i].parent + 1];
        m_rows[i] = int(siblings.size());
        siblings += i;
    }
    endResetModel();
}

QModelIndex FolderModel::indexOf(int node) const { return createIndex(m_rows[node], 0, quintptr(node)); }

int FolderModel::find(const QString& path) const
{
    for (int node = 0; node < m_nodes.size(); ++node)
        if (FolderPathOf(m_nodes, node) == path) return node;
    return -1;
}

QModelIndex FolderModel::index(int row, int column, const QModelIndex& parent) const
{
    const QList<int>& siblings = children(nodeAt(parent));
    if (row < 0 || row >= siblings.size() || column != 0) return {};
    return createIndex(row, column, quintptr(siblings[row]));
}

QModelIndex FolderModel::parent(const QModelIndex& index) const
{
    const int parent = index.isValid() ? m_nodes[nodeAt(index)].parent : -1;
    return parent < 0 ? QModelIndex() : indexOf(parent);
}

int FolderModel::rowCount(const QModelIndex& parent) const { return int(children(nodeAt(parent)).size()); }

QVariant FolderModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const FolderNode& node = m_nodes[nodeAt(index)];
    if (role == Qt::DisplayRole) return node.text;
    if (role == Qt::DecorationRole) return icon(node.root ? u"folder-root"_s : u"folder"_s);
    return {};
}
