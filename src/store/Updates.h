#pragma once

#include "dao/DBEngine.h"
#include "store/CatalogueKind.h"

/// Today becomes the date of the catalogue's last change in _Информация, whose one row is added when it is missing.
void StampUpdate(const Database& main, const CatalogueKind& kind, QDate today);
/// Invalid when it was never changed.
QDate LastUpdate(const Database& main, const CatalogueKind& kind);
