#pragma once

#include <QAbstractTableModel>

/// A model of rows and columns whose data functions are never asked outside of them. A subclass says how many there are
/// and what stands in a cell; everything else has its default.
class RowModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const final { return parent.isValid() ? 0 : rows(); }
    int columnCount(const QModelIndex& parent = {}) const final { return parent.isValid() ? 0 : columns(); }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const final
    {
        return holds(index) ? cell(index.row(), index.column(), role) : QVariant();
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) final
    {
        return holds(index) && setCell(index.row(), index.column(), value, role);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const final
    {
        if (orientation != Qt::Horizontal || section < 0 || section >= columns()) return {};
        return caption(section, role);
    }
    Qt::ItemFlags flags(const QModelIndex& index) const final
    {
        return holds(index) ? cellFlags(index.column()) | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
    }

protected:
    virtual int rows() const = 0;
    virtual int columns() const = 0;
    virtual QVariant cell(int row, int column, int role) const = 0;
    virtual bool setCell(int, int, const QVariant&, int) { return false; }
    virtual QVariant caption(int column, int role) const = 0;
    virtual Qt::ItemFlags cellFlags(int) const { return Qt::ItemIsSelectable | Qt::ItemIsEnabled; }

private:
    bool holds(const QModelIndex& index) const
    {
        return index.isValid() && index.model() == this && index.row() < rows() && index.column() < columns();
    }
};
