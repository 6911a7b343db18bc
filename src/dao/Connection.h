#pragma once

#include "dao/Dialect.h"
#include "dao/Sqlite.h"
#include "dao/TableSql.h"
#include "platform/Clock.h"

#include <QCache>
#include <QElapsedTimer>
#include <QHash>
#include <functional>
#include <memory>
#include <vector>

class Connection;

/// The groups of writes that one engine has open.
struct Groups {
    int scopes = 0;                ///< of CommandScope, nested
    std::vector<Connection*> open; ///< in order of their first write
    QElapsedTimer since;           ///< the first of them

    void commitAll();
};

/// A table of the file.
struct TableInfo {
    QString name;
    QList<FieldInfo> fields;
    QStringList defaults; ///< per field the SQL of its default, empty without one
    int key = -1;         ///< the field that is the rowid
    bool counter = false; ///< … and is numbered by the engine

    int indexOf(QStringView field) const;
};

/// The one connection of the process to a file. It prepares statements, knows the tables, and opens and ends the group
/// of writes. Each failure is thrown as a RuntimeError; one that cost the group says so by inGroup() being false.
class Connection final : public Names {
public:
    enum class Mode { ReadWrite, ReadOnly };

    /// Opens, tests that it is one of our databases, and for ReadWrite that it can be written.
    Connection(const QString& path, Mode mode, const Clock& clock, Groups& groups);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// An empty database, closed again. The file must not exist.
    static void create(const QString& path);
    /// A compact copy into a new file.
    void copyTo(const QString& target);

    const QString& path() const { return m_file.path(); }
    Mode mode() const { return m_mode; }
    bool moved() const { return m_file.moved(); }
    /// Rises with everything that is written here, and with what is given up.
    quint64 generation() const { return m_generation; }

    /// A statement of the dialect made SQLite's, kept for the next time.
    std::shared_ptr<Statement> prepare(const QString& sql, const QString& table = {}, int malformed = 3075);
    /// Runs a block that reads more than once under one lock.
    void reading(const std::function<void()>& block);
    /// Runs a block that writes, within the group of the running command or in one of its own.
    void writing(const std::function<void()>& block);

    bool inGroup() const { return m_inGroup; }
    void commit();
    void rollback() noexcept;

    QString tableNamed(QStringView name) override;
    QStringList fieldsOf(const QString& table) override;
    /// What a table is made of; it outlives the table for whoever holds it.
    std::shared_ptr<const TableInfo> table(const QString& name);
    bool hasTable(QStringView name);
    QStringList tableNames();
    void createTable(const TableDef& table);
    void dropTable(const QString& name);
    /// The next number of a counter, which is not given again.
    qint64 nextCounter(const TableInfo& table);
    /// Number of rows that the last statement touched.
    int changes() const;
    qint64 lastRowId() const;
    QDate today() const { return m_clock.today(); }

private:
    void configure();
    void refuseComputedFields();
    void registerFunctions();
    void probe();
    void requireInPlace();
    void begin();
    void giveUp() noexcept;
    void forgetTables();
    void readTableNames();

    Mode m_mode;
    const Clock& m_clock;
    Groups& m_groups;
    SqliteFile m_file;
    QCache<QString, std::shared_ptr<Statement>> m_statements{200};
    quint64 m_generation = 1;
    bool m_inGroup = false;
    QStringList m_tableNames;                ///< in order of creation
    QHash<QString, QString> m_namesByFolded; ///< in lower case
    qint64 m_namesVersion = -1;              ///< schema_version they were read at
    QHash<QString, std::shared_ptr<const TableInfo>> m_tables;
    QHash<QString, qint64> m_counters; ///< last number given, by table
};
