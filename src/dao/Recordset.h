#pragma once

#include "dao/Value.h"

#include <memory>

class RecordsetImpl;

/// A keyset over a table or a SELECT: it keeps the keys of its rows in order and reads a row when it is looked at, so
/// opening costs the keys alone and counts and positions are exact. Rows that vanish under it read as blank (all Null);
/// new rows of others come in with a new recordset; its own AddNew joins at the end. No statement is left open between
/// calls. Statements with DISTINCT or aggregates are held as values and cannot be edited; a join cannot be edited.
///
/// Opened on a row: the first one, if there is any. Every member throws RuntimeError with the engine's number:
/// 3021 no current record, 3265 no such field, 3020 Update without AddNew or Edit, 3027 not updatable, 3077 malformed
/// criterion, and on Update 6 out of range, 3163 too long, 3315 empty text not allowed, 3200 and 3201 relations,
/// 3026 disk full, 3051 read-only.
class Recordset {
public:
    explicit Recordset(std::unique_ptr<RecordsetImpl> impl);
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    int RecordCount() const;
    /// 0-based; -1 without a current row. Setting it outside of the rows is error 3021.
    int AbsolutePosition() const;
    void SetAbsolutePosition(int position);
    bool AtBOF() const;
    bool AtEOF() const;
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    /// The criterion is the text of a WHERE clause, its `?` outside of texts taken from `parameters` in order. Without a
    /// match NoMatch() is True and the current row stays. The rows that match are found once by the engine and
    /// remembered until something is written.
    void FindFirst(QStringView criterion, const QList<Value>& parameters = {});
    void FindNext(QStringView criterion, const QList<Value>& parameters = {});
    void FindLast(QStringView criterion, const QList<Value>& parameters = {});
    bool NoMatch() const;

    QStringList FieldNames() const;
    Value value(QStringView field) const;
    void setValue(QStringView field, const Value& value);

    /// `rs[u"Номер"] = 5`, `rs[u"Номер"].toInt()`.
    class Field {
    public:
        Field& operator=(const Value& value)
        {
            owner->setValue(name, value);
            return *this;
        }
        operator Value() const { return owner->value(name); }
        bool isNull() const { return owner->value(name).isNull(); }
        int toInt() const { return owner->value(name).toInt(); }
        double toDouble() const { return owner->value(name).toDouble(); }
        bool toBool() const { return owner->value(name).toBool(); }
        QString text() const { return owner->value(name).text(); }
        QDate date() const { return owner->value(name).date(); }

    private:
        friend class Recordset;
        Field(Recordset* owner, QStringView name) : owner(owner), name(name) {}
        Recordset* owner;
        QStringView name;
    };
    Field operator[](QStringView field) { return {this, field}; }

    /// A blank row in the making: defaults are in place and its counter is known. It exists from Update on, and is
    /// dropped by a move, a Close or the recordset's end. After Update the row before is current again.
    void AddNew();
    void Edit();
    void Update();
    void CancelUpdate();
    /// The row stays current as a blank one until the next move.
    void Delete();

    /// Any row without moving to it, for grids: the values in the order of FieldNames(). Blank for one that vanished.
    QList<Value> row(int position) const;
    /// The keys of a row: rowid per table of the FROM clause. Empty for a recordset of values.
    QList<qint64> key(int position) const;
    /// The row with this key becomes current; False, and no move, when the recordset has none.
    bool FindKey(const QList<qint64>& key);

    void Close();

private:
    std::unique_ptr<RecordsetImpl> m_impl;
};
