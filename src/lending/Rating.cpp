#include "lending/Rating.h"

#include "lending/Borrowers.h"

#include <algorithm>

static constexpr int LargestHarmless = 5;

int DaysLate(QDate due, QDate returned, QDate today)
{
    if (!returned.isValid()) return 0;
    return static_cast<int>(std::max<qint64>(0, (due.isValid() ? due : today).daysTo(returned)));
}

int MeanDays(qint64 days, int loans)
{
    const qint64 whole = days / loans, rest = 2 * (days % loans);
    const bool up = rest > loans || (rest == loans && whole % 2 == 1);
    return static_cast<int>(whole + (up ? 1 : 0));
}

QString RatingWord(int rating)
{
    if (rating == 0) return u"Хороший"_s;
    if (rating <= LargestHarmless) return u"Нормальный"_s;
    if (rating <= 20) return u"Плохой"_s;
    return rating <= 50 ? u"Ужасный!!!"_s : u"Хуже некуда..."_s;
}

QList<RecordedLoan> RecordOf(const Database& main, qint64 borrower, QDate today, const CatalogueKind* kind,
                             bool outOnly)
{
    QList<RecordedLoan> record;
    for (const CatalogueKind* each : AllCatalogues()) {
        if (kind && kind != each) continue;
        Recordset rows = main.OpenRecordset(
            u"SELECT КодДолжника, КодДиска, ДатаВозврата, ДатаВозвратаРеальная, Долг, Номер "
            "FROM Должники LEFT JOIN %1 ON КодДиска = %2 WHERE КодИмяДолжника = ? AND Категория = ?%3"_s.arg(
                each->table, each->key, outOnly ? u" AND Долг = True"_s : QString()),
            {borrower, each->code});
        for (; !rows.AtEOF(); rows.MoveNext()) {
            const bool out = rows[u"Долг"].toBool();
            const QDate due = rows[u"ДатаВозврата"].date(), returned = rows[u"ДатаВозвратаРеальная"].date();
            record += {.kind = each,
                       .loan = rows.value(u"КодДолжника").toLong(),
                       .disc = rows.value(u"КодДиска").toLong(),
                       .number = rows[u"Номер"].toInt(),
                       .out = out,
                       .daysLate = out ? 0 : DaysLate(due, returned, today)};
        }
    }
    std::ranges::sort(record, {}, &RecordedLoan::loan);
    return record;
}

Standing StandingOf(const QList<RecordedLoan>& record)
{
    Standing standing;
    if (record.isEmpty()) return standing;
    for (const RecordedLoan& loan : record) {
        standing.totalDays += loan.daysLate;
        standing.out += loan.out ? 1 : 0;
    }
    standing.rating = std::min(LargestRating, MeanDays(standing.totalDays, static_cast<int>(record.size())));
    return standing;
}

QString WarningAbout(const Database& main, const QString& name, QDate today)
{
    const auto borrower = FindBorrower(main, name);
    if (!borrower) return {};
    Recordset loans = main.OpenRecordset(
        u"SELECT ДатаВозврата, ДатаВозвратаРеальная FROM Должники WHERE КодИмяДолжника = ?", {*borrower});
    if (loans.RecordCount() == 0) return {};
    qint64 days = 0;
    for (; !loans.AtEOF(); loans.MoveNext())
        days += DaysLate(loans[u"ДатаВозврата"].date(), loans[u"ДатаВозвратаРеальная"].date(), today);
    const int rating = MeanDays(days, loans.RecordCount());
    return rating > LargestHarmless ? RatingWord(rating) : QString();
}
