#pragma once

#include "mainwindow/Commands.h"
#include "mainwindow/ToolbarLayout.h"

class QComboBox;
class QMainWindow;
class QToolBar;
class QToolButton;
class QWidgetAction;

/// The tools of each toolbar in order, by its name.
using ToolbarTools = QHash<QString, QStringList>;

/// What a toolbar may hold, in the order of the menus. The drive selector has its place on one toolbar only.
QStringList OfferedTools(const ToolbarDef& toolbar);
/// The same without what the toolbar may not hold and without repetitions.
QStringList KnownTools(const ToolbarDef& toolbar, const QStringList& tools);

/// The toolbars of the main window: made as designed, then as the user has them.
class Toolbars {
public:
    Toolbars(QMainWindow& window, const Commands& commands, QComboBox* driveSelector);

    QList<ToolbarPlace> places() const;
    /// What is missing in `places` stays as it is, what nobody knows is passed over.
    void restore(const QList<ToolbarPlace>& places);
    const QList<ToolbarPlace>& designed() const { return m_designed; }

    ToolbarTools tools() const;
    void setTools(const ToolbarTools& tools);

    /// Lets the commands that show and hide toolbars tell what is in sight.
    void tick() const;

private:
    QToolBar* bar(const QString& name) const;
    QAction* action(const QString& id) const;
    void fill(const ToolbarDef& def, const QStringList& tools);

    QMainWindow& m_window;
    const Commands& m_commands;
    QWidgetAction* m_driveSelector;
    QList<ToolbarPlace> m_designed;
};
