#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

#include <array>

/// One physical disc of a row of a catalogue that keeps lists.
struct DiscOfRow {
    qint64 key = 0; ///< of the row
    int disc = 1;   ///< 1 to 6
};

/// The database that keeps the lists of this catalogue. Only for catalogues that have lists.
Database ListDatabase(const Program& program, const CatalogueKind& kind);
/// Names of the lists of disc 1 to 6 of a row, empty where there is none. All empty for a catalogue without lists.
std::array<QString, 6> ListsOfDisc(const Database& main, const CatalogueKind& kind, qint64 key);
/// Whether a disc of any row has the list `id`.
bool ListHasOwner(const Database& main, const CatalogueKind& kind, const QString& id);
/// Makes an empty list named `id`, in place of one that no row owns. False, and nothing made, when a row owns that one.
bool CreateList(const Database& lists, const Database& main, const CatalogueKind& kind, const QString& id);
/// Writes fields of one row, which must be there (error 3021).
void SetFields(const Database& main, const CatalogueKind& kind, qint64 key, const QHash<QString, Value>& fields);
/// Drops the list `id`, which may be gone already, and takes it from its row. The binding stays, and so do counts.
void DeleteList(const Database& lists, const Database& main, const CatalogueKind& kind, DiscOfRow disc,
                const QString& id);
/// Drops the list of one disc; a list that is gone already is no error. An empty id does nothing.
void DropList(const Database& lists, const QString& id);
/// Names that a list cannot have in this database: the filter tables and SQLite's own.
bool ReservedListName(QStringView id);
