#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

// Names of a dictionary. New ones are added by FindOrAddName.

/// What speaks against a name that the user entered: its length, a quotation mark. Empty for a good one.
QString ObjectionTo(const QString& name, const DictionaryKind& dictionary);
/// Names compare without regard to case.
bool HasName(const Database& main, const DictionaryKind& dictionary, const QString& name);
/// Of the row with this key; discs that refer to it have the new name too.
void RenameName(const Database& main, const DictionaryKind& dictionary, qint64 key, const QString& name);
/// Throws 3200 while discs refer to it.
void RemoveName(const Database& main, const DictionaryKind& dictionary, qint64 key);
