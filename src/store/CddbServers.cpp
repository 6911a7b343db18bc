#include "store/CddbServers.h"

#include "platform/Literals.h"

const QStringList& CddbServers()
{
    // The first answers today. The names of the old network stand behind it for those who have a mirror under them.
    static const QStringList hosts{u"gnudb.gnudb.org"_s,  u"gnudb.org"_s,         u"freedb.dbpoweramp.com"_s,
                                   u"freedb.freac.org"_s, u"freedb.freedb.org"_s, u"ru.freedb.org"_s,
                                   u"us.freedb.org"_s};
    return hosts;
}

QStringList CddbServerItems()
{
    QStringList items;
    for (const QString& host : CddbServers()) items += u"%1: %2"_s.arg(items.size() + 1).arg(host);
    return items;
}

int ChosenCddbServer(const Profile& settings)
{
    const double stored = settings.number(u"Option", u"ServerCDDB", 5);
    return stored >= 0 && stored < double(CddbServers().size()) ? int(stored) : 0;
}
