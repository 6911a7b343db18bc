#pragma once

#include "store/CatalogueKind.h"

#include <QDate>
#include <array>

class Database;

/// What the dashboard tells of one catalogue.
struct CatalogueSummary {
    int discs = 0;    ///< rows of the catalogue
    QDate lastUpdate; ///< invalid when it was never changed
    int lent = 0;     ///< open loans
};

/// In the order of AllCatalogues().
using PerCatalogue = std::array<int, 3>;
std::array<CatalogueSummary, 3> Summarise(const Database& main);
/// Open loans promised for `today` or earlier. A loan without a term is never overdue.
PerCatalogue OverdueLoans(const Database& main, QDate today);
