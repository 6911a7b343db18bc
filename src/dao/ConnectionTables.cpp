#include "dao/Connection.h"
#include "dao/DBEngine.h"

#include <QDir>
#include <sqlite3.h>

using namespace DaoErrorNumber;

void Connection::forgetTables()
{
    m_namesVersion = -1;
    m_tables.clear();
}

void Connection::readTableNames()
{
    const auto version = prepare(u"PRAGMA schema_version"_s);
    const Running reading(*version);
    const qint64 current = version->step() ? version->integer(0) : 0;
    if (current == m_namesVersion) return;
    forgetTables();
    m_tableNames.clear();
    m_namesByFolded.clear();
    // Virtual tables, which a file from elsewhere may hold, have no page of their own.
    const auto names = prepare(u"SELECT name FROM sqlite_schema WHERE type='table' AND rootpage>0 "
                               u"AND substr(name,1,7)<>'sqlite_' ORDER BY rowid"_s);
    const Running running(*names);
    while (names->step()) {
        m_tableNames += names->text(0);
        m_namesByFolded.insert(m_tableNames.last().toLower(), m_tableNames.last());
    }
    m_namesVersion = current;
}

bool Connection::hasTable(QStringView name)
{
    const QString folded = name.toString().toLower();
    if (m_namesVersion >= 0 && m_namesByFolded.contains(folded)) return true;
    readTableNames();
    return m_namesByFolded.contains(folded);
}

QString Connection::tableNamed(QStringView name)
{
    if (hasTable(name)) return m_namesByFolded.value(name.toString().toLower());
    throw RuntimeError(TableNotFound,
                       u"В базе данных «%1» нет таблицы «%2»."_s.arg(QDir::toNativeSeparators(path()), name));
}

QStringList Connection::tableNames()
{
    readTableNames();
    return m_tableNames;
}

std::shared_ptr<const TableInfo> Connection::table(const QString& name)
{
    if (const auto known = m_tables.constFind(name); known != m_tables.constEnd()) return *known;
    auto info = std::make_shared<TableInfo>();
    info->name = name;
    Statement columns(m_file, u"PRAGMA table_info(%1)"_s.arg(QuotedName(name)));
    while (columns.step()) {
        const QString field = columns.text(1), declared = columns.text(2);
        if (columns.integer(5) == 1 && declared.compare(u"INTEGER", Qt::CaseInsensitive) == 0)
            info->key = static_cast<int>(info->fields.size());
        info->fields.append({field, name, field, DeclaredType(declared)});
        info->defaults += columns.text(4);
    }
    if (info->key >= 0) {
        int counter = 0;
        sqlite3_table_column_metadata(m_file.handle(), "main", name.toUtf8().constData(),
                                      info->fields[info->key].name.toUtf8().constData(), nullptr, nullptr, nullptr,
                                      nullptr, &counter);
        info->counter = counter != 0;
    }
    m_tables.insert(name, info);
    return info;
}

QStringList Connection::fieldsOf(const QString& name)
{
    QStringList names;
    for (const FieldInfo& field : table(name)->fields) names += field.name;
    return names;
}

void Connection::createTable(const TableDef& definition)
{
    if (hasTable(definition.name))
        throw RuntimeError(TableExists, u"В базе данных «%1» уже есть таблица «%2»."_s.arg(
                                            QDir::toNativeSeparators(path()), definition.name));
    if (definition.name.isEmpty() || definition.name.startsWith(u"sqlite_", Qt::CaseInsensitive) ||
        definition.name.contains(QChar(0)))
        throw RuntimeError(NotAName, u"«%1» не может быть именем таблицы."_s.arg(definition.name));
    writing([&] {
        m_file.execute("SAVEPOINT creating");
        try {
            for (const QString& statement : CreateStatements(definition)) m_file.execute(statement);
        } catch (const RuntimeError&) {
            sqlite3_exec(m_file.handle(), "ROLLBACK TO creating; RELEASE creating", nullptr, nullptr, nullptr);
            throw;
        }
        m_file.execute("RELEASE creating");
    });
    forgetTables();
}

void Connection::dropTable(const QString& name)
{
    if (!hasTable(name))
        throw RuntimeError(NoSuchItem,
                           u"В базе данных «%1» нет таблицы «%2»."_s.arg(QDir::toNativeSeparators(path()), name));
    const QString real = tableNamed(name);
    writing([&] { m_file.execute(u"DROP TABLE %1"_s.arg(QuotedName(real))); });
    forgetTables();
    m_counters.remove(real);
}

qint64 Connection::nextCounter(const TableInfo& table)
{
    // The table's own highest number counts only while no row was ever numbered by the engine.
    const auto sequence = prepare(u"SELECT seq FROM sqlite_sequence WHERE name=?"_s);
    const Running running(*sequence);
    sequence->bind(1, Value(table.name));
    const qint64 stored = sequence->step() ? sequence->integer(0) : 0;
    qint64& given = m_counters[table.name];
    given = std::max(given, stored) + 1;
    return given;
}
