#pragma once

#include <QHeaderView>
#include <algorithm>

/// Gives the columns of a report their widths: those that are told, in average characters and never narrower than the
/// caption; the others share what is left. False when there are no others. Columns have `caption` and `width`.
template<class Columns> bool SizeColumns(QHeaderView& header, const Columns& columns)
{
    const QFontMetrics metrics = header.fontMetrics();
    const int character = metrics.averageCharWidth();
    bool stretches = false;
    for (int i = 0; i < columns.size(); ++i) {
        const auto& column = columns[i];
        stretches |= column.width == 0;
        header.setSectionResizeMode(i, column.width ? QHeaderView::Interactive : QHeaderView::Stretch);
        if (column.width)
            header.resizeSection(
                i, std::max((column.width + 2) * character, metrics.horizontalAdvance(column.caption) + 5 * character));
    }
    return stretches;
}
