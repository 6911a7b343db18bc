#pragma once

#include "dao/Schema.h"

/// The tables of the main database in the order in which they are created, without their seed rows.
const QList<TableDef>& MainSchema();
/// Фильтр1 and Фильтр2 of vinora_files.db.
const QList<TableDef>& FilterSchema();
/// Most characters of the fields of lists, of a filter's entry, and of what a catalogue keeps from lists.
namespace FieldLength {
inline constexpr int FileName = 255;
inline constexpr int FolderPath = 255;
inline constexpr int FileSize = 11;
inline constexpr int Comment = 50; ///< of a track, too
inline constexpr int FilterEntry = 255;
inline constexpr int DictionaryName = 50;
inline constexpr int TrackName = 255;
inline constexpr int PlayingTime = 5; ///< of an audio disc
}
/// The list of one computer disc and of one audio disc, named by `id`.
TableDef FileTable(const QString& id);
TableDef TrackTable(const QString& id);

/// Names that a table is filled with when it is new, in order.
struct Seed {
    QString table;
    QString field; ///< that takes the name; the others have their defaults
    QStringList names;
};
const QList<Seed>& MainSeeds();
const QList<Seed>& FilterSeeds();
