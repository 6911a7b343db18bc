#include "lending/DaysOverdue.h"

#include <algorithm>

bool IsDue(QDate due, QDate today) { return due.isValid() && due <= today; }

int DaysOverdue(QDate due, QDate today)
{
    return due.isValid() ? static_cast<int>(std::max<qint64>(0, due.daysTo(today))) : 0;
}

QString DayWord(int days)
{
    const int last = days % 10;
    if (days >= 11 && days <= 19) return u" дней"_s;
    if (last == 1) return u" день"_s;
    return last >= 2 && last <= 4 ? u" дня"_s : u" дней"_s;
}

QString DaysOverdueText(int days) { return days == 0 ? u"нет"_s : QString::number(days) + DayWord(days); }
