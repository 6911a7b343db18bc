#include "catalogue/LoanMark.h"

QString BorrowerOf(const Database& main, const CatalogueKind& kind, qint64 key)
{
    return main
        .Scalar(u"SELECT Имя FROM Должники, ИменаДолжников WHERE КодИмяДолжника = КодИмени "
                "AND КодДиска = ? AND Категория = ? AND Долг = True ORDER BY КодДолжника",
                {key, kind.code})
        .text();
}

void TakeBack(const Database& main, const CatalogueKind& kind, qint64 key, QDate today)
{
    Recordset row = main.OpenRecordset(kind.rowByKey(), {key});
    if (row.RecordCount() > 0) {
        row.Edit();
        row[u"Должник"] = false;
        row.Update();
    }
    Recordset loans = main.OpenRecordset(u"Должники");
    loans.FindLast(u"КодДиска = ? AND Категория = ?", {key, kind.code});
    if (loans.NoMatch()) return;
    loans.Edit();
    loans[u"Долг"] = false;
    loans[u"ДатаВозвратаРеальная"] = today;
    loans.Update();
}
