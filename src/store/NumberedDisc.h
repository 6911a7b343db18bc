#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

#include <optional>

/// What is told of a disc in a sentence about it.
struct NumberedDisc {
    qint64 key = 0;
    int number = 0;
    QString name, album; ///< of what is no audio disc the album is empty
    bool lent = false;
};
/// The first disc in stored order that has the number.
std::optional<NumberedDisc> DiscNumbered(const Database& main, const CatalogueKind& kind, int number);
/// The disc with this key.
std::optional<NumberedDisc> DiscWithKey(const Database& main, const CatalogueKind& kind, qint64 key);
