#pragma once

#include "dao/RowSet.h"

#include <optional>

/// The cursor of a recordset and the row in the making.
class RecordsetImpl {
public:
    RecordsetImpl(std::shared_ptr<Connection> connection, QStringView nameOrSelect, const QList<Value>& parameters);

    int count() const { return m_rows->count(); }
    /// From -1 (before the first) to count() (behind the last). On a gap, where the next row stands.
    int position() const { return m_position; }
    bool onRow() const { return !m_gap && m_position >= 0 && m_position < count(); }
    bool onGap() const { return m_gap; }
    void moveTo(int position);
    void moveBy(int step);

    enum class From { First, Next, Last };
    void find(From from, QStringView criterion, const QList<Value>& parameters);
    bool noMatch() const { return m_noMatch; }

    const QList<FieldInfo>& fields() const { return m_rows->fields(); }
    Value value(QStringView field) const;
    void setValue(QStringView field, const Value& value);
    void addNew();
    void edit();
    void update();
    void cancelUpdate() { m_editing = Editing::None; }
    void remove();

    /// Error 3021 outside of the rows.
    Row rowAt(int position) const;
    QList<qint64> keyAt(int position) const;
    int find(const QList<qint64>& key) const { return m_rows->find(key); }

private:
    enum class Editing { None, New, Existing };

    const TableInfo& editableTable() const;
    void requireRow() const;
    void requirePosition(int position) const;
    int indexOf(QStringView field) const;
    Value defaultOf(const TableInfo& table, const FieldInfo& field) const;
    void readBlank();
    void insert();
    void change(const TableInfo& table);

    std::shared_ptr<Connection> m_connection;
    std::unique_ptr<RowSet> m_rows;
    int m_position = 0;
    bool m_gap = false; ///< the current row was deleted here
    bool m_noMatch = false;

    Editing m_editing = Editing::None;
    Row m_buffer;
    std::vector<bool> m_changed; ///< of the buffer, while a row is being edited
    int m_counter = -1;          ///< the column that is numbered by the engine
    std::optional<Row> m_blank;  ///< a new row, without what changes from row to row
    std::vector<int> m_today;    ///< columns that a new row dates
    std::vector<int> m_columns;  ///< columns that a new row writes
    std::shared_ptr<Statement> m_insert;
    std::vector<bool> m_updateFor; ///< the columns that m_update writes
    std::shared_ptr<Statement> m_update;
};
