#include "recognition/Binding.h"

std::optional<BindingPlace> PlaceOf(const Database& main, const CatalogueKind& kind, const DiscChoice& choice)
{
    const Recordset row = main.OpenRecordset(kind.rowByKey(), {choice.key});
    if (row.RecordCount() == 0) return {};
    const QString album = kind.album ? row.value(u"Альбом").text() : QString();
    return BindingPlace{.title = kind.discTitle(row.value(u"Название").text(), album),
                        .taken = !row.value(CatalogueKind::bindingField(choice.disc)).text().isEmpty()};
}

std::optional<int> BoundFirst(const Database& main, const CatalogueKind& kind, const QString& id)
{
    const Recordset row = main.OpenRecordset(
        u"SELECT * FROM %1 WHERE %2 = ? ORDER BY %3"_s.arg(kind.table, CatalogueKind::bindingField(1), kind.key), {id});
    return row.RecordCount() == 0 ? std::nullopt : std::optional(row.value(u"Номер").toInt());
}

void BindDisc(const Database& main, const CatalogueKind& kind, const DiscChoice& choice, const QString& id)
{
    Recordset row = main.OpenRecordset(kind.rowByKey(), {choice.key});
    row.Edit();
    row.setValue(CatalogueKind::bindingField(choice.disc), id);
    row.Update();
}

void UnbindDisc(const Database& main, const CatalogueKind& kind, const QString& id)
{
    QStringList conditions;
    for (int disc = 1; disc <= 6; ++disc) conditions += CatalogueKind::bindingField(disc) + u" = ?"_s;
    Recordset row = main.OpenRecordset(
        u"SELECT * FROM %1 WHERE %2 ORDER BY %3"_s.arg(kind.table, conditions.join(u" OR "_s), kind.key),
        QList<Value>(6, id));
    if (row.RecordCount() == 0) return;
    row.Edit();
    for (int disc = 1; disc <= 6; ++disc) {
        const QString field = CatalogueKind::bindingField(disc);
        if (row.value(field).text() == id) row.setValue(field, Value());
    }
    row.Update();
}
