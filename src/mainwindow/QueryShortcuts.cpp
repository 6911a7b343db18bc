#include "mainwindow/QueryShortcuts.h"

#include "platform/Literals.h"
#include "search/QueryShortcut.h"

namespace {

/// Its own Num, or where its name is found when that says something else; 0 for neither.
int numberOf(const Profile& queries, const QString& name, int count)
{
    const auto isAt = [&](int n) { return QueryNameAt(queries, n).compare(name, Qt::CaseInsensitive) == 0; };
    const int own = BoundedInt(queries.number(name, u"Num", 55), 0, count);
    if (own >= 1 && own <= count && isAt(own)) return own;
    for (int n = 1; n <= count; ++n)
        if (isAt(n)) return n;
    return 0;
}
}

QStringList QueryShortcutNames(const Profile& queries)
{
    QStringList names;
    const int count = QueryCount(queries);
    for (int n = 1; n <= count; ++n) {
        const QString name = QueryNameAt(queries, n);
        if (!name.isEmpty()) names += name;
    }
    return names;
}

std::optional<QueryShortcut> ReadQueryShortcut(const Profile& queries, const QString& name)
{
    QueryShortcut shortcut{.category = queries.read(name, u"Category").trimmed(), .filter = {}};
    if (shortcut.category.isEmpty()) return {};
    QStringList conditions;
    for (const auto key : {u"Query1", u"Query2", u"Query3"}) {
        const QString condition = queries.read(name, key).trimmed();
        if (condition.size() > 1) conditions += condition;
    }
    shortcut.filter = conditions.join(u' ');
    return shortcut;
}

bool DeleteQueryShortcut(const Profile& queries, const QString& name)
{
    const int count = QueryCount(queries), number = numberOf(queries, name, count);
    if (number == 0 || !queries.write(u"Query", u"Count", QString::number(count - 1))) return false;
    bool kept = queries.removeSection(QString::number(number)) && queries.removeSection(name);
    for (int n = number + 1; n <= count; ++n) {
        const QString moved = QueryNameAt(queries, n), place = QString::number(n - 1);
        kept = queries.write(place, u"Name", moved) && queries.removeSection(QString::number(n)) && kept;
        if (!moved.isEmpty()) kept = queries.write(moved, u"Num", place) && kept;
    }
    return kept;
}
