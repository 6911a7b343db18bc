#pragma once

#include "dao/DBEngine.h"
#include "store/CatalogueKind.h"

#include <optional>

/// A catalogue row that a disc in the drive is bound to.
struct BoundDisc {
    qint64 key = 0;
    int number = 0;
    int disc = 1;  ///< the last slot, 1 to 6, that holds the identifier
    int discs = 1; ///< in the set
    QString title; ///< as CatalogueKind::discTitle gives it
};

/// The first row in stored order with `id` in one of its first `bindings` bindings.
std::optional<BoundDisc> FindBoundDisc(const Database& main, const CatalogueKind& kind, const QString& id,
                                       int bindings = 6);
