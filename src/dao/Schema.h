#pragma once

#include "platform/Literals.h"

#include <QList>
#include <QString>

enum class FieldType {
    Boolean, ///< -1 and 0; a missing value reads as False
    Integer, ///< signed 16 bits
    Long,    ///< signed 32 bits
    Double,
    Date, ///< date and time
    Text, ///< at most `size` characters
};

enum class FieldDefault { None, Today, True };

struct FieldDef {
    QString name;
    FieldType type;
    int size = 0;              ///< characters of a Text, 0 for the engine's 255
    bool counter = false;      ///< numbered by the engine; a number once given is never given again
    bool emptyAllowed = false; ///< a Text without it takes Null or a non-empty text
    FieldDefault byDefault = FieldDefault::None;
};

/// A one-field reference. What is referred to cannot be deleted (error 3200) unless the deletion cascades.
struct Relation {
    QString name;
    QString table; ///< the table referred to
    QString field;
    QString foreignTable; ///< the table that refers
    QString foreignField;
    bool updateCascade = false;
    bool deleteCascade = false;
};

struct TableDef {
    QString name;
    QList<FieldDef> fields;
    QString primaryKey;        ///< a field of the table, or empty
    QList<Relation> relations; ///< those whose foreignTable this table is
};
