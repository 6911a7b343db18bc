#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// What the dialect asks about the tables of a database.
class Names {
public:
    virtual ~Names() = default;
    /// The table's name as it was created, however `name` is written; error 3078 without one.
    virtual QString tableNamed(QStringView name) = 0;
    virtual QStringList fieldsOf(const QString& table) = 0;
};

/// A table in a FROM clause.
struct Source {
    QString table;
    QString alias; ///< empty without one

    /// The name that fields are qualified with, quoted.
    QString sql() const;
};

/// A SELECT in SQLite's words, in pieces.
struct SelectSql {
    QList<Source> sources;
    QString list, from, where; ///< behind SELECT, FROM and WHERE; `where` may be empty
    QString order;             ///< " ORDER BY …" and " LIMIT …" or empty
    bool keyset = true;        ///< each row is a row of each of the sources, so that their rowids say all

    /// The rows themselves, in order.
    QString rows() const;
    /// Their rowids, one column per source; with a criterion of TranslateCriterion those that it holds for, in any order.
    QString keys(const QString& criterion = {}) const;
    /// One row by its rowids, which are parameters.
    QString rowByKeys() const;
};

/// A name in SQLite's quotation marks.
QString QuotedName(const QString& name);

/// The program's dialect, see Database::OpenRecordset. Errors: 3075, 3078.
SelectSql TranslateSelect(QStringView statement, Names& names);
/// An UPDATE, INSERT or DELETE. Errors: 3075, 3078.
struct ActionSql {
    QString table;
    QString sql;
};
ActionSql TranslateAction(QStringView statement, Names& names);
/// What stands behind WHERE, about rows of `sources`. Error 3077.
QString TranslateCriterion(QStringView criterion, const QList<Source>& sources, Names& names);
