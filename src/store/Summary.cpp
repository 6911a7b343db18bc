#include "store/Summary.h"

#include "dao/DBEngine.h"
#include "store/Updates.h"

/// One query over the open loans, counted by category.
static PerCatalogue countLoans(const Database& main, const QString& condition, const QList<Value>& parameters)
{
    PerCatalogue counts{};
    Recordset rows = main.OpenRecordset(
        u"SELECT Категория, COUNT(*) AS Всего FROM Должники WHERE Долг = True%1 GROUP BY Категория"_s.arg(condition),
        parameters);
    for (; !rows.AtEOF(); rows.MoveNext())
        for (std::size_t i = 0; i < counts.size(); ++i)
            if (rows[u"Категория"].text() == AllCatalogues()[i]->code) counts[i] = rows[u"Всего"].toInt();
    return counts;
}

std::array<CatalogueSummary, 3> Summarise(const Database& main)
{
    std::array<CatalogueSummary, 3> summary;
    const PerCatalogue lent = countLoans(main, {}, {});
    for (std::size_t i = 0; i < summary.size(); ++i) {
        const CatalogueKind& kind = *AllCatalogues()[i];
        summary[i] = {.discs = main.Scalar(u"SELECT COUNT(*) FROM "_s + kind.table).toInt(),
                      .lastUpdate = LastUpdate(main, kind),
                      .lent = lent[i]};
    }
    return summary;
}

PerCatalogue OverdueLoans(const Database& main, QDate today)
{
    // "Before tomorrow" counts a date of today with a time of day, as other programs may have left one.
    return countLoans(main, u" AND ДатаВозврата < ?"_s, {today.addDays(1)});
}
