#pragma once

#include "store/CatalogueKind.h"

/// The SELECT behind a catalogue's list: the join, `filter` as it stands ("AND …" or empty), and the order of `sortItem`
/// with ties broken by number in the same direction. Empty for an item that the catalogue does not have.
QString RecordSource(const CatalogueKind& kind, const QString& filter, QStringView sortItem, bool descending);

/// Filters. The text has been through CleanText, so that it cannot end the clause or open a class of characters; * ? #
/// in it are wildcards.
QString ContainsFilter(const QString& field, const QString& text);
/// For a name as it stands in a dictionary.
QString EqualsFilter(const QString& field, QString name);
