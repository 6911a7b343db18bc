#include "dao/Sqlite.h"

#include "dao/DBEngine.h"
#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <sqlite3.h>

using namespace DaoErrorNumber;

namespace {

constexpr int BusyTimeout = 1000;   // ms
constexpr int MaxValue = 1'000'000; // bytes of a value, a row, a statement

QString message(sqlite3* db) { return QString::fromUtf8(sqlite3_errmsg(db)); }

/// "CHECK constraint failed: length Аудио.Название": the names are given in TableSql.
RuntimeError brokenCheck(const QString& constraint)
{
    const QString kind = constraint.section(u' ', 0, 0), field = constraint.section(u' ', 1);
    if (kind == u"length") return {TextTooLong, u"Текст слишком длинный для поля «%1». Сократите его."_s.arg(field)};
    if (kind == u"empty")
        return {EmptyTextNotAllowed, u"Поле «%1» не может быть пустым текстом. Введите значение."_s.arg(field)};
    if (kind == u"range") return {OutOfRange, u"Число не помещается в поле «%1». Введите меньшее число."_s.arg(field)};
    return {3317, u"Значение не допускается условием «%1» базы данных."_s.arg(constraint)};
}

RuntimeError brokenConstraint(int code, const QString& text, const QString& table)
{
    const QString detail = text.section(u": "_s, 1);
    switch (code) {
    case SQLITE_CONSTRAINT_CHECK: return brokenCheck(detail);
    case SQLITE_CONSTRAINT_TRIGGER: // ON DELETE RESTRICT
        return {ReferredTo, u"Запись таблицы «%1» нельзя удалить или изменить: на нее ссылаются другие записи. "
                            u"Сначала измените их."_s.arg(table)};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return {NothingReferredTo,
                u"Запись таблицы «%1» ссылается на запись, которой нет в связанной таблице. Выберите другое значение."_s
                    .arg(table)};
    case SQLITE_CONSTRAINT_NOTNULL: return {3314, u"Поле «%1» должно иметь значение."_s.arg(detail)};
    default: return {DuplicateKey, u"В таблице «%1» уже есть запись с таким ключом."_s.arg(table)};
    }
}

/// What SQLite finds wrong with the words of a statement.
RuntimeError wrongStatement(const QString& text, const QString& path, int malformed)
{
    const auto named = [&](QStringView prefix) { return text.startsWith(prefix); };
    const QString name = text.section(u": "_s, 1);
    if (named(u"no such table")) return {TableNotFound, u"В базе данных «%1» нет таблицы «%2»."_s.arg(path, name)};
    if (named(u"no such column") || text.contains(u"has no column named"))
        return {NoSuchParameter, u"В запросе неизвестное имя «%1»."_s.arg(name.isEmpty() ? text : name)};
    if (named(u"no such function")) return {UndefinedFunction, u"В запросе неизвестная функция «%1»."_s.arg(name)};
    return {malformed, u"Ошибка в тексте запроса к базе данных «%1»: %2."_s.arg(path, text)};
}

bool isNoRoom(int error) { return error == ENOSPC || error == EDQUOT; }

RuntimeError diskFull(const QString& file)
{
    return {DiskFull, u"На диске нет места для файла «%1». Освободите место и повторите."_s.arg(file)};
}

RuntimeError failure(sqlite3* db, int code, const QString& path, const QString& table, int malformed)
{
    const QString file = QDir::toNativeSeparators(path);
    switch (code & 0xFF) {
    case SQLITE_CONSTRAINT: return brokenConstraint(code, message(db), table);
    case SQLITE_FULL: return diskFull(file);
    case SQLITE_CANTOPEN:
        // For want of room, too; by now SQLite has tried to open the file for reading, which made another errno of it.
        if (isNoRoom(NewFileError(QFileInfo(path).absolutePath()))) return diskFull(file);
        [[fallthrough]];
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return {CannotOpenOrWrite,
                u"Файл «%1» нельзя открыть или записать. Проверьте права на файл и его папку."_s.arg(file)};
    case SQLITE_NOTADB: return {NotADatabase, u"Файл «%1» не является базой данных."_s.arg(file)};
    case SQLITE_CORRUPT: return {Damaged, u"Файл «%1» поврежден. Восстановите его из резервной копии."_s.arg(file)};
    case SQLITE_IOERR:
        if (code == SQLITE_IOERR_NOMEM) return {7, u"Не хватает памяти."_s};
        if (isNoRoom(sqlite3_system_errno(db))) return diskFull(file);
        return {DiskError, u"Ошибка чтения или записи файла «%1». Проверьте диск, на котором он лежит."_s.arg(file)};
    case SQLITE_NOMEM: return {7, u"Не хватает памяти."_s};
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return {Locked, u"Файл «%1» занят другой программой. Закройте ее и повторите."_s.arg(file)};
    case SQLITE_INTERRUPT:
        return {Damaged,
                u"Файл «%1» поврежден или устроен необычно: чтение заняло бы слишком много времени."_s.arg(file)};
    case SQLITE_TOOBIG: return {TextTooLong, u"Значение слишком велико для базы данных «%1»."_s.arg(file)};
    case SQLITE_MISMATCH: return {WrongType, u"Значение не подходит к полю таблицы «%1»."_s.arg(table)};
    default: return wrongStatement(message(db), file, malformed);
    }
}

} // namespace

