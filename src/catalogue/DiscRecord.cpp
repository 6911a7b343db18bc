#include "catalogue/DiscRecord.h"

#include "store/Updates.h"

static QString selectRow(const CatalogueKind& kind)
{
    return u"SELECT * FROM %1 WHERE %2 = ?"_s.arg(kind.table, kind.key);
}

static Value orNull(const QString& text) { return text.isEmpty() ? Value() : Value(text); }

std::optional<DiscRecord> ReadDisc(const Database& main, const CatalogueKind& kind, qint64 key)
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

void SaveDisc(const Database& main, const CatalogueKind& kind, const DiscRecord& record, qint64 code, QDate today)
{
    Recordset row = main.OpenRecordset(selectRow(kind), {record.key});
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
    row.Update();
    StampUpdate(main, kind, today);
}
