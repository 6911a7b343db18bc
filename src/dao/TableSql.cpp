#include "dao/TableSql.h"

#include "dao/Collation.h"
#include "dao/DBEngine.h"
#include "dao/Dialect.h"

#include <cmath>

namespace {

constexpr int DefaultTextSize = 255;

QString check(const QString& kind, const TableDef& table, const FieldDef& field, const QString& condition)
{
    return u" CONSTRAINT %1 CHECK (%2)"_s.arg(QuotedName(kind + u' ' + table.name + u'.' + field.name), condition);
}

QString between(const QString& column, qint64 first, qint64 last)
{
    return u"%1 BETWEEN %2 AND %3"_s.arg(column).arg(first).arg(last);
}

QString column(const TableDef& table, const FieldDef& field)
{
    const QString name = QuotedName(field.name);
    QString sql = name;
    switch (field.type) {
    case FieldType::Boolean: sql += u" BOOLEAN NOT NULL"_s; break;
    case FieldType::Integer: sql += u" SMALLINT"_s; break;
    case FieldType::Long: sql += u" INTEGER"_s; break;
    case FieldType::Double: sql += u" DOUBLE"_s; break;
    case FieldType::Date: sql += u" DATETIME"_s; break;
    case FieldType::Text:
        sql += u" TEXT(%1) COLLATE %2"_s.arg(field.size > 0 ? field.size : DefaultTextSize)
                   .arg(QLatin1StringView(CollationName));
        break;
    }
    if (field.name == table.primaryKey) sql += field.counter ? u" PRIMARY KEY AUTOINCREMENT"_s : u" PRIMARY KEY"_s;
    if (field.byDefault == FieldDefault::Today)
        sql += u" DEFAULT (date('now','localtime'))"_s;
    else if (field.byDefault == FieldDefault::True)
        sql += u" DEFAULT -1"_s;
    else if (field.type == FieldType::Boolean)
        sql += u" DEFAULT 0"_s;

    if (field.type == FieldType::Boolean) sql += check(u"range"_s, table, field, name + u" IN (-1, 0)"_s);
    if (field.type == FieldType::Integer) sql += check(u"range"_s, table, field, between(name, INT16_MIN, INT16_MAX));
    if (field.type == FieldType::Long) sql += check(u"range"_s, table, field, between(name, INT32_MIN, INT32_MAX));
    if (field.type == FieldType::Text) {
        const int size = field.size > 0 ? field.size : DefaultTextSize;
        sql += check(u"length"_s, table, field, u"length(%1) <= %2"_s.arg(name).arg(size));
        if (!field.emptyAllowed) sql += check(u"empty"_s, table, field, u"length(%1) > 0"_s.arg(name));
    }
    return sql;
}

RuntimeError wrongType(const FieldInfo& field, const Value& value)
{
    return {DaoErrorNumber::WrongType,
            u"Значение «%1» не подходит к полю «%2»."_s.arg(value.text().left(60), field.name)};
}

/// Half to even, as numbers have always been rounded on their way into a field.
Value wholeNumber(const FieldInfo& field, const Value& value)
{
    if (value.isWhole()) return value;
    bool ok = false;
    const QString text = value.text().trimmed();
    if (const qint64 whole = text.toLongLong(&ok); ok) return whole;
    const double fraction = std::nearbyint(text.toDouble(&ok));
    if (!ok) throw wrongType(field, value);
    if (!(std::abs(fraction) < 9e18))
        throw RuntimeError(DaoErrorNumber::OutOfRange,
                           u"Число не помещается в поле «%1». Введите меньшее число."_s.arg(field.name));
    return static_cast<qint64>(fraction);
}

} // namespace

QStringList CreateStatements(const TableDef& table)
{
    QStringList parts, indexes;
    for (const FieldDef& field : table.fields) parts += column(table, field);
    for (const Relation& relation : table.relations) {
        parts += u"CONSTRAINT %1 FOREIGN KEY (%2) REFERENCES %3 (%4) ON UPDATE %5 ON DELETE %6"_s.arg(
            QuotedName(relation.name), QuotedName(relation.foreignField), QuotedName(relation.table),
            QuotedName(relation.field), relation.updateCascade ? u"CASCADE"_s : u"RESTRICT"_s,
            relation.deleteCascade ? u"CASCADE"_s : u"RESTRICT"_s);
        indexes += u"CREATE INDEX %1 ON %2 (%3)"_s.arg(QuotedName(table.name + u'.' + relation.foreignField),
                                                       QuotedName(table.name), QuotedName(relation.foreignField));
    }
    return QStringList{u"CREATE TABLE %1 (%2)"_s.arg(QuotedName(table.name), parts.join(u", "_s))} + indexes;
}

std::optional<FieldType> DeclaredType(QStringView declared)
{
    if (declared == u"BOOLEAN") return FieldType::Boolean;
    if (declared == u"SMALLINT") return FieldType::Integer;
    if (declared == u"INTEGER") return FieldType::Long;
    if (declared == u"DOUBLE") return FieldType::Double;
    if (declared == u"DATETIME") return FieldType::Date;
    if (declared.startsWith(u"TEXT(") || declared == u"TEXT") return FieldType::Text;
    return {};
}

Value Shown(const FieldInfo& field, Value stored)
{
    if (field.type == FieldType::Boolean) return stored.toBool();
    if (field.type == FieldType::Date) return stored.isNull() ? stored : Value::fromIso(stored.text());
    return stored;
}

Value Storable(const FieldInfo& field, const Value& value)
{
    if (field.type == FieldType::Boolean) return value.toBool();
    if (value.isNull() || !field.type) return value;
    switch (*field.type) {
    case FieldType::Integer:
    case FieldType::Long: return wholeNumber(field, value);
    case FieldType::Double: {
        bool ok = false;
        const double number = value.text().trimmed().toDouble(&ok);
        if (!ok) throw wrongType(field, value);
        return number;
    }
    case FieldType::Date:
        if (!value.date().isValid()) throw wrongType(field, value);
        return value.moment();
    case FieldType::Text: return value.text();
    case FieldType::Boolean: break;
    }
    return value;
}
