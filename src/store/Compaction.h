#pragma once

#include "frame/Program.h"

/// Compacts the three databases by way of ~vinora.db, ~vinora_files.db and ~vinora_tracks.db in the application folder.
/// All three copies are complete before the first database is touched; then each is deleted, its copy put in its place
/// and the copy deleted. Nobody may have a database open. Throws what the engine and the file system say, and leaves no
/// copies when no database was touched; between the deletion of a database and the end of its copying the only copy is the
/// temporary one. Such a one from an earlier run is kept as ~vinora-1.db and so on.
void CompactDatabases(Program& program);
