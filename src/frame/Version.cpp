#include "frame/Version.h"

QString ProgramTitle(const QString& version) { return u"vinora "_s + version.section(u'.', 0, 1); }

QString VersionLine(const QString& version)
{
    return u"%1 build %2"_s.arg(ProgramTitle(version), version.section(u'.', 2, 2));
}
