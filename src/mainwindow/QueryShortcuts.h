#pragma once

#include "platform/Profile.h"

#include <QStringList>
#include <optional>

// The user's query shortcuts in query.ini:
//
//     [Query]   Count                            how many there are
//     [n]       Name                             of shortcut n, 1 to Count
//     [name]    Num, Category, Query1 to Query3  its n, the catalogue's code, its conditions

/// A filter on a catalogue: conditions "And …" with blanks between them, as they stand; empty when none was formed.
struct QueryShortcut {
    QString category; ///< "AD", "PC" or "DVD"; a file that was edited may say anything
    QString filter;
};

/// Names in their order. A damaged count gives at most a thousand of them.
QStringList QueryShortcutNames(const Profile& queries);
/// Nothing when there is no section of that name, or one without category.
std::optional<QueryShortcut> ReadQueryShortcut(const Profile& queries, const QString& name);
/// Takes a shortcut out and moves those behind it up. False when the file does not say how many there are, does not
/// know the name, or cannot be written.
bool DeleteQueryShortcut(const Profile& queries, const QString& name);
