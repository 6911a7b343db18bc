#pragma once

#include "dao/Schema.h"
#include "dao/Value.h"

#include <QStringList>
#include <optional>

/// The statements that create a table with its relations and the indexes of its child keys.
///
///     Boolean  BOOLEAN NOT NULL DEFAULT 0         Date  DATETIME
///     Integer  SMALLINT                           Text  TEXT(size) COLLATE Russian
///     Long     INTEGER                            Double  DOUBLE
///
/// Every limit is a CHECK whose name says what it guards: "range", "length" or "empty", a blank, table and field.
/// A counter is an AUTOINCREMENT key. What is referred to is guarded by RESTRICT, which SQLite reports differently
/// from a reference to nothing.
QStringList CreateStatements(const TableDef& table);

/// A field of a table or column of a SELECT, as declared.
struct FieldInfo {
    QString name;
    QString table;                 ///< it comes from; empty for an expression
    QString origin;                ///< its name there
    std::optional<FieldType> type; ///< none for a type that is not ours
};

/// Of a declared type; none for a type that is not ours.
std::optional<FieldType> DeclaredType(QStringView declared);

/// A value as the program sees it: booleans are -1 and 0, a missing one is 0, dates are dates.
Value Shown(const FieldInfo& field, Value stored);
/// A value as the field takes it; error 3421 when it cannot be converted, 6 when it is beyond all whole numbers.
/// Limits of the field itself are left to the table's CHECKs.
Value Storable(const FieldInfo& field, const Value& value);
