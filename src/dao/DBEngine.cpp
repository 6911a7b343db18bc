#include "dao/DBEngine.h"

#include "dao/Connection.h"
#include "platform/Files.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <cerrno>

using namespace DaoErrorNumber;

namespace {

constexpr int LongestGroup = 1'000; // ms, of a routine that yields

/// One name for a file however it is reached, also for one that is gone.
QString fileKey(const QString& path)
{
    const QFileInfo file(path);
    const QString real = file.canonicalFilePath();
    return real.isEmpty() ? QFileInfo(file.absolutePath()).canonicalFilePath() + u'/' + file.fileName() : real;
}

void requireFolder(const QString& path)
{
    if (!QFileInfo(QFileInfo(path).absolutePath()).isDir())
        throw RuntimeError(PathNotValid, u"Папка «%1» не существует. Проверьте путь."_s.arg(
                                             QDir::toNativeSeparators(QFileInfo(path).absolutePath())));
}

bool refusesFiles(const QString& folder)
{
    const int error = NewFileError(folder);
    return error == EACCES || error == EPERM || error == EROFS;
}

void requireFile(const QString& path, Connection::Mode mode)
{
    requireFolder(path);
    const QFileInfo file(path);
    if (!file.exists()) {
        if (mode == Connection::Mode::ReadWrite && refusesFiles(file.absolutePath()))
            throw RuntimeError(CannotOpenOrWrite,
                               u"Файла «%1» нет, а в его папку нельзя писать. Проверьте права на нее."_s.arg(
                                   QDir::toNativeSeparators(path)));
        throw RuntimeError(FileNotFound, u"Файл «%1» не найден."_s.arg(QDir::toNativeSeparators(path)));
    }
    if (!file.isFile())
        throw RuntimeError(NotADatabase, u"Файл «%1» не является базой данных."_s.arg(QDir::toNativeSeparators(path)));
}

void requireNoFile(const QString& path)
{
    requireFolder(path);
    const QFileInfo file(path);
    if (file.exists() || file.isSymLink())
        throw RuntimeError(DaoErrorNumber::FileExists,
                           u"Файл «%1» уже существует. Выберите другое имя."_s.arg(QDir::toNativeSeparators(path)));
}

/// A folder that takes no new file, and a full disk, are one number each for the callers and are about the new file;
/// everything else tells for itself what it is about.
[[noreturn]] void cannotCreate(const RuntimeError& error, const QString& path)
{
    switch (error.number()) {
    case 61:
    case DiskFull:
        throw RuntimeError(DiskFull, u"На диске нет места для файла «%1». Освободите место и повторите."_s.arg(
                                         QDir::toNativeSeparators(path)));
    case 70:
    case 75:
    case CannotOpenOrWrite:
        throw RuntimeError(CannotOpenOrWrite, u"Файл «%1» нельзя создать. Проверьте права на его папку."_s.arg(
                                                  QDir::toNativeSeparators(path)));
    default: throw error;
    }
}

} // namespace

struct DBEngine::State : std::enable_shared_from_this<DBEngine::State> {
    struct Entry {
        std::shared_ptr<Connection> connection;
        std::weak_ptr<Connection> handles; ///< what Database and Recordset hold
        QElapsedTimer idle;
    };

    State(const Clock& clock, std::chrono::milliseconds keepIdle) : clock(clock), keepIdle(keepIdle) {}

    std::shared_ptr<Connection> open(const QString& path, Connection::Mode mode);
    void dropReplaced(const QString& key);
    void release(const QString& key);
    void releaseIdle();
    void becameIdle(const QString& key);

    const Clock& clock;
    const std::chrono::milliseconds keepIdle;
    Groups groups;                    // outlives the connections
    QHash<QString, Entry> entries[2]; ///< by mode
    std::unique_ptr<QTimer> timer;
};

/// Another file stands where a connection's own one stood, or its name leads elsewhere by now. Who still reads the old one
/// must not come to write the new.
void DBEngine::State::dropReplaced(const QString& key)
{
    for (auto& byMode : entries)
        for (auto entry = byMode.begin(); entry != byMode.end();) {
            Connection& connection = *entry->connection;
            const bool replaced = entry.key() == key ? connection.moved() : fileKey(connection.path()) == key;
            if (!replaced) {
                ++entry;
                continue;
            }
            connection.commit(); // throws: what was written went to the old file
            if (!entry->handles.expired())
                throw RuntimeError(InUse, u"Файл «%1» был заменен другим, пока программа показывала прежний. Закройте "
                                          u"окна, которые с ним работают, и откройте их снова."_s.arg(
                                              QDir::toNativeSeparators(connection.path())));
            entry = byMode.erase(entry);
        }
}

