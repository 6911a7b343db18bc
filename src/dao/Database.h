#pragma once

#include "dao/Recordset.h"
#include "dao/Schema.h"

#include <QStringList>
#include <memory>

class Connection;

/// A handle on an open database file. Cheap: the connection behind it is shared by all handles on the same file.
class Database {
public:
    explicit Database(std::shared_ptr<Connection> connection);
    ~Database();
    Database(const Database&);
    Database& operator=(const Database&);

    QString path() const;

    /// A table's name, or a SELECT in the program's dialect: names in brackets or not, even ones that begin with a digit;
    /// text in double or single quotation marks; LIKE with * ? # [a-z] [!a]; True and False; Date(); DISTINCT(x); `?`
    /// outside of text for a parameter. Errors: 3078 no such table, 3075 malformed statement, 3061 wrong number of
    /// parameters or unknown name.
    Recordset OpenRecordset(QStringView nameOrSelect, const QList<Value>& parameters = {}) const;
    /// First field of the first row, Null without rows.
    Value Scalar(QStringView select, const QList<Value>& parameters = {}) const;
    /// UPDATE, INSERT or DELETE in the same dialect; the number of rows it touched.
    int Execute(QStringView statement, const QList<Value>& parameters = {}) const;

    /// Error 3010 when a table of that name exists. Relations are made with the table.
    void CreateTable(const TableDef& table) const;
    /// Error 3265 when there is none.
    void DropTable(const QString& name) const;
    bool HasTable(const QString& name) const;
    /// User tables in order of creation.
    QStringList TableNames() const;

    void Close();

private:
    friend class TableReader;
    std::shared_ptr<Connection> m_connection;
};
