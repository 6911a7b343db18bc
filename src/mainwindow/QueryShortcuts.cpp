#include "mainwindow/QueryShortcuts.h"

#include "platform/Literals.h"

namespace {
constexpr int buffer = 55;
constexpr int most = 1000; ///< a list bar is no place for more; keeps a damaged count from filling it

int countOf(const Profile& queries) { return BoundedInt(queries.number(u"Query", u"Count", buffer), 0, most); }

QString nameOf(const Profile& queries, int number)
{
    return queries.read(QString::number(number), u"Name", buffer).trimmed();
}

/// Its own Num, or where its name is found when that says something else; 0 for neither.
int numberOf(const Profile& queries, const QString& name, int count)
{
    const auto isAt = [&](int n) { return nameOf(queries, n).compare(name, Qt::CaseInsensitive) == 0; };
    const int own = BoundedInt(queries.number(name, u"Num", buffer), 0, most);
    if (own >= 1 && own <= count && isAt(own)) return own;
    for (int n = 1; n <= count; ++n)
        if (isAt(n)) return n;
    return 0;
}
}

QStringList QueryShortcutNames(const Profile& queries)
{
    QStringList names;
    const int count = countOf(queries);
    for (int n = 1; n <= count; ++n) {
        const QString name = nameOf(queries, n);
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
    const int count = countOf(queries), number = numberOf(queries, name, count);
    if (number == 0 || !queries.write(u"Query", u"Count", QString::number(count - 1))) return false;
    bool kept = queries.removeSection(QString::number(number)) && queries.removeSection(name);
    for (int n = number + 1; n <= count; ++n) {
        const QString moved = nameOf(queries, n), place = QString::number(n - 1);
        kept = queries.write(place, u"Name", moved) && queries.removeSection(QString::number(n)) && kept;
        if (!moved.isEmpty()) kept = queries.write(moved, u"Num", place) && kept;
    }
    return kept;
}
