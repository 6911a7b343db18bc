#include "ui/RowTable.h"

#include <QHeaderView>

RowTable::RowTable(QWidget* parent) : SteadyView(parent)
{
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    // Heights that are asked of the contents would read every row.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
}
