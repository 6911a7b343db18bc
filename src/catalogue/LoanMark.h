#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

/// Who has the disc with this key. Empty when the ledger has no open loan of it, also for a disc that is marked as lent.
QString BorrowerOf(const Database& main, const CatalogueKind& kind, qint64 key);
/// The disc is back: its mark goes, and its last loan, if the ledger has one, is closed with `today`.
void TakeBack(const Database& main, const CatalogueKind& kind, qint64 key, QDate today);