SqliteFile::SqliteFile(const QString& path, int flags) : m_path(path)
{
    const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db,
                                     flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    if (code == SQLITE_OK) return;
    if (!m_db) throw RuntimeError(7, u"Не хватает памяти."_s);
    const RuntimeError error = failure(m_db, code, path, {}, MalformedStatement);
    sqlite3_close(m_db);
    throw error;
}

SqliteFile::~SqliteFile() { sqlite3_close(m_db); }

void SqliteFile::restrictUse()
{
    const auto set = [this](int option, int value) { sqlite3_db_config(m_db, option, value, nullptr); };
    set(SQLITE_DBCONFIG_DEFENSIVE, 1);
    set(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    set(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    set(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    set(SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0);
    set(SQLITE_DBCONFIG_DQS_DML, 0);
    set(SQLITE_DBCONFIG_DQS_DDL, 0);
    set(SQLITE_DBCONFIG_ENABLE_FKEY, 1);
    sqlite3_limit(m_db, SQLITE_LIMIT_LENGTH, MaxValue);
    sqlite3_limit(m_db, SQLITE_LIMIT_SQL_LENGTH, MaxValue);
    sqlite3_limit(m_db, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_busy_timeout(m_db, BusyTimeout);
}

void SqliteFile::execute(const char* sql)
{
    if (const int code = sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr)) fail(code);
}

void SqliteFile::execute(const QString& sql) { execute(sql.toUtf8().constData()); }

qint64 SqliteFile::number(const char* sql)
{
    Statement statement(*this, QString::fromUtf8(sql));
    return statement.step() ? statement.integer(0) : 0;
}

bool SqliteFile::autocommit() const { return sqlite3_get_autocommit(m_db) != 0; }

bool SqliteFile::moved() const
{
    int moved = 0;
    if (sqlite3_file_control(m_db, "main", SQLITE_FCNTL_HAS_MOVED, &moved) != SQLITE_OK) return false;
    return moved != 0;
}

void SqliteFile::limitWork(int millions)
{
    m_mostWork = millions;
    const auto count = [](void* file) -> int {
        auto* self = static_cast<SqliteFile*>(file);
        return ++self->m_work > self->m_mostWork;
    };
    sqlite3_progress_handler(m_db, 1'000'000, count, this);
}

bool SqliteFile::readOnly() const { return sqlite3_db_readonly(m_db, "main") != 0; }

void SqliteFile::fail(int code, const QString& table) const
{
    throw failure(m_db, code, m_path, table, MalformedStatement);
}

Statement::Statement(SqliteFile& file, const QString& sql, const QString& table, int malformed)
    : m_file(file), m_table(table)
{
    const QByteArray utf8 = sql.toUtf8();
    // The terminator counts: SQLite need not copy the text then.
    const int code = sqlite3_prepare_v3(file.handle(), utf8.constData(), static_cast<int>(utf8.size()) + 1,
                                        SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr);
    if (code != SQLITE_OK) throw failure(file.handle(), code, file.path(), table, malformed);
}

Statement::~Statement() { sqlite3_finalize(m_statement); }

int Statement::parameters() const { return sqlite3_bind_parameter_count(m_statement); }

void Statement::bind(int parameter, qint64 number)
{
    if (const int code = sqlite3_bind_int64(m_statement, parameter, number)) m_file.fail(code, m_table);
}

void Statement::bind(int parameter, const Value& value)
{
    int code = SQLITE_OK;
    if (const auto* whole = std::get_if<qint64>(&value.m_value)) {
        code = sqlite3_bind_int64(m_statement, parameter, *whole);
    } else if (const auto* fraction = std::get_if<double>(&value.m_value)) {
        code = sqlite3_bind_double(m_statement, parameter, *fraction);
    } else if (value.isNull()) {
        code = sqlite3_bind_null(m_statement, parameter);
    } else {
        if (m_texts.empty()) m_texts.resize(parameters());
        if (parameter > static_cast<int>(m_texts.size())) m_file.fail(SQLITE_RANGE, m_table);
        QByteArray& utf8 = m_texts[parameter - 1];
        const auto* text = std::get_if<QString>(&value.m_value);
        utf8 = text ? text->toUtf8() : value.text().toUtf8();
        code = sqlite3_bind_text(m_statement, parameter, utf8.constData(), static_cast<int>(utf8.size()),
                                 SQLITE_STATIC);
    }
    if (code != SQLITE_OK) m_file.fail(code, m_table);
}

void Statement::bindAll(const QList<Value>& values, int first)
{
    if (parameters() != first - 1 + values.size())
        throw RuntimeError(
            NoSuchParameter,
            u"В запросе %1 параметров, а передано %2."_s.arg(parameters() - first + 1).arg(values.size()));
    for (const Value& value : values) bind(first++, value);
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    const RuntimeError error = failure(m_file.handle(), code, m_file.path(), m_table, MalformedStatement);
    reset();
    throw error;
}

void Statement::run()
{
    const Running running(*this);
    while (step()) {
    }
}

void Statement::reset() noexcept
{
    sqlite3_reset(m_statement);
    m_file.forgetWork();
}

int Statement::columns() const { return sqlite3_column_count(m_statement); }

bool Statement::isNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }

qint64 Statement::integer(int column) const { return sqlite3_column_int64(m_statement, column); }

QString Statement::text(int column) const
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement, column));
}

std::string_view Statement::bytes(int column) const
{
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
    // An empty text has no bytes either.
    if (!bytes) return isNull(column) ? std::string_view() : std::string_view("");
    return {bytes, std::size_t(sqlite3_column_bytes(m_statement, column))};
}

Value Statement::value(int column) const
{
    switch (sqlite3_column_type(m_statement, column)) {
    case SQLITE_NULL: return {};
    case SQLITE_INTEGER: return integer(column);
    case SQLITE_FLOAT: return sqlite3_column_double(m_statement, column);
    default: return text(column);
    }
}

QString Statement::columnName(int column) const { return QString::fromUtf8(sqlite3_column_name(m_statement, column)); }

QString Statement::originField(int column) const
{
    return QString::fromUtf8(sqlite3_column_origin_name(m_statement, column));
}

QString Statement::originTable(int column) const
{
    return QString::fromUtf8(sqlite3_column_table_name(m_statement, column));
}

QString Statement::declaredType(int column) const
{
    return QString::fromUtf8(sqlite3_column_decltype(m_statement, column));
}
