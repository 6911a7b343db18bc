#include "store/Updates.h"

void StampUpdate(const Database& main, const CatalogueKind& kind, QDate today)
{
    Recordset dates = main.OpenRecordset(u"_Информация");
    if (dates.RecordCount() == 0)
        dates.AddNew();
    else
        dates.Edit();
    dates[kind.stamp] = today;
    dates.Update();
}

QDate LastUpdate(const Database& main, const CatalogueKind& kind)
{
    Recordset dates = main.OpenRecordset(u"_Информация");
    return dates.RecordCount() == 0 ? QDate() : dates[kind.stamp].date();
}
