#pragma once

#include <QAbstractItemView>

/// A view of which one row stays selected: a click or a drag on the blank beside the rows changes nothing, and Ctrl does
/// not take the row away. `View` is QTreeView or QTableView.
template<class View> class SteadyView : public View {
public:
    using View::View;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override
    {
        const auto command = View::selectionCommand(index, event);
        const bool takesAway = command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle);
        return index.isValid() && !takesAway ? command : QItemSelectionModel::NoUpdate;
    }
};
