#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

/// One loan in the history of a disc.
struct HistoryEntry {
    QString borrower;
    QDate given;
    QDate returned; ///< invalid while the disc is out
};
/// Who had a disc, in the order of the loans. Loans of borrowers who were deleted are gone.
QList<HistoryEntry> HistoryOf(const Database& main, const CatalogueKind& kind, qint64 disc);
