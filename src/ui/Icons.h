#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>

/// An icon of the project's own set, by the name of its file under ui/icons/ without ".svg": "disc-audio", "add", "search".
/// Its two colours follow the application's palette, live; it is sharp at every size and scale. `accent` replaces the
/// second colour. Disabled it is grey; selected it is of one colour, for an accent's ground. An unknown name is a bug of
/// the caller and gives an empty icon.
QIcon icon(const QString& name, const QColor& accent = {});
/// In the accent of a catalogue, as light or as dark as the palette asks for: see Theme::accent.
QIcon catalogueIcon(const QString& name, int accent);
/// All names, for tests.
QStringList iconNames();
