#include "contents/FolderView.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

static constexpr int RowsMeasured = 200; // those in sight and their neighbours

FolderView::FolderView(QWidget* parent) : SteadyView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setResizeContentsPrecision(RowsMeasured);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { resizeColumnToContents(0); });
}

int FolderView::sizeHintForColumn(int column) const
{
    return std::max(viewport()->width(), SteadyView::sizeHintForColumn(column));
}

void FolderView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    SteadyView::scrollTo(index, hint); // opens the branch
    resizeColumnToContents(0);
    updateGeometries();
    SteadyView::scrollTo(index, hint);
    // The view's own idea of a column that does not fit is its left end, which the name is far from.
    const int left = visualRect(index).left(), right = left + sizeHintForIndex(index).width();
    const int beyond = std::min(right - viewport()->width(), left - indentation());
    if (beyond > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() + beyond);
}
