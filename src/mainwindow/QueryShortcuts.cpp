#include "mainwindow/QueryShortcuts.h"

#include "platform/Literals.h"

namespace {
constexpr int buffer = 55;
constexpr int most = 1000; ///< a list bar is no place for more; keeps a damaged count from filling it
}

QStringList QueryShortcutNames(const Profile& queries)
{
    const int count = int(qBound(0.0, queries.number(u"Query", u"Count", buffer), double(most)));
    QStringList names;
    for (int n = 1; n <= count; ++n) {
        const QString name = queries.read(QString::number(n), u"Name", buffer).trimmed();
        if (!name.isEmpty()) names += name;
    }
    return names;
}
