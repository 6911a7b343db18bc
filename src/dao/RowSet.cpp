#include "dao/RowSet.h"

#include "dao/DBEngine.h"
#include "dao/Tokens.h"

#include <algorithm>
#include <numeric>

using namespace DaoErrorNumber;

namespace {

constexpr int PageSize = 64;

QList<FieldInfo> columnsOf(const Statement& statement)
{
    QList<FieldInfo> fields;
    for (int i = 0; i < statement.columns(); ++i)
        fields.append({statement.columnName(i), statement.originTable(i), statement.originField(i),
                       DeclaredType(statement.declaredType(i))});
    return fields;
}

Row rowOf(const Statement& statement, const QList<FieldInfo>& fields)
{
    Row row;
    row.reserve(fields.size());
    for (int i = 0; i < fields.size(); ++i) row.append(Shown(fields[i], statement.value(i)));
    return row;
}

/// The table that "name" or "[name]" means; empty for anything longer.
QString tableName(QStringView nameOrSelect)
{
    const QStringView name = nameOrSelect.trimmed();
    if (name.startsWith(u'[') && name.endsWith(u']')) return name.sliced(1, name.size() - 2).toString();
    const bool statement = std::any_of(name.begin(), name.end(), [](QChar c) { return c.isSpace(); }) &&
                           name.startsWith(u"SELECT", Qt::CaseInsensitive);
    return statement ? QString() : name.toString();
}

} // namespace

std::unique_ptr<RowSet> OpenRows(Connection& connection, QStringView nameOrSelect, const QList<Value>& parameters)
{
    if (const QString name = tableName(nameOrSelect); !name.isEmpty()) {
        SelectSql whole;
        whole.sources = {{connection.tableNamed(name), {}}};
        whole.list = u" *"_s;
        whole.from = u' ' + whole.sources.first().sql();
        whole.order = u" ORDER BY _rowid_"_s;
        return std::make_unique<KeyedRows>(connection, whole, parameters, true);
    }
    const SelectSql select = TranslateSelect(nameOrSelect, connection);
    if (select.keyset) return std::make_unique<KeyedRows>(connection, select, parameters, false);
    return std::make_unique<HeldRows>(connection, select.rows(), parameters);
}

KeyedRows::KeyedRows(Connection& connection, SelectSql select, QList<Value> parameters, bool wholeTable)
    : m_connection(connection), m_select(std::move(select)), m_parameters(std::move(parameters)),
      m_rowByKeys(connection.prepare(m_select.rowByKeys(), m_select.sources.first().table))
{
    m_fields = columnsOf(*m_rowByKeys);
    if (!wholeTable)
        readKeys();
    else if (!m_parameters.isEmpty())
        throw RuntimeError(NoSuchParameter,
                           u"Таблица «%1» открывается без параметров."_s.arg(m_select.sources.first().table));
}

void KeyedRows::readKeys()
{
    const auto statement = m_connection.prepare(m_select.keys(), m_select.sources.first().table);
    const Running running(*statement);
    statement->bindAll(m_parameters);
    std::vector<qint64> keys;
    const int width = stride();
    m_ascending = width == 1;
    while (statement->step()) {
        for (int i = 0; i < width; ++i) keys.push_back(statement->integer(i));
        if (m_ascending && keys.size() > 1 && keys[keys.size() - 2] > keys.back()) m_ascending = false;
    }
    m_keys = std::move(keys);
}

int KeyedRows::count()
{
    if (!m_keys) readKeys();
    return static_cast<int>(m_keys->size()) / stride();
}

Row KeyedRows::fetch(int position)
{
    const Running running(*m_rowByKeys);
    for (int i = 0; i < stride(); ++i) m_rowByKeys->bind(i + 1, (*m_keys)[position * stride() + i]);
    return m_rowByKeys->step() ? rowOf(*m_rowByKeys, m_fields) : Row(m_fields.size());
}

void KeyedRows::readPage(int first, int last)
{
    m_page.clear();
    m_pageFirst = first;
    const auto read = [&] {
        for (int i = first; i <= last; ++i) m_page.append(fetch(i));
    };
    if (first == last)
        read();
    else
        m_connection.reading(read);
    m_pageGeneration = m_connection.generation();
}

const Row& KeyedRows::row(int position)
{
    const int rows = count();
    const bool known = m_pageGeneration == m_connection.generation() && position >= m_pageFirst &&
                       position < m_pageFirst + m_page.size();
    // A walk reads ahead; a row looked at on its own is read alone.
    if (!known && position == m_lastRead + 1)
        readPage(position, std::min(position + PageSize, rows) - 1);
    else if (!known && position == m_lastRead - 1)
        readPage(std::max(position - PageSize + 1, 0), position);
    else if (!known)
        readPage(position, position);
    m_lastRead = position;
    return m_page.at(position - m_pageFirst);
}

