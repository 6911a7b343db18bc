#include "search/QueryShortcut.h"

#include "frame/Text.h"
#include "platform/CodePage1251.h"

#include <algorithm>

namespace {

constexpr int NameBuffer = 55;
constexpr int MostShortcuts = 1000; // keeps a damaged count from costing minutes

const auto Head = u"Query"_s; // section of the count

bool sameName(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

/// 0 when there is none of that name.
int numberOf(const Profile& queries, const QString& name)
{
    const int count = QueryCount(queries);
    for (int n = 1; n <= count; ++n)
        if (sameName(QueryNameAt(queries, n), name)) return n;
    return 0;
}

QString conditionKey(int i) { return Head + QString::number(i + 1); }

QString unquoted(QString value)
{
    const QChar apostrophe = u'\'', doubled = QChar::Null;
    value.replace(u"''"_s, QString(doubled));
    for (const QString& mark : {u"'*"_s, u"*'"_s, u"'"_s}) value.remove(mark);
    return value.replace(doubled, apostrophe);
}

} // namespace

int QueryCount(const Profile& queries)
{
    return BoundedInt(queries.number(Head, u"Count", NameBuffer), 0, MostShortcuts);
}

QString QueryNameAt(const Profile& queries, int number)
{
    return queries.read(QString::number(number), u"Name", NameBuffer).trimmed();
}

QStringList QueryFields(const CatalogueKind& kind)
{
    QStringList fields{NumberField, u"Название"_s};
    if (kind.album) fields += u"Альбом"_s;
    return fields += kind.dictionary.table;
}

QStringList QueryComparisons(const QString& field)
{
    QStringList comparisons{u"="_s, u"LIKE"_s};
    if (field == NumberField) comparisons += {u"<"_s, u">"_s};
    return comparisons;
}

bool FromDictionary(const CatalogueKind& kind, const QString& field) { return field == kind.dictionary.table; }

QString QueryFragment(const QueryCondition& condition)
{
    const QString head = u"And "_s + condition.field + u' ' + condition.comparison + u' ';
    if (condition.field == NumberField) return head + condition.value.trimmed();
    const QString text = CleanText(condition.value).replace(u'\'', u"''"_s);
    return head + (condition.comparison == u"LIKE" ? u"'*"_s + text + u"*'"_s : u'\'' + text + u'\'');
}

std::optional<QueryCondition> SplitQueryFragment(const QString& fragment)
{
    QString rest = fragment.trimmed();
    const auto word = [&rest] {
        const QString first = rest.section(u' ', 0, 0);
        rest = rest.mid(first.size() + 1);
        return first;
    };
    if (rest.startsWith(u"And ", Qt::CaseInsensitive)) word();
    QueryCondition condition;
    condition.field = word();
    condition.comparison = word();
    if (condition.comparison.isEmpty() || rest.isEmpty()) return {};
    condition.value = unquoted(rest);
    return condition;
}

QString QueryName(const QString& entered)
{
    QString name = DecodeCp1251(EncodeCp1251(CleanText(entered))).trimmed();
    // A value loses them when it is read.
    while (name.size() > 1 && name.startsWith(u'\'') && name.endsWith(u'\''))
        name = name.sliced(1).chopped(1).trimmed();
    return name;
}

QString NewQueryName(const Profile& queries)
{
    for (int n = QueryCount(queries) + 1;; ++n)
        if (const QString name = u"Запрос%1"_s.arg(n); !QueryNameTaken(queries, name)) return name;
}

bool QueryNameTaken(const Profile& queries, const QString& name, const QString& except)
{
    const bool numeric = std::ranges::all_of(name, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (numeric || sameName(name, Head)) return true;
    return !sameName(name, except) && numberOf(queries, name) != 0;
}

std::optional<StoredQuery> ReadStoredQuery(const Profile& queries, const QString& name)
{
    StoredQuery query{.name = name, .category = queries.read(name, u"Category").trimmed()};
    if (query.category.isEmpty()) return {};
    for (int i = 0; i < Conditions; ++i) query.conditions[i] = SplitQueryFragment(queries.read(name, conditionKey(i)));
    return query;
}

bool StoreQuery(const Profile& queries, const StoredQuery& query, const QString& replaced)
{
    int number = replaced.isEmpty() ? 0 : numberOf(queries, replaced);
    bool kept = true;
    const auto write = [&](const QString& section, const QString& key, const QString& value) {
        kept = queries.write(section, key, value) && kept;
    };
    const bool added = number == 0;
    if (added) number = QueryCount(queries) + 1;
    // The count last: a shortcut is there when all of it is. The old name goes when the new one stands.
    write(QString::number(number), u"Name"_s, query.name);
    write(query.name, u"Num"_s, QString::number(number));
    write(query.name, u"Category"_s, query.category);
    for (int i = 0; i < Conditions; ++i)
        write(query.name, conditionKey(i), query.conditions[i] ? QueryFragment(*query.conditions[i]) : QString());
    if (added) write(Head, u"Count"_s, QString::number(number));
    if (kept && !added && !sameName(replaced, query.name)) kept = queries.removeSection(replaced);
    return kept;
}
