#pragma once

#include "frame/Program.h"

/// The three paths for databases in `folder`.
void UseDatabaseFolder(Program& program, const QString& folder);
/// The folder of PathLocalDB, else the application folder.
QString LocalDatabaseFolder(const Program& program);
/// Writes the application folder to PathLocalDB and uses it.
void RestoreDatabaseFolder(Program& program);

/// PathLocalDB as it is stored: characters that the settings' code page lacks are percent-encoded.
QString ReadPathLocalDB(const Program& program);
/// False, and nothing is written, when the path cannot be stored in 254 characters.
bool WritePathLocalDB(const Program& program, const QString& folder);
