#pragma once

#include "store/Summary.h"

#include "frame/Program.h"

/// What the dashboard tells of an external database: the audio and the computer catalogue. Their loans stay 0.
using ExternalSummary = std::array<CatalogueSummary, 2>;

/// The catalogues that an external database is asked for, in the order of an ExternalSummary.
const std::array<const CatalogueKind*, 2>& ExternalCatalogues();

/// Makes the main database at `path` the one on view, whoever it comes from: it is looked through without being written,
/// and MainDBPath and ExternalDBOpen are set once all of it can be shown. Throws what is wrong with it, and has then
/// changed nothing: 3051 the user may not write the file (which is told, although nobody would), the numbers of
/// OpenDatabaseReadOnly, and those of RequireCatalogue.
ExternalSummary ViewExternalDatabase(Program& program, const QString& path);

/// Throws unless the browser of a catalogue can show it: 3078 or 3265 a table or a field of ours is missing, 3061 it is a
/// table without rowids, 3163 it holds more or longer texts than a catalogue can, 3049 it is damaged. Takes a pass over its
/// rows.
void RequireCatalogue(const Database& main, const CatalogueKind& kind);
