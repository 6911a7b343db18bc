#include "catalogue/RecordSource.h"

#include <algorithm>

static const auto Number = u"Номер"_s;

QString RecordSource(const CatalogueKind& kind, const QString& filter, QStringView sortItem, bool descending)
{
    const auto order = std::find_if(kind.sortOrders.begin(), kind.sortOrders.end(),
                                    [&](const SortOrder& candidate) { return candidate.item == sortItem; });
    if (order == kind.sortOrders.end()) return {};
    const QString direction = descending ? u" DESC"_s : QString();
    QString select = kind.join() + filter + u" ORDER BY "_s + order->field + direction;
    if (order->field != Number) select += u", "_s + Number + direction;
    return select;
}

QString ContainsFilter(const QString& field, const QString& text)
{
    return u"AND "_s + field + u" LIKE \"*"_s + text + u"*\""_s;
}

QString EqualsFilter(const QString& field, QString name)
{
    return u"AND "_s + field + u" = \""_s + name.replace(u'"', u"\"\""_s) + u'"';
}
