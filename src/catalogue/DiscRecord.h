#pragma once

#include "dao/Database.h"
#include "store/CatalogueKind.h"

#include <QHash>
#include <optional>

/// A row of a catalogue as the editor knows it.
struct DiscRecord {
    qint64 key = 0; ///< 0 for a row that is yet to be added
    int number = 0; ///< of a row that exists only read: changing it is no matter of saving
    QString name, year;
    QString description;         ///< its name in the dictionary
    int discs = 1;               ///< in the set, 1 to 6
    QHash<QString, Value> extra; ///< CatalogueKind::extraFields
    QString binding;             ///< identifier of disc 1 for a new row, or empty
};

/// What is offered for a new row.
struct OfferedTitle {
    QString name;
    QString album = {}; ///< where the catalogue has albums
};

/// Nothing when the row is gone, or its dictionary entry.
std::optional<DiscRecord> ReadRecord(const Database& main, const CatalogueKind& kind, qint64 key);

/// The code of a name in the dictionary; a new name is added to it. Names compare without regard to case.
qint64 FindOrAddName(const Database& main, const DictionaryKind& dictionary, const QString& name);

/// All names of a dictionary, and all titles of a catalogue, an album behind its title, in stored order.
QStringList NamesOf(const Database& main, const DictionaryKind& dictionary);
QStringList TitlesOf(const Database& main, const CatalogueKind& kind);

/// Title of the first disc in stored order with this number, for audio always "Название - Альбом". Nothing when the number
/// is free.
std::optional<QString> FirstDiscNumbered(const Database& main, const CatalogueKind& kind, int number);

/// Adds the row or changes the one with the record's key, and stamps row and catalogue with `today`. `code` is what
/// FindOrAddName gave for the description. The result is the row's key. Throws 3021 when the row to change is gone.
qint64 SaveDisc(const Database& main, const CatalogueKind& kind, const DiscRecord& record, qint64 code, QDate today);
