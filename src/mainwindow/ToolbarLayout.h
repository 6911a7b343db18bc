#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// What vinora.atb keeps from exit to start.
struct ToolbarLayout {
    QByteArray toolbars; ///< QMainWindow::saveState
    bool panel = true;   ///< whether the list bar shows
    QStringList foldedGroups;

    bool operator==(const ToolbarLayout&) const = default;
};

/// Nothing for a file that is missing, damaged or of another version: the designed layout stands then.
std::optional<ToolbarLayout> LoadToolbarLayout(const QString& path);
/// Replaces the file in one step. False when it could not be written.
bool SaveToolbarLayout(const QString& path, const ToolbarLayout& layout);
