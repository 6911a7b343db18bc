#include "dao/TableReader.h"

#include "dao/Collation.h"
#include "dao/Connection.h"
#include "dao/Like.h"

#include <sqlite3.h>

namespace {

/// The tables are not looked at: names of fields stand for themselves.
struct NamesAsWritten final : Names {
    QString tableNamed(QStringView name) override { return name.toString(); }
    QStringList fieldsOf(const QString&) override { return {}; }
};

} // namespace

Selection::Selection(const QStringList& fields, QStringView criterion)
{
    QStringList quoted;
    for (const QString& field : fields) quoted += QuotedName(field);
    m_fields = quoted.join(u',');
    NamesAsWritten names;
    if (!criterion.isEmpty()) m_where = u" WHERE "_s + TranslateCriterion(criterion, {}, names);
}

QString Selection::select(const QString& table) const
{
    return u"SELECT "_s + m_fields + u" FROM main."_s + QuotedName(table) + m_where;
}

qint64 TableReader::Row::number(int field) const { return m_statement.integer(field); }
std::string_view TableReader::Row::text(int field) const { return m_statement.bytes(field); }

TableReader::TableReader(const Database& database) : m_database(database), m_path(database.path())
{
    m_database.m_connection->commit();
}

TableReader::~TableReader() = default;

void TableReader::openFile()
{
    auto file = std::make_unique<SqliteFile>(m_path, SQLITE_OPEN_READONLY);
    file->restrictUse();
    // Virtual tables are code, and no lists.
    sqlite3_drop_modules(file->handle(), nullptr);
    RegisterCollation(file->handle());
    RegisterLike(file->handle());
    m_pages = {};
    m_file = std::move(file);
}

void TableReader::reading(const std::function<void()>& block)
{
    if (!m_file || m_file->moved()) openFile();
    m_file->execute("BEGIN");
    try {
        // The first look at the file takes the lock.
        const qint64 version = m_file->number("PRAGMA schema_version");
        m_paged = m_pages.open(m_file->handle(), version);
        block();
    } catch (...) {
        sqlite3_exec(m_file->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    m_file->execute("COMMIT");
}

bool TableReader::readTexts(const QString& table, std::span<const std::string_view> fields,
                            const TablePages::Take& take)
{
    return m_paged && m_pages.read(table.toStdString(), fields, take);
}

void TableReader::read(const QString& table, const Selection& selection, const std::function<bool(const Row&)>& take)
{
    Statement rows(*m_file, selection.select(table), table);
    const Row row(rows);
    while (rows.step() && take(row)) {
    }
}
