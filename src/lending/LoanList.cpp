#include "lending/LoanList.h"

#include "frame/Text.h"
#include "lending/DaysOverdue.h"

const QList<SortOrder>& LoanListOrders()
{
    static const QList<SortOrder> orders{{u"по имени"_s, u"Имя"_s},
                                         {u"по дате добавления"_s, u"ДатаВыдачи"_s},
                                         {u"по дате возврата"_s, u"ДатаВозврата"_s}};
    return orders;
}

QString LoanListSource(const QString& filter, int order, bool descending)
{
    return u"SELECT * FROM Должники, ИменаДолжников WHERE Долг = True "
           "AND Должники.КодИмяДолжника = ИменаДолжников.КодИмени "_s +
           filter + u" ORDER BY "_s + LoanListOrders().at(order).field + (descending ? u" DESC"_s : QString());
}

QString CategoryFilter(const CatalogueKind& kind) { return u"AND Должники.Категория = '%1' "_s.arg(kind.code); }
bool IsCategoryFilter(const QString& filter) { return filter.startsWith(u"AND Должники.Категория"); }
QString BorrowerFilter(const QString& text) { return u"AND Имя LIKE \"*%1*\""_s.arg(CleanText(text)); }

QString NameFilter(const QString& name)
{
    QString pattern;
    for (const QChar c : name) {
        if (c == u'"')
            pattern += u'?';
        else if (u"*?#["_s.contains(c))
            pattern += u"[%1]"_s.arg(c);
        else
            pattern += c;
    }
    return u"AND Имя LIKE \"*%1*\""_s.arg(pattern);
}

QString TermText(QDate due, QDate today)
{
    if (!due.isValid()) return u"без срока"_s;
    return due == today ? u"сегодня"_s : FormatDate(due, u"dd.MM.yyyy"_s);
}

QString LatenessText(QDate due, QDate today)
{
    const int days = DaysOverdue(due, today);
    return days > 0 ? DaysOverdueText(days) : QString();
}

QString ListedLoan::discText() const
{
    return disc ? u"%1. %2"_s.arg(QString::number(disc->number), kind->discTitle(disc->name, disc->album)) : u"-"_s;
}

QString ListedLoan::titleCaption() const
{
    return kind && kind->album ? kind->nameHeading() + u" - Альбом"_s : u"Название"_s;
}

QString ListedLoan::title() const
{
    if (!disc) return u"-"_s;
    return kind->album ? disc->name + u" - "_s + disc->album : disc->name;
}

ListedLoan LoanWithKey(const Database& main, qint64 loan)
{
    Recordset row = main.OpenRecordset(u"SELECT * FROM Должники WHERE КодДолжника = ?", {loan});
    ListedLoan listed;
    if (row.RecordCount() == 0) return listed;
    listed.kind = CatalogueByCode(row[u"Категория"].text());
    listed.discKey = row.value(u"КодДиска").toLong();
    listed.due = row[u"ДатаВозврата"].date();
    if (listed.kind) listed.disc = DiscWithKey(main, *listed.kind, listed.discKey);
    return listed;
}

QList<DiscOut> DiscsOut(const Database& main, int number)
{
    QList<DiscOut> out;
    for (const CatalogueKind* kind : AllCatalogues()) {
        const QString select = u"SELECT MIN(%1) FROM %2 WHERE Номер = ? AND Должник = True"_s.arg(kind->key,
                                                                                                  kind->table);
        const Value disc = main.Scalar(select, {number});
        if (!disc.isNull()) out += {kind, disc.toLong()};
    }
    return out;
}
