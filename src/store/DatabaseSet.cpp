#include "store/DatabaseSet.h"

#include "frame/Fault.h"
#include "platform/CodePage1251.h"

#include <QUrl>
#include <cstdlib>

namespace {

constexpr QStringView Section = u"Option", Key = u"PathLocalDB";
constexpr int LongestPath = 254;

bool isHexDigit(QChar c) { return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f'); }

/// Percent-encodes what a settings file would hurt: characters outside of its code page, control characters, blanks and
/// quotation marks at the ends, and a percent sign that reads like an encoded byte.
QString storable(const QString& path)
{
    QString stored;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const QChar c = path[i];
        const bool atEnd = i == 0 || i == path.size() - 1;
        const bool percent = c == u'%' && i + 2 < path.size() && isHexDigit(path[i + 1]) && isHexDigit(path[i + 2]);
        const QString character = c.isHighSurrogate() && i + 1 < path.size() ? path.mid(i++, 2) : QString(c);
        if (percent || c < u' ' || (atEnd && (c.isSpace() || c == u'"' || c == u'\'')) || !FitsCp1251(character))
            stored += QString::fromLatin1(character.toUtf8().toPercentEncoding({}, "%\"' "));
        else
            stored += character;
    }
    return stored;
}

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

QString ReadPathLocalDB(const Program& program)
{
    return QUrl::fromPercentEncoding(program.settings().read(Section, Key).toUtf8());
}

bool WritePathLocalDB(const Program& program, const QString& folder)
{
    const QString stored = storable(folder);
    return stored.size() <= LongestPath && program.settings().write(Section, Key, stored);
}
