#include "catalogue/DiscRemoval.h"

#include "catalogue/Covers.h"
#include "store/DiscTables.h"
#include "store/Updates.h"

bool RemoveDisc(const Program& program, const CatalogueKind& kind, qint64 key)
{
    const Database main = program.mainDatabase();
    Recordset row = main.OpenRecordset(kind.rowByKey(), {key});
    if (row.RecordCount() == 0) return true;
    if (row[u"Должник"].toBool()) return false;
    const int number = row[u"Номер"].toInt();
    if (kind.list) {
        const Database lists = ListDatabase(program, kind);
        for (const QString& list : ListsOfDisc(main, kind, key)) DropList(lists, list);
    }
    row.Delete();
    StampUpdate(main, kind, program.clock.today());
    // A file comes back with no group of writes: it goes when the row has gone for good.
    program.engine.Commit();
    DeleteCover(program, kind.coverPrefix, number);
    return true;
}
