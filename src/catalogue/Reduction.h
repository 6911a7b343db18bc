#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

/// A set that loses its last discs: from `before` discs to `after`, both 1 to 6, of the row with `key`. Bindings of the
/// discs that go stay as they are, so such a disc is still recognised in the drive.
struct Reduction {
    qint64 key;
    int before, after;
};

/// Whether a disc that goes has a list. Never for a catalogue whose sets shrink without further ado.
bool LosesLists(const Database& main, const CatalogueKind& kind, const Reduction& reduction);
/// Put to the user when lists would be lost.
QString ReductionQuestion(const CatalogueKind& kind, const Reduction& reduction);
/// Drops the lists of the discs that go and forgets their names, disc by disc.
void DropLostLists(const Database& main, const Database& lists, const CatalogueKind& kind, const Reduction& reduction);
