#pragma once

#include "frame/Program.h"

class Form;

/// What a double click on a file does: the setting FilesAction.
enum class FilesAction { ShowFolder, StartFile };
FilesAction ReadFilesAction(const Program& program);

/// The disc that a file is on.
struct FilesDisc {
    std::shared_ptr<Disc> medium;
    QString id;
    QString mountPoint; ///< empty where the desktop has not mounted it
};
/// Hands a file of a disc to the desktop: itself where the desktop has mounted the disc, else a private copy. A large copy
/// shows its progress and can be stopped. What goes wrong is told.
void OpenDiscFile(Program& program, const FilesDisc& disc, const QString& folder, const QString& name);
