#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

/// The database that keeps the lists of this catalogue. Only for catalogues that have lists.
Database ListDatabase(const Program& program, const CatalogueKind& kind);
/// Drops the list of one disc; a list that is gone already is no error. An empty id does nothing.
void DropList(const Database& lists, const QString& id);
/// Names that a list cannot have in this database: the filter tables and SQLite's own.
bool ReservedListName(QStringView id);
