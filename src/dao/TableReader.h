#pragma once

#include "dao/Database.h"
#include "dao/TablePages.h"

#include <functional>
#include <string_view>

class SqliteFile;
class Statement;

/// What is read of tables: fields, and a criterion in the program's dialect, empty for all rows. Translated once, for as
/// many tables as there are; field names are written as in the schema. Error 3077 when the criterion is malformed.
class Selection {
public:
    explicit Selection(const QStringList& fields, QStringView criterion = {});

    QString select(const QString& table) const;

private:
    QString m_fields, m_where;
};

/// Reads the tables of a database on a thread of its own, past the connection that the program's own thread writes by.
/// A connection belongs to one thread at a time: this is another one to the same file, which can only read.
class TableReader {
public:
    class Row {
    public:
        explicit Row(const Statement& statement) : m_statement(statement) {}
        qint64 number(int field) const; ///< 0 for Null
        /// UTF-8, without data() for Null. It is gone when the next row comes.
        std::string_view text(int field) const;

    private:
        const Statement& m_statement;
    };

    /// What was written by way of `database` so far is committed, or it would not be seen. The file counts as open until
    /// the reader is gone. Both ends are on the thread of `database`; everything else is for one thread at a time.
    explicit TableReader(const Database& database);
    ~TableReader();
    TableReader(const TableReader&) = delete;
    TableReader& operator=(const TableReader&) = delete;

    /// Runs a block that reads under one lock: writers wait for its end.
    void reading(const std::function<void()>& block);
    /// Within reading(): texts of all rows, in the order in which they were added, quickly. False when that is not
    /// possible with this table, or it is not there: what was taken is to be forgotten then, and read() knows more.
    bool readTexts(const QString& table, std::span<const std::string_view> fields, const TablePages::Take& take);
    /// Within reading(): the rows of a table in the order in which they were added, until `take` answers false. Errors:
    /// 3078 no such table, 3061 it lacks a field, those of a file that cannot be read.
    void read(const QString& table, const Selection& selection, const std::function<bool(const Row&)>& take);

private:
    void openFile();

    Database m_database; ///< keeps the file open
    QString m_path;
    std::unique_ptr<SqliteFile> m_file;
    TablePages m_pages;
    bool m_paged = false; ///< m_pages can be read
};
