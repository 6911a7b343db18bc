#pragma once

#include "dao/DBEngine.h"
#include "store/CatalogueKind.h"

#include <optional>

/// Where a disc is to be bound.
struct BindingPlace {
    QString title;      ///< of the row, as CatalogueKind::discTitle gives it
    bool taken = false; ///< another disc is bound there
};

/// Nothing when the row is gone.
std::optional<BindingPlace> PlaceOf(const Database& main, const CatalogueKind& kind, const DiscChoice& choice);
/// Number of the row whose first disc is bound to `id`. Only the first: a disc that is another one of a set is offered to
/// be unbound, never to be bound. An empty `id` is one like others.
std::optional<int> BoundFirst(const Database& main, const CatalogueKind& kind, const QString& id);
/// Binds the disc in place of what may be bound there.
void BindDisc(const Database& main, const CatalogueKind& kind, const DiscChoice& choice, const QString& id);
/// Takes the identifier from all discs of the first row, in stored order, that has it. Nothing happens without one.
void UnbindDisc(const Database& main, const CatalogueKind& kind, const QString& id);
