#include "dao/Connection.h"

#include "dao/Collation.h"
#include "dao/DBEngine.h"
#include "dao/Like.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>
#include <unistd.h>

using namespace DaoErrorNumber;

namespace {

constexpr int ApplicationId = 0x766E7261; // "vnra"
constexpr int MaxForeignWork = 50;        // million steps of a statement; a list of 100,000 discs takes six

/// Write-ahead logs make files of their own beside a database, also for one that only reads it.
void refuseWriteAheadLog(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return; // opening it tells why
    const QByteArray header = file.read(20);
    if (header.size() == 20 && (header[18] == 2 || header[19] == 2))
        throw RuntimeError(NotADatabase,
                           u"Файл «%1» не является базой данных этой программы."_s.arg(QDir::toNativeSeparators(path)));
}

int openFlags(const QString& path, Connection::Mode mode)
{
    if (mode == Connection::Mode::ReadWrite) return SQLITE_OPEN_READWRITE;
    refuseWriteAheadLog(path);
    return SQLITE_OPEN_READONLY;
}

/// Today, in the place of SQLite's date('now', …): it stands in defaults of tables, too.
extern "C" void todayForSqlite(sqlite3_context* context, int, sqlite3_value**)
{
    const auto* clock = static_cast<const Clock*>(sqlite3_user_data(context));
    const QByteArray text = clock->today().toString(u"yyyy-MM-dd").toLatin1();
    sqlite3_result_text(context, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// Errors after which a group cannot be trusted to be whole, even where SQLite keeps it open.
bool costsGroup(int number)
{
    return number == DiskFull || number == DiskError || number == CannotOpenOrWrite || number == Damaged || number == 7;
}

} // namespace

void Groups::commitAll()
{
    std::exception_ptr first;
    for (Connection* connection : std::vector(open)) {
        try {
            connection->commit();
        } catch (const RuntimeError&) {
            if (!first) first = std::current_exception();
        }
    }
    if (first) std::rethrow_exception(first);
}

int TableInfo::indexOf(QStringView field) const
{
    for (int i = 0; i < fields.size(); ++i)
        if (fields[i].name == field) return i;
    return -1;
}

Connection::Connection(const QString& path, Mode mode, const Clock& clock, Groups& groups)
    : m_mode(mode), m_clock(clock), m_groups(groups), m_file(path, openFlags(path, mode))
{
    configure();
    registerFunctions();
    try {
        if (m_file.number("PRAGMA application_id") != ApplicationId)
            throw RuntimeError(NotADatabase, u"Файл «%1» не является базой данных этой программы."_s.arg(
                                                 QDir::toNativeSeparators(path)));
        m_file.number("SELECT count(*) FROM sqlite_schema");
        if (mode == Mode::ReadOnly) refuseComputedFields();
        // SQLite itself notices missing pages, but reads half a page as one that ends in zeros.
        if (QFileInfo(path).size() % m_file.number("PRAGMA page_size") != 0) m_file.fail(SQLITE_CORRUPT);
    } catch (const RuntimeError& error) {
        // A file that was left in the middle of a write needs repair before it can be read.
        if (mode == Mode::ReadOnly && error.number() == CannotOpenOrWrite)
            throw RuntimeError(Damaged, u"Файл «%1» не был записан до конца. Откройте его программой, которая его "
                                        u"записывала, и закройте."_s.arg(QDir::toNativeSeparators(path)));
        throw;
    }
    if (mode == Mode::ReadWrite) probe();
}

Connection::~Connection()
{
    rollback();
    m_statements.clear();
    if (m_mode == Mode::ReadWrite && !m_file.moved())
        // Takes the empty journal away, so that nothing is left beside the file.
        sqlite3_exec(m_file.handle(), "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
}

void Connection::configure()
{
    m_file.restrictUse();
    if (m_mode == Mode::ReadOnly) m_file.limitWork(MaxForeignWork);
}

/// They are code: a single value of one can take minutes. Virtual tables, which are no better, have no page.
void Connection::refuseComputedFields()
{
    if (m_file.number("SELECT count(*) FROM sqlite_schema AS s, pragma_table_xinfo(s.name) AS x "
                      "WHERE s.type='table' AND s.rootpage>0 AND x.hidden IN (2,3)") != 0)
        throw RuntimeError(NotADatabase, u"Файл «%1» не является базой данных этой программы: в нем есть вычисляемые "
                                         u"поля."_s.arg(QDir::toNativeSeparators(path())));
}

void Connection::registerFunctions()
{
    RegisterCollation(m_file.handle());
    RegisterLike(m_file.handle());
    sqlite3_create_function_v2(m_file.handle(), "date", 2, SQLITE_UTF8 | SQLITE_INNOCUOUS, const_cast<Clock*>(&m_clock),
                               todayForSqlite, nullptr, nullptr, nullptr);
}

void Connection::probe()
{
    m_file.execute("PRAGMA journal_mode=TRUNCATE; PRAGMA synchronous=FULL;"
                   "PRAGMA temp_store=MEMORY; PRAGMA cache_size=-16384;"
                   // A group stays in memory until its end: spilling would lock readers out and sync half of it.
                   "PRAGMA cache_spill=OFF");
    if (m_file.readOnly()) m_file.fail(SQLITE_READONLY);
    const QString sameVersion = u"PRAGMA user_version=%1"_s.arg(m_file.number("PRAGMA user_version"));
    try {
        m_file.execute("BEGIN IMMEDIATE");
        m_file.execute(sameVersion);
    } catch (const RuntimeError& error) {
        rollback();
        // On a full disk the user can still look, and delete.
        if (error.number() != DiskFull) throw;
    }
    rollback();
}

void Connection::create(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly | QFile::NewOnly)) throw FileError(errno, path);
    file.close();
    try {
        SqliteFile database(path, SQLITE_OPEN_READWRITE);
        database.execute(u"PRAGMA application_id=%1"_s.arg(ApplicationId));
    } catch (...) {
        QFile::remove(path);
        throw;
    }
}

void Connection::copyTo(const QString& target)
{
    sqlite3_limit(m_file.handle(), SQLITE_LIMIT_ATTACHED, 1);
    try {
        Statement copy(m_file, u"VACUUM INTO ?"_s);
        copy.bind(1, Value(target));
        copy.run();
    } catch (...) {
        QFile::remove(target);
        throw;
    }
    // The copy often takes the place of the original at once.
    QFile file(target);
    if (!file.open(QFile::ReadWrite) || ::fsync(file.handle()) != 0) throw FileError(errno, target);
}

std::shared_ptr<Statement> Connection::prepare(const QString& sql, const QString& table, int malformed)
{
    if (const auto* kept = m_statements.object(sql)) return *kept;
    auto statement = std::make_shared<Statement>(m_file, sql, table, malformed);
    m_statements.insert(sql, new std::shared_ptr<Statement>(statement));
    return statement;
}

void Connection::reading(const std::function<void()>& block)
{
    if (!m_file.autocommit()) return block();
    m_file.execute("BEGIN");
    try {
        block();
    } catch (...) {
        sqlite3_exec(m_file.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    m_file.execute("COMMIT");
}

void Connection::requireInPlace()
{
    if (m_file.moved())
        throw RuntimeError(CannotOpenOrWrite,
                           u"Файл «%1» был удален или заменен другим, пока программа с ним работала. "
                           u"Запись отменена. Откройте базу данных заново."_s.arg(QDir::toNativeSeparators(path())));
}

void Connection::begin()
{
    if (m_inGroup) return;
    if (m_mode == Mode::ReadOnly) m_file.fail(SQLITE_READONLY);
    requireInPlace();
    m_file.execute("BEGIN IMMEDIATE");
    m_inGroup = true;
    if (m_groups.open.empty()) m_groups.since.start();
    m_groups.open.push_back(this);
}

void Connection::writing(const std::function<void()>& block)
{
    begin();
    ++m_generation;
    try {
        block();
    } catch (const RuntimeError& error) {
        if (costsGroup(error.number()) || m_file.autocommit() || m_groups.scopes == 0) rollback();
        throw;
    }
    if (m_groups.scopes == 0) commit();
}

void Connection::commit()
{
    if (!m_inGroup) return;
    try {
        requireInPlace();
        m_file.execute("COMMIT");
    } catch (const RuntimeError&) {
        rollback();
        throw;
    }
    giveUp();
}

/// The group is over, one way or the other.
void Connection::giveUp() noexcept
{
    m_inGroup = false;
    std::erase(m_groups.open, this);
}

void Connection::rollback() noexcept
{
    if (!m_file.autocommit()) sqlite3_exec(m_file.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    if (!m_inGroup) return;
    giveUp();
    ++m_generation;
    forgetTables();
}

int Connection::changes() const { return sqlite3_changes(m_file.handle()); }

qint64 Connection::lastRowId() const { return sqlite3_last_insert_rowid(m_file.handle()); }
