#pragma once

#include "store/NumberedDisc.h"

#include <QStringList>

// The list of open loans.

/// What it can be sorted by.
const QList<SortOrder>& LoanListOrders();
/// Its SELECT: `filter` as it stands ("AND …" or empty), `order` an index of LoanListOrders().
QString LoanListSource(const QString& filter, int order, bool descending);

// Filters. In a text * ? # are wildcards; a name stands for itself, whatever it holds.
QString CategoryFilter(const CatalogueKind& kind);
bool IsCategoryFilter(const QString& filter);
QString BorrowerFilter(const QString& text);
QString NameFilter(const QString& name);

/// When a disc is to be back: a date, "сегодня" or "без срока".
QString TermText(QDate due, QDate today);
/// "2 дня"; empty for what is not late.
QString LatenessText(QDate due, QDate today);

/// A loan with its disc.
struct ListedLoan {
    const CatalogueKind* kind = nullptr; ///< null for a category that this program does not know
    qint64 discKey = 0;
    std::optional<NumberedDisc> disc; ///< none when it has been deleted
    QDate due;                        ///< invalid without a term

    /// "7. Кино - Группа крови"; "-" without a disc.
    QString discText() const;
    /// What title() is: "Группа/Исполнитель - Альбом" or "Название".
    QString titleCaption() const;
    /// "Кино - Группа крови"; "-" without a disc.
    QString title() const;
};
/// Empty for a loan that is gone.
ListedLoan LoanWithKey(const Database& main, qint64 loan);

/// The discs with this number that are marked as lent, one per catalogue at most.
struct DiscOut {
    const CatalogueKind* kind;
    qint64 disc;
};
QList<DiscOut> DiscsOut(const Database& main, int number);
