#pragma once

#include "ui/SteadyView.h"

#include <QTreeView>

/// A tree of folders of any depth: as wide as the branches in sight need, and scrolled to the name of the current folder.
class FolderView : public SteadyView<QTreeView> {
public:
    explicit FolderView(QWidget* parent = nullptr);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
    int sizeHintForColumn(int column) const override;
};
