#include "store/NumberedDisc.h"

static std::optional<NumberedDisc> firstOf(const CatalogueKind& kind, const Recordset& row)
{
    if (row.RecordCount() == 0) return {};
    return NumberedDisc{.key = row.value(kind.key).toLong(),
                        .number = row.value(u"Номер").toInt(),
                        .name = row.value(u"Название").text(),
                        .album = kind.album ? row.value(u"Альбом").text() : QString(),
                        .lent = row.value(u"Должник").toBool()};
}

std::optional<NumberedDisc> DiscNumbered(const Database& main, const CatalogueKind& kind, int number)
{
    const QString select = u"SELECT * FROM %1 WHERE Номер = ? ORDER BY %2"_s.arg(kind.table, kind.key);
    return firstOf(kind, main.OpenRecordset(select, {number}));
}

std::optional<NumberedDisc> DiscWithKey(const Database& main, const CatalogueKind& kind, qint64 key)
{
    return firstOf(kind, main.OpenRecordset(kind.rowByKey(), {key}));
}
