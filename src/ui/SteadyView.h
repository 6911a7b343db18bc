#pragma once

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QScrollBar>

/// A view of which one row stays selected: a click or a drag on the blank beside the rows changes nothing, and Ctrl does
/// not take the row away. A row in view stays in view when the window shrinks. `View` is QTreeView or QTableView. What
/// happens to rows is told to the subclass.
template<class View> class SteadyView : public View {
public:
    using View::View;

    /// A model that begins anew takes the current row away without a word from the view.
    void reset() override
    {
        View::reset();
        if (std::exchange(m_hasRow, false)) rowChanged(-1);
    }

protected:
    /// Another row became current, -1 for none.
    virtual void rowChanged(int) {}
    virtual void rowDoubleClick(int) {}
    /// Widths and heights follow the letters.
    virtual void sizeColumns() {}

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
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override
    {
        View::currentChanged(current, previous);
        m_hasRow = current.isValid();
        if (current.row() != previous.row()) rowChanged(current.row());
    }
    void changeEvent(QEvent* event) override
    {
        View::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) sizeColumns();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        View::mouseDoubleClickEvent(event);
        const QModelIndex index = this->indexAt(event->position().toPoint());
        if (event->button() == Qt::LeftButton && index.isValid()) rowDoubleClick(index.row());
    }

private:
    bool m_hasRow = false;
};
