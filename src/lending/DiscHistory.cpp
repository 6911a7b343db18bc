#include "lending/DiscHistory.h"

QList<HistoryEntry> HistoryOf(const Database& main, const CatalogueKind& kind, qint64 disc)
{
    QList<HistoryEntry> history;
    Recordset rows = main.OpenRecordset(
        u"SELECT Имя, ДатаВыдачи, ДатаВозвратаРеальная FROM Должники, ИменаДолжников "
        "WHERE КодИмяДолжника = КодИмени AND КодДиска = ? AND Категория = ? ORDER BY КодДолжника",
        {disc, kind.code});
    for (; !rows.AtEOF(); rows.MoveNext())
        history += {.borrower = rows[u"Имя"].text(),
                    .given = rows[u"ДатаВыдачи"].date(),
                    .returned = rows[u"ДатаВозвратаРеальная"].date()};
    return history;
}
