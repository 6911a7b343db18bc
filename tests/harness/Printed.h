#pragma once

#include <QModelIndex>
#include <QString>

class QAbstractItemView;
class QHeaderView;
class QWidget;

/// What a person reads from a control, as text. Of lists, grids and trees a line per row: cells apart by " | ", padded to
/// the width of their column but for the last; "[x] " and "[ ] " before rows with a check box; two blanks per level of a
/// tree, of which only open branches print. Hidden columns do not. Tabs apart by " | ".
QString Printed(const QWidget& control);
/// One row without padding; empty for an invalid index.
QString PrintedRow(const QAbstractItemView& view, const QModelIndex& index);
/// The first cell, in any column and also in closed branches, that shows `item`. A path of a tree has "/" between levels.
QModelIndex FindPrinted(const QAbstractItemView& view, const QString& item);
/// Null for what has no columns.
QHeaderView* HeaderOf(const QWidget& view);
