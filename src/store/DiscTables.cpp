#include "store/DiscTables.h"

#include "store/Schema.h"

#include <algorithm>

Database ListDatabase(const Program& program, const CatalogueKind& kind)
{
    return kind.lists == DiscLists::Tracks ? program.tracksDatabase() : program.filesDatabase();
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
