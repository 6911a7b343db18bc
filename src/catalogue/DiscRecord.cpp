#include "catalogue/DiscRecord.h"

#include "catalogue/Numbering.h"
#include "store/Updates.h"

static Value orNull(const QString& text) { return text.isEmpty() ? Value() : Value(text); }

std::optional<DiscRecord> ReadRecord(const Database& main, const CatalogueKind& kind, qint64 key)
{
    const Recordset row = main.OpenRecordset(kind.join() + u"AND "_s + kind.key + u" = ?"_s, {key});
    if (row.RecordCount() == 0) return {};
    DiscRecord record{.key = key,
                      .number = row.value(u"Номер").toInt(),
                      .name = row.value(u"Название").text(),
                      .year = row.value(u"Год").text(),
                      .description = row.value(kind.dictionary.table).text(),
                      .discs = row.value(u"Дисков").toInt(),
                      .extra = {},
                      .binding = {}};
    for (const QString& field : kind.extraFields) record.extra.insert(field, row.value(field));
    return record;
}

qint64 FindOrAddName(const Database& main, const DictionaryKind& dictionary, const QString& name)
{
    Recordset names = main.OpenRecordset(dictionary.table);
    names.FindFirst(dictionary.table + u" = ?"_s, {name});
    if (!names.NoMatch()) return names.value(dictionary.key).toLong();
    names.AddNew();
    names.setValue(dictionary.table, name);
    const qint64 code = names.value(dictionary.key).toLong();
    names.Update();
    return code;
}

/// Texts of a table in stored order, row by row. DISTINCT, though the key makes every row so: its rows come all at once and
/// not one by one.
static QStringList textsOf(const Database& main, const QString& table, const QString& key, const QString& fields)
{
    const Recordset rows = main.OpenRecordset(u"SELECT DISTINCT %2, %3 FROM %1 ORDER BY %2"_s.arg(table, key, fields));
    QStringList texts;
    for (int position = 0; position < rows.RecordCount(); ++position)
        for (const Value& value : rows.row(position).mid(1)) texts += value.text();
    return texts;
}

QStringList NamesOf(const Database& main, const DictionaryKind& dictionary)
{
    return textsOf(main, dictionary.table, dictionary.key, dictionary.table);
}

QStringList TitlesOf(const Database& main, const CatalogueKind& kind)
{
    return textsOf(main, kind.table, kind.key, kind.album ? u"Название, Альбом"_s : u"Название"_s);
}

std::optional<QString> FirstDiscNumbered(const Database& main, const CatalogueKind& kind, int number)
{
    const std::optional<NumberedDisc> disc = DiscNumbered(main, kind, number);
    if (!disc) return {};
    return kind.album ? disc->name + u" - "_s + disc->album : disc->name;
}

qint64 SaveDisc(const Database& main, const CatalogueKind& kind, const DiscRecord& record, qint64 code, QDate today)
{
    Recordset row = main.OpenRecordset(kind.rowByKey(), {record.key});
    if (record.key == 0) {
        row.AddNew();
        row[u"Номер"] = record.number;
        if (!record.binding.isEmpty()) row[CatalogueKind::bindingField(1)] = record.binding;
    } else {
        row.Edit();
    }
    row[u"Название"] = record.name;
    row[u"Год"] = orNull(record.year);
    row[u"Дисков"] = record.discs;
    row[kind.dictionary.key] = code;
    for (const QString& field : kind.extraFields) row[field] = record.extra.value(field);
    row[u"ДатаИзменения"] = today;
    const qint64 key = row.value(kind.key).toLong(); // of a new row known until Update
    row.Update();
    StampUpdate(main, kind, today);
    return key;
}
