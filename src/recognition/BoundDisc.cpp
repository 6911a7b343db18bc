#include "recognition/BoundDisc.h"

std::optional<BoundDisc> FindBoundDisc(const Database& main, const CatalogueKind& kind, const QString& id, int bindings)
{
    if (id.isEmpty()) return {};
    QStringList conditions;
    QList<Value> parameters;
    for (int slot = 1; slot <= bindings; ++slot) {
        conditions += CatalogueKind::bindingField(slot) + u" = ?"_s;
        parameters += id;
    }
    Recordset row = main.OpenRecordset(
        u"SELECT * FROM %1 WHERE %2 ORDER BY %3"_s.arg(kind.table, conditions.join(u" OR "_s), kind.key), parameters);
    if (row.RecordCount() == 0) return {};
    BoundDisc found{.key = row.value(kind.key).toLong(),
                    .number = row[u"Номер"].toInt(),
                    .disc = 1,
                    .discs = row[u"Дисков"].toInt(),
                    .title = kind.discTitle(row[u"Название"].text(), kind.album ? row[u"Альбом"].text() : QString())};
    for (int slot = 1; slot <= bindings; ++slot)
        if (row.value(CatalogueKind::bindingField(slot)).text() == id) found.disc = slot;
    return found;
}
