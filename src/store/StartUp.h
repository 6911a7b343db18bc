#pragma once

#include "frame/Program.h"

/// Creates the databases that are missing. An unreachable folder is told and the application folder offered instead,
/// which goes on there, or else ends the process; all other errors go to the fault routine as those of the entry routine.
/// The splash window may be up meanwhile.
void PrepareDatabases(Program& program);
