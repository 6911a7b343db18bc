#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

#include <array>

/// The database that keeps the lists of this catalogue. Only for catalogues that have lists.
Database ListDatabase(const Program& program, const CatalogueKind& kind);
/// Names of the lists of disc 1 to 6 of a row, empty where there is none. All empty for a catalogue without lists.
std::array<QString, 6> ListsOfDisc(const Database& main, const CatalogueKind& kind, qint64 key);
/// Drops the list of one disc; a list that is gone already is no error. An empty id does nothing.
void DropList(const Database& lists, const QString& id);
/// Names that a list cannot have in this database: the filter tables and SQLite's own.
bool ReservedListName(QStringView id);
