#pragma once

#include "frame/Program.h"

class Form;

/// What a double click on a file does: the setting FilesAction.
enum class FilesAction { ShowFolder, StartFile };
FilesAction ReadFilesAction(const Program& program);

/// Hands a file of the disc in `drive` to the desktop: itself where the desktop has mounted the disc, else a private copy.
/// A large copy shows its progress and can be stopped. `id` is the disc's identifier. What goes wrong is told.
void OpenDiscFile(Program& program, Drive& drive, const QString& id, const QString& folder, const QString& name);
