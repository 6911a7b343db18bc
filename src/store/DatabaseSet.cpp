#include "store/DatabaseSet.h"

#include "frame/Fault.h"
#include "frame/Settings.h"

#include <cstdlib>

namespace {

constexpr QStringView Section = u"Option", Key = u"PathLocalDB";
constexpr int LongestPath = 254;

}

void SetFilePaths(Program& program)
{
    program.shared.HelpFilePath = program.applicationFolder + u"/vinora.chm"_s;
    program.shared.IniFilePath = program.applicationFolder + u"/vinora.ini"_s;
    program.shared.QueryIniFilePath = program.applicationFolder + u"/query.ini"_s;
    UseDatabaseFolder(program, LocalDatabaseFolder(program));
}

void UseDatabaseFolder(Program& program, const QString& folder)
{
    program.shared.MainDBPath = folder + u"/vinora.db"_s;
    program.shared.FilesDBPath = folder + u"/vinora_files.db"_s;
    program.shared.TracksDBPath = folder + u"/vinora_tracks.db"_s;
}

QString LocalDatabaseFolder(const Program& program)
{
    const QString folder = ReadPathLocalDB(program);
    return folder.isEmpty() ? program.applicationFolder : folder;
}

void RestoreDatabaseFolder(Program& program)
{
    // A missing key means the application folder too.
    if (!WritePathLocalDB(program, program.applicationFolder)) program.settings().removeKey(Section, Key);
    UseDatabaseFolder(program, program.applicationFolder);
}

QString MainDatabaseFolder(const Program& program)
{
    const QString& path = program.shared.MainDBPath;
    return path.left(path.lastIndexOf(u'/'));
}

void OfferToRestoreFolder(Program& program, const QString& complaint)
{
    if (!program.dialogs.Ask(complaint + u"\n\nВосстановить путь к локальной базе данных?"_s, Box::Warning))
        EndProcess(program, EXIT_SUCCESS);
    RestoreDatabaseFolder(program);
}

QString ReadPathLocalDB(const Program& program) { return DecodePath(program.settings().read(Section, Key)); }

bool WritePathLocalDB(const Program& program, const QString& folder)
{
    const QString stored = EncodePath(folder);
    return stored.size() <= LongestPath && program.settings().write(Section, Key, stored);
}
