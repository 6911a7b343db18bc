#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Where one toolbar stands and what it holds.
struct ToolbarPlace {
    QString name; ///< "Каталоги"
    Qt::ToolBarArea area = Qt::TopToolBarArea;
    bool newLine = false; ///< begins a line of its area
    bool visible = true;
    QStringList tools = {}; ///< identifiers of commands, in order

    bool operator==(const ToolbarPlace&) const = default;
};

/// What vinora.atb keeps from exit to start.
struct ToolbarLayout {
    QList<ToolbarPlace> toolbars; ///< in the order of their areas and lines
    bool panel = true;            ///< whether the list bar shows
    QStringList foldedGroups = {};

    bool operator==(const ToolbarLayout&) const = default;
};

/// Nothing for a file that is missing, damaged or of another version: the designed layout stands then. Names that nobody
/// knows are up to the reader of the result.
std::optional<ToolbarLayout> LoadToolbarLayout(const QString& path);
/// Replaces the file in one step. False when it could not be written.
bool SaveToolbarLayout(const QString& path, const ToolbarLayout& layout);
