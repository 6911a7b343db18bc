#pragma once

#include "frame/Program.h"

/// Builds databases: 0 the main database and then the two others, 1 the file lists alone, 2 the track lists alone, any
/// other value as 0. What stood at the place of the file and track lists is deleted; an existing main database is a
/// fault. True when the folder turned out to be read-only, which it has then told the user; what was built so far stays.
bool Reanimator(Program& program, int kind);
/// Runs it for each of the three that is missing: a lost main database takes the lists with it, a lost list database only
/// itself. True when one of them told of a read-only folder; error 52 when the folder cannot be reached.
bool CreateMissingDatabases(Program& program);
