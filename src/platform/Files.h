#pragma once

#include <QString>

/// Whether `path` is an existing file. Throws RuntimeError 52 when its folder cannot be reached at all.
bool FileExists(const QString& path);
/// Each throws the error of `FileError` and touches nothing else than what it names.
void DeleteFile(const QString& path);
void CopyFile(const QString& from, const QString& to);
/// The errno with which a folder refuses a new file, 0 when it takes one. It is tried: permissions alone do not tell.
int NewFileError(const QString& folder);

/// The folder of the running program when it is writable or already holds vinora.ini or vinora.db, else
/// $XDG_DATA_HOME/vinora, which is created. No separator at the end.
QString ApplicationFolder(const QString& programFolder);
/// Folder of cdplayer.ini: $XDG_CONFIG_HOME.
QString SystemProfileFolder();
