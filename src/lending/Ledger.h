#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

// The ledger has one row for every loan there ever was; returning closes it, nothing opens it again. A disc is named by
// its catalogue and the key of its row there. That it is out is held twice: its row says lent exactly while the ledger has
// an open loan of it.

/// Who has the disc. Empty when the ledger has no open loan of it, also for a disc that is marked as lent.
QString BorrowerOf(const Database& main, const CatalogueKind& kind, qint64 disc);

/// Whether the ledger has an open loan of the disc.
bool HasOpenLoan(const Database& main, const CatalogueKind& kind, qint64 disc);

/// Lends a disc from today on. An invalid `due` is a loan without a term. False, and nothing is written, when the disc is
/// gone or marked as lent.
bool IssueDisc(const Database& main, const CatalogueKind& kind, qint64 disc, qint64 borrower, QDate due);
/// Another promised day, or none, for the open loan of a disc. False when it has none.
bool ChangeTerm(const Database& main, const CatalogueKind& kind, qint64 disc, QDate due);

/// Which loan of a disc a return closes. The newest one is closed as it stands: where it was closed already it gets
/// another day of return.
enum class Closes { Newest, NewestOpen };
/// The disc is back: its mark goes, and that loan, if the ledger has one, is closed with `today`.
void TakeBack(const Database& main, const CatalogueKind& kind, qint64 disc, QDate today, Closes which = Closes::Newest);

// The halves of a return, for who asks between them. Each alone leaves the two places at odds.

/// Closes the newest loan of a disc as TakeBack does. Its borrower; empty when there was none to close.
QString CloseLoan(const Database& main, const CatalogueKind& kind, qint64 disc, QDate today,
                  Closes which = Closes::Newest);
/// Closes the loan with this key, whatever its disc is.
void CloseLoan(const Database& main, qint64 loan, QDate today);
/// A disc that is gone is no error.
void MarkLent(const Database& main, const CatalogueKind& kind, qint64 disc, bool lent);
