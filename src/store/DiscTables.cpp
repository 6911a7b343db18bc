#include "store/DiscTables.h"

#include "dao/DBEngine.h"
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

bool ListHasOwner(const Database& main, const CatalogueKind& kind, const QString& id)
{
    QStringList tests;
    for (int k = 1; k <= 6; ++k) tests += CatalogueKind::listField(k) + u" = ?"_s;
    return main.Scalar(u"SELECT COUNT(*) FROM %1 WHERE %2"_s.arg(kind.table, tests.join(u" OR "_s)),
                       QList<Value>(6, id))
               .toInt() > 0;
}

bool CreateList(const Database& lists, const Database& main, const CatalogueKind& kind, const QString& id)
{
    const TableDef table = kind.list->contents == ListKind::Tracks ? TrackTable(id) : FileTable(id);
    try {
        lists.CreateTable(table);
        return true;
    } catch (const RuntimeError& error) {
        if (error.number() != DaoErrorNumber::TableExists) throw;
    }
    if (ListHasOwner(main, kind, id)) return false;
    DropList(lists, id);
    lists.CreateTable(table);
    return true;
}

void SetFields(const Database& main, const CatalogueKind& kind, qint64 key, const QHash<QString, Value>& fields)
{
    Recordset row = main.OpenRecordset(kind.rowByKey(), {key});
    row.Edit();
    for (const auto& [field, value] : fields.asKeyValueRange()) row[field] = value;
    row.Update();
}

void DeleteList(const Database& lists, const Database& main, const CatalogueKind& kind, DiscOfRow disc,
                const QString& id)
{
    DropList(lists, id);
    SetFields(main, kind, disc.key, {{CatalogueKind::listField(disc.disc), {}}});
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
