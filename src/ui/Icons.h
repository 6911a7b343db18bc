#pragma once

#include <QIcon>
#include <QString>

/// An icon of the project's own set, by the name of its file under ui/icons/ without ".svg": "disc-audio", "add", "search".
/// Its two colours follow the palette of the widget that paints it; it is sharp at every size and scale. `accent` replaces
/// the second colour: see Theme.
QIcon icon(const QString& name, const QColor& accent = {});
/// All names, for tests.
QStringList iconNames();
