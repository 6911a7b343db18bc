#pragma once

#include "dao/Value.h"

#include <QByteArray>
#include <QString>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

/// An open database file of SQLite. Every return code is looked at here and in Statement, and becomes a RuntimeError
/// that names the file, and table and field where they are known.
class SqliteFile {
public:
    /// `flags` are SQLITE_OPEN_…; the file name is taken as it is, never as a URI.
    SqliteFile(const QString& path, int flags);
    ~SqliteFile();
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    const QString& path() const { return m_path; }
    sqlite3* handle() const { return m_db; }

    /// Nothing that a file from elsewhere says is run, and its values are bounded.
    void restrictUse();
    void execute(const char* sql);
    void execute(const QString& sql);
    /// First column of the first row, 0 without one.
    qint64 number(const char* sql);

    /// No transaction is open.
    bool autocommit() const;
    /// Another file stands at the path by now, or none.
    bool moved() const;
    bool readOnly() const;

    /// From now on a statement that takes more than so many million steps of the engine ends with error 3049.
    void limitWork(int millions);
    /// What was counted so far is not the next statement's.
    void forgetWork() { m_work = 0; }

    /// `table`: what the statement was about, for the description.
    [[noreturn]] void fail(int code, const QString& table = {}) const;

private:
    QString m_path;
    sqlite3* m_db = nullptr;
    int m_work = 0; ///< million steps of the statement under way
    int m_mostWork = 0;
};

/// A prepared statement. Whoever steps it resets it: `Running` does so at the end of a block.
class Statement {
public:
    /// `table` is named in descriptions of errors, `malformed` is the number of a syntax error.
    Statement(SqliteFile& file, const QString& sql, const QString& table = {}, int malformed = 3075);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    int parameters() const;
    /// From 1 on. Booleans, numbers, texts, and dates as ISO text.
    void bind(int parameter, const Value& value);
    void bind(int parameter, qint64 number);
    /// Values for all parameters from `first` on; error 3061 when the number is another.
    void bindAll(const QList<Value>& values, int first = 1);

    /// True when a row stands.
    bool step();
    /// To its end, for statements without rows.
    void run();
    void reset() noexcept;

    int columns() const;
    bool isNull(int column) const;
    qint64 integer(int column) const;
    QString text(int column) const;
    /// UTF-8, until the next step or reset; without data() for Null.
    std::string_view bytes(int column) const;
    /// As it is stored.
    Value value(int column) const;

    QString columnName(int column) const;
    /// Field and table that a column comes from, empty for an expression.
    QString originField(int column) const;
    QString originTable(int column) const;
    QString declaredType(int column) const;

private:
    SqliteFile& m_file;
    QString m_table;
    sqlite3_stmt* m_statement = nullptr;
    std::vector<QByteArray> m_texts; ///< of the parameters, which SQLite reads where they are
};

class Running {
public:
    explicit Running(Statement& statement) : m_statement(statement) {}
    ~Running() { m_statement.reset(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    Statement& m_statement;
};
