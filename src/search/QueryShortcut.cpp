#include "search/QueryShortcut.h"

#include "frame/Text.h"
#include "platform/CodePage1251.h"

#include <algorithm>

namespace {

constexpr int NameBuffer = 55;
constexpr int MostShortcuts = 1000; // keeps a damaged count from costing minutes

const auto Head = u"Query"_s; // section of the count

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool sameName(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

int countOf(const Profile& queries) { return BoundedInt(queries.number(Head, u"Count", NameBuffer), 0, MostShortcuts); }

/// Empty where the file lacks it.
QString nameAt(const Profile& queries, int number)
{
    return queries.read(QString::number(number), u"Name", NameBuffer).trimmed();
}

/// Its own Num, or where its name is found when that says something else; 0 when there is none of that name.
int numberOf(const Profile& queries, const QString& name)
{
    const int count = countOf(queries), own = BoundedInt(queries.number(name, u"Num", NameBuffer), 0, count);
    if (own >= 1 && sameName(nameAt(queries, own), name)) return own;
    for (int n = 1; n <= count; ++n)
        if (sameName(nameAt(queries, n), name)) return n;
    return 0;
}

QString conditionKey(int i) { return Head + QString::number(i + 1); }

QString unquoted(const QString& value, const QString& comparison)
{
    const qsizetype mark = comparison == u"LIKE" ? 2 : 1; // '* or '
    return value.size() < 2 * mark ? QString() : value.sliced(mark).chopped(mark).replace(u"''"_s, u"'"_s);
}

} // namespace

QStringList QueryNames(const Profile& queries)
{
    QStringList names;
    const int count = countOf(queries);
    for (int n = 1; n <= count; ++n)
        if (const QString name = nameAt(queries, n); !name.isEmpty()) names += name;
    return names;
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

std::optional<QueryCondition> SplitQueryFragment(const CatalogueKind& kind, const QString& fragment)
{
    QString rest = fragment.trimmed();
    const auto word = [&rest] {
        const QString first = rest.section(u' ', 0, 0);
        rest = rest.mid(first.size() + 1);
        return first;
    };
    if (rest.startsWith(u"And ", Qt::CaseInsensitive)) word();
    const QString whole = u"And "_s + rest;
    QueryCondition condition;
    condition.field = word();
    condition.comparison = word();
    const bool number = condition.field == NumberField;
    condition.value = number ? rest : unquoted(rest, condition.comparison);
    const bool shown = !condition.value.isEmpty() && QueryFields(kind).contains(condition.field) &&
                       QueryComparisons(condition.field).contains(condition.comparison) &&
                       condition.value.size() <= (number ? LongestQueryNumber : LongestQueryText) &&
                       (!number || std::ranges::all_of(condition.value, isDigit)) && QueryFragment(condition) == whole;
    return shown ? std::optional(condition) : std::nullopt;
}

QString NotKept(const QString& value)
{
    QString lost;
    for (const char32_t code : value.toUcs4())
        if (const QString c = QString::fromUcs4(&code, 1); DecodeCp1251(EncodeCp1251(c)) != c) lost += c;
    return lost;
}

QString StoredQuery::filter() const
{
    QStringList formed;
    for (const QString& fragment : fragments)
        if (fragment.size() > 1) formed += fragment;
    return formed.join(u' ');
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
    for (int n = countOf(queries) + 1;; ++n)
        if (const QString name = u"Запрос%1"_s.arg(n); !QueryNameTaken(queries, name)) return name;
}

bool QueryNameReserved(const QString& name) { return std::ranges::all_of(name, isDigit) || sameName(name, Head); }

bool QueryNameTaken(const Profile& queries, const QString& name, const QString& except)
{
    return !sameName(name, except) && numberOf(queries, name) != 0;
}

std::optional<StoredQuery> ReadStoredQuery(const Profile& queries, const QString& name, int buffer)
{
    StoredQuery query{.name = name, .category = queries.read(name, u"Category").trimmed()};
    if (query.category.isEmpty()) return {};
    for (int i = 0; i < Conditions; ++i) query.fragments[i] = queries.read(name, conditionKey(i), buffer).trimmed();
    return query;
}

bool StoreQuery(const Profile& queries, const StoredQuery& query, const QString& replaced)
{
    int number = replaced.isEmpty() ? 0 : numberOf(queries, replaced);
    const bool added = number == 0;
    if (added) number = countOf(queries) + 1;
    const QString place = QString::number(number);
    Profile::Entries entries{{u"Num"_s, place}, {u"Category"_s, query.category}};
    for (int i = 0; i < Conditions; ++i) entries += {conditionKey(i), query.fragments[i]};
    // The count last: a shortcut is there when all of it is. The old name goes when the new one stands.
    if (!queries.write(query.name, entries) || !queries.write(place, u"Name", query.name)) return false;
    if (added) return queries.write(Head, u"Count", place);
    return sameName(replaced, query.name) || queries.removeSection(replaced);
}

bool DeleteQuery(const Profile& queries, const QString& name)
{
    const int count = countOf(queries), number = numberOf(queries, name);
    if (number == 0) return false;
    // A name that stands twice for a moment is seen, one that is missing is lost: the others move up first.
    for (int n = number + 1; n <= count; ++n) {
        const QString moved = nameAt(queries, n), place = QString::number(n - 1);
        if (!queries.write(place, u"Name", moved)) return false;
        if (!moved.isEmpty() && !queries.write(moved, u"Num", place)) return false;
    }
    return queries.write(Head, u"Count", QString::number(count - 1)) && queries.removeSection(QString::number(count)) &&
           queries.removeSection(name);
}