QList<qint64> KeyedRows::key(int position)
{
    count();
    const auto first = m_keys->cbegin() + position * stride();
    return {first, first + stride()};
}

int KeyedRows::compare(int position, const qint64* key) const
{
    for (int i = 0; i < stride(); ++i) {
        const qint64 own = (*m_keys)[position * stride() + i];
        if (own != key[i]) return own < key[i] ? -1 : 1;
    }
    return 0;
}

int KeyedRows::find(const qint64* key)
{
    const int rows = count();
    if (m_ascending) {
        const auto at = std::lower_bound(m_keys->cbegin(), m_keys->cend(), *key);
        return at != m_keys->cend() && *at == *key ? static_cast<int>(at - m_keys->cbegin()) : -1;
    }
    if (m_byKey.empty() && rows > 0) {
        m_byKey.resize(rows);
        std::iota(m_byKey.begin(), m_byKey.end(), 0);
        std::sort(m_byKey.begin(), m_byKey.end(),
                  [this](int a, int b) { return compare(a, &(*m_keys)[b * stride()]) < 0; });
    }
    const auto at = std::lower_bound(m_byKey.cbegin(), m_byKey.cend(), key, [this](int position, const qint64* wanted) {
        return compare(position, wanted) < 0;
    });
    return at != m_byKey.cend() && compare(*at, key) == 0 ? *at : -1;
}

int KeyedRows::find(const QList<qint64>& key) { return key.size() == stride() ? find(key.constData()) : -1; }

const std::vector<int>& KeyedRows::matches(QStringView criterion, const QList<Value>& parameters)
{
    if (m_foundGeneration == m_connection.generation() && criterion == m_foundCriterion &&
        parameters == m_foundParameters)
        return m_found;

    const QString condition = TranslateCriterion(criterion, m_select.sources, m_connection);
    std::vector<qint64> keys;
    {
        const auto statement = m_connection.prepare(m_select.keys(condition), m_select.sources.first().table,
                                                    MalformedCriterion);
        const Running running(*statement);
        statement->bindAll(m_parameters + parameters);
        while (statement->step())
            for (int i = 0; i < stride(); ++i) keys.push_back(statement->integer(i));
    }
    m_found.clear();
    if (!keys.empty()) count();
    for (std::size_t i = 0; i < keys.size(); i += stride())
        if (const int position = find(&keys[i]); position >= 0) m_found.push_back(position);
    std::sort(m_found.begin(), m_found.end());
    m_foundCriterion = criterion.toString();
    m_foundParameters = parameters;
    m_foundGeneration = m_connection.generation();
    return m_found;
}

const TableInfo* KeyedRows::editable()
{
    if (!m_table && stride() == 1) m_table = m_connection.table(m_select.sources.first().table);
    return m_table.get();
}

void KeyedRows::append(qint64 key)
{
    if (!m_keys) return; // it will be read with the others
    if (!m_keys->empty() && m_keys->back() > key) m_ascending = false;
    m_keys->push_back(key);
    m_byKey.clear();
}

void KeyedRows::remove(int position)
{
    m_keys->erase(m_keys->begin() + position);
    m_byKey.clear();
    m_page.clear();
    m_found.clear();
    m_foundGeneration = 0;
}

void KeyedRows::replace(int position, qint64 key, const Row& row)
{
    if ((*m_keys)[position] != key) {
        (*m_keys)[position] = key;
        m_ascending = false;
        m_byKey.clear();
    }
    // What else the page holds is as it was, when nothing but this row was written since it was read.
    if (m_pageGeneration + 1 != m_connection.generation()) return;
    m_pageGeneration = m_connection.generation();
    if (position >= m_pageFirst && position < m_pageFirst + m_page.size()) m_page[position - m_pageFirst] = row;
}

HeldRows::HeldRows(Connection& connection, const QString& sql, const QList<Value>& parameters)
{
    const auto statement = connection.prepare(sql);
    const Running running(*statement);
    statement->bindAll(parameters);
    m_fields = columnsOf(*statement);
    while (statement->step()) m_rows.append(rowOf(*statement, m_fields));
}

const std::vector<int>& HeldRows::matches(QStringView, const QList<Value>&)
{
    throw RuntimeError(NotSupported, u"В сводных записях поиск по условию невозможен."_s);
}
