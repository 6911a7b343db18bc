#pragma once

#include "frame/Program.h"
#include "store/CatalogueKind.h"

/// Deletes a disc with all that hangs on it: the lists of its set, the row and then, the group of writes once committed, the
/// cover of its number; and stamps the catalogue. A row that is gone already is no error. Loans are not looked at: a disc on loan is not to be deleted. A list that is gone already is no error.
void RemoveDisc(const Program& program, const CatalogueKind& kind, qint64 key);
