#pragma once

#include <QAbstractItemView>
#include <QResizeEvent>
#include <QScrollBar>

/// A view of which one row stays selected: a click or a drag on the blank beside the rows changes nothing, and Ctrl does
/// not take the row away. A row in view stays in view when the window shrinks. `View` is QTreeView or QTableView.
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

    void resizeEvent(QResizeEvent* event) override
    {
        const QModelIndex current = View::currentIndex();
        const QRect row = View::visualRect(current);
        const bool seen = current.isValid() && row.bottom() >= 0 && row.top() < event->oldSize().height();
        const int left = View::horizontalScrollBar()->value();
        View::resizeEvent(event);
        if (!seen || event->size().height() >= event->oldSize().height()) return;
        View::scrollTo(current);
        View::horizontalScrollBar()->setValue(left);
    }
};
