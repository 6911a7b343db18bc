#pragma once

#include "frame/Program.h"

/// The three settings files' paths, and the databases' in the user's folder for them: what is known before any of them
/// is looked at.
void SetFilePaths(Program& program);
/// The three paths for databases in `folder`.
void UseDatabaseFolder(Program& program, const QString& folder);
/// The folder of PathLocalDB, else the application folder.
QString LocalDatabaseFolder(const Program& program);
/// Writes the application folder to PathLocalDB and uses it.
void RestoreDatabaseFolder(Program& program);

/// Folder of MainDBPath, as messages about it name it.
QString MainDatabaseFolder(const Program& program);
/// Shows `complaint` about that folder and offers the application folder instead. Yes restores it and returns; No ends
/// the process.
void OfferToRestoreFolder(Program& program, const QString& complaint);

/// PathLocalDB as it is stored: characters that the settings' code page lacks are percent-encoded.
QString ReadPathLocalDB(const Program& program);
/// False, and nothing is written, when the path cannot be stored in 254 characters.
bool WritePathLocalDB(const Program& program, const QString& folder);
