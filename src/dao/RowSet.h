#pragma once

#include "dao/Connection.h"

#include <QList>
#include <memory>
#include <optional>
#include <vector>

using Row = QList<Value>;

/// The rows of a recordset by position.
class RowSet {
public:
    virtual ~RowSet() = default;
    const QList<FieldInfo>& fields() const { return m_fields; }

    /// The keys were read: count() costs nothing.
    virtual bool known() const { return true; }
    virtual int count() = 0;
    /// All Null for a row that is gone.
    virtual const Row& row(int position) = 0;
    virtual QList<qint64> key(int position) = 0;
    /// -1 without one.
    virtual int find(const QList<qint64>& key) = 0;
    /// Positions of the rows that a criterion holds for, ascending. Error 3251 for rows that are held as values.
    virtual const std::vector<int>& matches(QStringView criterion, const QList<Value>& parameters) = 0;
    /// The table whose rows can be edited, null for joins and values.
    virtual const TableInfo* editable() = 0;

    virtual void append(qint64 key) = 0;
    virtual void remove(int position) = 0;
    /// The row was written: this is how it reads from now on, and its key.
    virtual void replace(int position, qint64 key, const Row& row) = 0;

protected:
    QList<FieldInfo> m_fields;
};

/// Rows known by the rowids of the tables of a SELECT.
class KeyedRows final : public RowSet {
public:
    /// `wholeTable`: every row of one table in its own order. Keys are then read when they are first needed.
    KeyedRows(Connection& connection, SelectSql select, QList<Value> parameters, bool wholeTable);

    bool known() const override { return m_keys.has_value(); }
    int count() override;
    const Row& row(int position) override;
    QList<qint64> key(int position) override;
    int find(const QList<qint64>& key) override;
    const std::vector<int>& matches(QStringView criterion, const QList<Value>& parameters) override;
    const TableInfo* editable() override;
    void append(qint64 key) override;
    void remove(int position) override;
    void replace(int position, qint64 key, const Row& row) override;

private:
    void readKeys();
    void readPage(int first, int last);
    Row fetch(int position);
    int stride() const { return static_cast<int>(m_select.sources.size()); }
    int compare(int position, const qint64* key) const;
    int find(const qint64* key);

    Connection& m_connection;
    SelectSql m_select;
    QList<Value> m_parameters;
    std::shared_ptr<const TableInfo> m_table; ///< once it was asked for
    std::shared_ptr<Statement> m_rowByKeys;
    std::optional<std::vector<qint64>> m_keys; ///< one per source and row, row by row
    std::vector<int> m_byKey;                  ///< positions in order of their keys; empty when not needed yet
    bool m_ascending = false;                  ///< the keys themselves are in order

    QList<Row> m_page;
    int m_pageFirst = 0;
    int m_lastRead = -2;
    quint64 m_pageGeneration = 0;

    QString m_foundCriterion;
    QList<Value> m_foundParameters;
    quint64 m_foundGeneration = 0;
    std::vector<int> m_found;
};

/// Rows of DISTINCT, of aggregates and the like.
class HeldRows final : public RowSet {
public:
    HeldRows(Connection& connection, const QString& sql, const QList<Value>& parameters);

    int count() override { return static_cast<int>(m_rows.size()); }
    const Row& row(int position) override { return m_rows[position]; }
    QList<qint64> key(int) override { return {}; }
    int find(const QList<qint64>&) override { return -1; }
    const std::vector<int>& matches(QStringView, const QList<Value>&) override;
    const TableInfo* editable() override { return nullptr; }
    void append(qint64) override {}
    void remove(int) override {}
    void replace(int, qint64, const Row&) override {}

private:
    QList<Row> m_rows;
};

std::unique_ptr<RowSet> OpenRows(Connection& connection, QStringView nameOrSelect, const QList<Value>& parameters);
