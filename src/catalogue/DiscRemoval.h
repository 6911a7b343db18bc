#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

/// Deletes a disc with all that hangs on it, and stamps the catalogue: the lists of its set and the row, and the cover of
/// its number once these are committed. A row or a list that is gone already is no error. False, and nothing is deleted, for a
/// disc that is marked as lent: its loan could never be closed by its catalogue.
bool RemoveDisc(const Program& program, const CatalogueKind& kind, qint64 key);