std::shared_ptr<Connection> DBEngine::State::open(const QString& path, Connection::Mode mode)
{
    requireFile(path, mode);
    const QString key = fileKey(path);
    dropReplaced(key);
    Entry& entry = entries[static_cast<int>(mode)][key];
    if (auto shared = entry.handles.lock()) return shared;
    try {
        if (!entry.connection) entry.connection = std::make_shared<Connection>(path, mode, clock, groups);
    } catch (const RuntimeError&) {
        entries[static_cast<int>(mode)].remove(key);
        throw;
    }
    // Handles share a count of their own; its end is the beginning of the idle time.
    std::shared_ptr<Connection> handle(entry.connection.get(),
                                       [state = weak_from_this(), kept = entry.connection, key](Connection*) {
                                           if (const auto alive = state.lock()) alive->becameIdle(key);
                                       });
    entry.handles = handle;
    return handle;
}

void DBEngine::State::becameIdle(const QString& key)
{
    for (auto& byMode : entries)
        if (const auto entry = byMode.find(key); entry != byMode.end()) entry->idle.start();
    if (!QAbstractEventDispatcher::instance()) return; // nobody would ring the timer
    if (!timer) {
        timer = std::make_unique<QTimer>();
        timer->setSingleShot(true);
        QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [this] { releaseIdle(); });
    }
    if (!timer->isActive()) timer->start(keepIdle);
}

void DBEngine::State::releaseIdle()
{
    bool waiting = false;
    for (auto& byMode : entries)
        for (auto entry = byMode.begin(); entry != byMode.end();) {
            const bool idle = entry->handles.expired() && !entry->connection->inGroup();
            const bool due = idle && entry->idle.hasExpired(keepIdle.count() * 9 / 10);
            waiting = waiting || (idle && !due);
            entry = due ? byMode.erase(entry) : std::next(entry);
        }
    if (waiting) timer->start(keepIdle);
}

void DBEngine::State::release(const QString& key)
{
    for (auto& byMode : entries) {
        const auto entry = byMode.find(key);
        if (entry == byMode.end()) continue;
        if (!entry->handles.expired())
            throw RuntimeError(InUse,
                               u"Файл «%1» еще открыт в этой программе. Закройте окна, которые с ним работают."_s.arg(
                                   QDir::toNativeSeparators(key)));
        entry->connection->commit();
        byMode.erase(entry);
    }
}

DBEngine::DBEngine(const Clock& clock, std::chrono::milliseconds keepIdle) : d(std::make_shared<State>(clock, keepIdle))
{}

DBEngine::~DBEngine() = default;

void DBEngine::CreateDatabase(const QString& path)
{
    requireNoFile(path);
    try {
        Connection::create(path);
    } catch (const RuntimeError& error) {
        cannotCreate(error, path);
    }
}

Database DBEngine::OpenDatabase(const QString& path) { return Database(d->open(path, Connection::Mode::ReadWrite)); }

Database DBEngine::OpenDatabaseReadOnly(const QString& path)
{
    // What was written to the same file is seen through every handle.
    if (const auto twin = d->entries[0].find(fileKey(path)); twin != d->entries[0].end()) twin->connection->commit();
    return Database(d->open(path, Connection::Mode::ReadOnly));
}

void DBEngine::CompactDatabase(const QString& source, const QString& target)
{
    requireFile(source, Connection::Mode::ReadOnly);
    requireNoFile(target);
    Release(source);
    Connection connection(source, Connection::Mode::ReadWrite, d->clock, d->groups);
    try {
        connection.copyTo(target);
    } catch (const RuntimeError& error) {
        cannotCreate(error, target);
    }
}

void DBEngine::Release(const QString& path) { d->release(fileKey(path)); }

void DBEngine::ReleaseAll()
{
    for (auto& byMode : d->entries)
        for (const QString& key : byMode.keys()) d->release(key);
}

void DBEngine::Commit() { d->groups.commitAll(); }

void DBEngine::Yield()
{
    if (!d->groups.open.empty() && d->groups.since.hasExpired(LongestGroup)) Commit();
}

void DBEngine::Rollback() noexcept
{
    for (Connection* connection : std::vector(d->groups.open)) connection->rollback();
}

CommandScope::CommandScope(DBEngine& engine) : m_engine(engine), m_exceptions(std::uncaught_exceptions())
{
    ++m_engine.d->groups.scopes;
}

void CommandScope::end()
{
    if (!m_open) return;
    m_open = false;
    if (--m_engine.d->groups.scopes == 0) m_engine.Commit();
}

CommandScope::~CommandScope() noexcept(false)
{
    if (std::uncaught_exceptions() == m_exceptions) {
        end();
        return;
    }
    try {
        end();
    } catch (const RuntimeError&) {
        // The exception that is on its way says more.
    }
}

ModalScope::ModalScope(DBEngine& engine) : m_engine(engine), m_scopes(0)
{
    m_engine.Commit();
    std::swap(m_scopes, m_engine.d->groups.scopes);
}

ModalScope::~ModalScope() { m_engine.d->groups.scopes = m_scopes; }
