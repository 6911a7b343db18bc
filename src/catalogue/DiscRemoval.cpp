#include "catalogue/DiscRemoval.h"

#include "catalogue/Covers.h"
#include "store/DiscTables.h"
#include "store/Updates.h"

void RemoveDisc(const Program& program, const CatalogueKind& kind, qint64 key)
{
    const Database main = program.mainDatabase();
    const QString byKey = u"FROM %1 WHERE %2 = ?"_s.arg(kind.table, kind.key);
    DeleteCover(program, kind.coverPrefix, main.Scalar(u"SELECT Номер "_s + byKey, {key}).toInt());
    if (kind.lists != DiscLists::None) {
        const Database lists = ListDatabase(program, kind);
        for (const QString& list : ListsOfDisc(main, kind, key)) DropList(lists, list);
    }
    main.Execute(u"DELETE "_s + byKey, {key});
    StampUpdate(main, kind, program.clock.today());
}
