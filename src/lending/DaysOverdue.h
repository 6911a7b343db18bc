#pragma once

#include "platform/Literals.h"

#include <QDate>

// A loan without a term, an invalid `due`, is never overdue.

/// Whether the disc is to be fetched: it was promised for `today` or earlier.
bool IsDue(QDate due, QDate today);
/// Whole days since the promised day; 0 for that day itself and before.
int DaysOverdue(QDate due, QDate today);

/// " день", " дня" or " дней". Only 11 to 19 are exceptions: 111 goes by its last digit, on purpose.
QString DayWord(int days);
/// "нет" for 0, else "3 дня".
QString DaysOverdueText(int days);
