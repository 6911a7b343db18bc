#include "lending/Ledger.h"

#include "store/NumberedDisc.h"

static const auto OpenLoanOfDisc = u"КодДиска = ? AND Категория = ? AND Долг = True"_s;

QString BorrowerOf(const Database& main, const CatalogueKind& kind, qint64 disc)
{
    return main
        .Scalar(u"SELECT Имя FROM Должники, ИменаДолжников WHERE КодИмяДолжника = КодИмени AND %1 "
                "ORDER BY КодДолжника"_s.arg(OpenLoanOfDisc),
                {disc, kind.code})
        .text();
}

bool HasOpenLoan(const Database& main, const CatalogueKind& kind, qint64 disc)
{
    return main.Scalar(u"SELECT COUNT(*) FROM Должники WHERE "_s + OpenLoanOfDisc, {disc, kind.code}).toBool();
}

bool IssueDisc(const Database& main, const CatalogueKind& kind, qint64 disc, qint64 borrower, QDate due)
{
    const auto found = DiscWithKey(main, kind, disc);
    if (!found || found->lent) return false;
    MarkLent(main, kind, disc, true);
    Recordset loan = main.OpenRecordset(u"Должники");
    loan.AddNew(); // the day of issue is the field's default
    loan[u"КодИмяДолжника"] = borrower;
    loan[u"КодДиска"] = disc;
    loan[u"Категория"] = kind.code;
    loan[u"ДатаВозврата"] = due;
    loan.Update();
    return true;
}

bool ChangeTerm(const Database& main, const CatalogueKind& kind, qint64 disc, QDate due)
{
    const Value loan = main.Scalar(u"SELECT MIN(КодДолжника) FROM Должники WHERE "_s + OpenLoanOfDisc,
                                   {disc, kind.code});
    if (loan.isNull()) return false;
    main.Execute(u"UPDATE Должники SET ДатаВозврата = ? WHERE КодДолжника = ?", {due, loan});
    return true;
}

QString CloseLoan(const Database& main, const CatalogueKind& kind, qint64 disc, QDate today, Closes which)
{
    const QString condition = which == Closes::NewestOpen ? OpenLoanOfDisc : u"КодДиска = ? AND Категория = ?"_s;
    const Value loan = main.Scalar(u"SELECT MAX(КодДолжника) FROM Должники WHERE "_s + condition, {disc, kind.code});
    if (loan.isNull()) return {};
    CloseLoan(main, loan.toLong(), today);
    return main
        .Scalar(u"SELECT Имя FROM ИменаДолжников, Должники WHERE КодИмени = КодИмяДолжника AND КодДолжника = ?", {loan})
        .text();
}

void CloseLoan(const Database& main, qint64 loan, QDate today)
{
    main.Execute(u"UPDATE Должники SET Долг = False, ДатаВозвратаРеальная = ? WHERE КодДолжника = ?", {today, loan});
}

void MarkLent(const Database& main, const CatalogueKind& kind, qint64 disc, bool lent)
{
    main.Execute(u"UPDATE %1 SET Должник = ? WHERE %2 = ?"_s.arg(kind.table, kind.key), {lent, disc});
}

void TakeBack(const Database& main, const CatalogueKind& kind, qint64 disc, QDate today, Closes which)
{
    MarkLent(main, kind, disc, false);
    CloseLoan(main, kind, disc, today, which);
}
