#include "store/DiscTables.h"

#include "store/Schema.h"

#include <algorithm>

Database ListDatabase(const Program& program, const CatalogueKind& kind)
{
    return kind.list->contents == ListKind::Tracks ? program.tracksDatabase() : program.filesDatabase();
}

std::array<QString, 6> ListsOfDisc(const Database& main, const CatalogueKind& kind, qint64 key)
{
    std::array<QString, 6> lists;
    if (!kind.list) return lists;
    const Recordset row = main.OpenRecordset(kind.rowByKey(), {key});
    if (row.RecordCount() == 0) return lists;
    for (int k = 1; k <= 6; ++k) lists[std::size_t(k - 1)] = row.value(CatalogueKind::listField(k)).text();
    return lists;
}

void DropList(const Database& lists, const QString& id)
{
    // A row may name anything; only a disc's list goes.
    if (id.isEmpty() || ReservedListName(id) || !lists.HasTable(id)) return;
    lists.DropTable(id);
}

bool ReservedListName(QStringView id)
{
    const auto isFilter = [id](const TableDef& table) { return id.compare(table.name, Qt::CaseInsensitive) == 0; };
    return id.startsWith(u"sqlite_", Qt::CaseInsensitive) || std::ranges::any_of(FilterSchema(), isFilter);
}
