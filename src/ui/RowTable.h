#pragma once

#include "ui/SteadyView.h"

#include <QTableView>

/// A table of which whole rows are chosen and nothing is edited, for models of any length: no row is read before it comes
/// into view.
class RowTable : public SteadyView<QTableView> {
public:
    explicit RowTable(QWidget* parent = nullptr);
};
