#include "store/Compaction.h"

#include "platform/Files.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>

namespace {

/// A temporary that is there already may be all that is left of a database: it stays, under a name that is free.
void setAside(const QString& temporary)
{
    if (!FileExists(temporary)) return;
    const QString name = temporary.chopped(3); // ".db"
    QString free;
    for (int i = 1; free.isEmpty() || QFileInfo::exists(free); ++i) free = name + u"-%1.db"_s.arg(i);
    if (std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(free).constData()) != 0)
        throw FileError(errno, temporary);
}

}

void CompactDatabases(Program& program)
{
    const std::array<std::pair<QString, QString>, 3> files{
        std::pair{program.shared.MainDBPath, program.applicationFolder + u"/~vinora.db"_s},
        std::pair{program.shared.FilesDBPath, program.applicationFolder + u"/~vinora_files.db"_s},
        std::pair{program.shared.TracksDBPath, program.applicationFolder + u"/~vinora_tracks.db"_s},
    };
    program.engine.ReleaseAll();
    for (const auto& file : files) setAside(file.second);
    try {
        for (const auto& [database, temporary] : files) program.engine.CompactDatabase(database, temporary);
    } catch (const RuntimeError&) {
        for (const auto& file : files) QFile::remove(file.second);
        throw;
    }
    for (const auto& [database, temporary] : files) {
        DeleteFile(database);
        CopyFile(temporary, database);
        DeleteFile(temporary);
    }
}
