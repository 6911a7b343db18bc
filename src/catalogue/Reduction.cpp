#include "catalogue/Reduction.h"

#include "store/DiscTables.h"

bool LosesLists(const Database& main, const CatalogueKind& kind, const Reduction& reduction)
{
    if (kind.reductionTail.isEmpty() || reduction.after >= reduction.before) return false;
    const std::array<QString, 6> lists = ListsOfDisc(main, kind, reduction.key);
    for (int k = reduction.after + 1; k <= qMin(reduction.before, 6); ++k)
        if (!lists[std::size_t(k - 1)].isEmpty()) return true;
    return false;
}

QString ReductionQuestion(const CatalogueKind& kind, const Reduction& reduction)
{
    return u"Вы изменили общее число дисков c %1 на %2"_s.arg(reduction.before).arg(reduction.after) +
           kind.reductionTail;
}

void DropLostLists(const Database& main, const Database& lists, const CatalogueKind& kind, const Reduction& reduction)
{
    Recordset row = main.OpenRecordset(kind.rowByKey(), {reduction.key});
    for (int k = reduction.after + 1; k <= qMin(reduction.before, 6); ++k) {
        if (row.value(CatalogueKind::listField(k)).text().isEmpty()) continue;
        DropList(lists, row.value(kind.reductionField(k)).text());
        row.Edit();
        row[CatalogueKind::listField(k)] = nullptr;
        row.Update();
    }
}
