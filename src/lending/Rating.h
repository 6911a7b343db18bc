#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

// A borrower is graded by how late he brought discs back, in whole days on average: the mean over all his loans, to the
// nearest whole number, halves to the even one. A loan still out counts in the number of loans but not in the days.

/// Days from the promised day to that of the return; 0 when it was in time. A loan without a term counts as promised for
/// `today`.
int DaysLate(QDate due, QDate returned, QDate today);
/// `days` by `loans`, which is above 0.
int MeanDays(qint64 days, int loans);
/// "Хороший" for 0 to "Хуже некуда..." above 50.
QString RatingWord(int rating);

/// One loan in the record of a borrower.
struct RecordedLoan {
    const CatalogueKind* kind;
    qint64 loan;  ///< key in the ledger
    qint64 disc;  ///< key in the catalogue
    int number;   ///< of the disc; 0 when it has been deleted
    bool out;     ///< the disc is not back yet
    int daysLate; ///< of a disc that is back
};
/// Loans of a borrower in the order of their issue; with a `kind` of that catalogue only, with `outOnly` those still out.
QList<RecordedLoan> RecordOf(const Database& main, qint64 borrower, QDate today, const CatalogueKind* kind = nullptr,
                             bool outOnly = false);

inline constexpr int LargestRating = 80;
/// What a record comes to. All 0 for an empty one.
struct Standing {
    int rating = 0; ///< LargestRating at most
    int totalDays = 0;
    int out = 0;
};
Standing StandingOf(const QList<RecordedLoan>& record);

/// The word for a borrower to whom one had better not lend, by all of his loans: empty for a rating up to 5, for a new name
/// and for who has never borrowed.
QString WarningAbout(const Database& main, const QString& name, QDate today);
