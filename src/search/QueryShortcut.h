#pragma once

#include "platform/Profile.h"
#include "store/CatalogueKind.h"

#include <array>
#include <optional>

// How a query shortcut of query.ini is made:
//
//     [Query]   Count                            how many there are
//     [n]       Name                             of shortcut n, 1 to Count
//     [name]    Num, Category, Query1 to Query3  its n, the catalogue's code, its conditions
//
//     fragment = "And" field operator value
//     value    = number / "'" text "'" / "'*" text "*'"    ; the last for LIKE; an apostrophe in a text is doubled
//
// The catalogue's statement ends in a WHERE clause, which fragments join.

inline constexpr int Conditions = 3; ///< at most, in a shortcut

struct QueryCondition {
    QString field, comparison, value; ///< "Название", "LIKE", "abc"

    bool operator==(const QueryCondition&) const = default;
};

/// Number of shortcuts in the file, bounded: a damaged count costs no minutes.
int QueryCount(const Profile& queries);
/// Name of shortcut 1 to QueryCount(); empty where the file lacks it.
QString QueryNameAt(const Profile& queries, int number);

/// Fields that a shortcut on this catalogue can ask for: number, title, album where there are any, dictionary.
QStringList QueryFields(const CatalogueKind& kind);
/// "=" and "LIKE", and for the number "<" and ">".
QStringList QueryComparisons(const QString& field);
/// Whether its values are those of the catalogue's dictionary.
bool FromDictionary(const CatalogueKind& kind, const QString& field);
inline const QString NumberField = u"Номер"_s;

/// Text is cleaned as it is on its way into the catalogue, so that it meets what stands there.
QString QueryFragment(const QueryCondition& condition);
/// Nothing for what is no fragment.
std::optional<QueryCondition> SplitQueryFragment(const QString& fragment);

/// A shortcut as the form shows it.
struct StoredQuery {
    QString name;
    QString category; ///< "AD", "PC" or "DVD"
    std::array<std::optional<QueryCondition>, Conditions> conditions = {};

    bool operator==(const StoredQuery&) const = default;
};

/// The name under which a shortcut can be kept: in the file's code page, without brackets and quotation marks.
QString QueryName(const QString& entered);
/// "Запрос" and the first number behind those in use that makes a free name.
QString NewQueryName(const Profile& queries);
/// Whether a shortcut has the name, or the file needs it for itself. `except` is the one that is being changed.
bool QueryNameTaken(const Profile& queries, const QString& name, const QString& except = {});
/// Null when the file has no such shortcut, or one without a catalogue.
std::optional<StoredQuery> ReadStoredQuery(const Profile& queries, const QString& name);
/// As a new one, or in place of the shortcut `replaced`, which may have had another name. False when the file cannot be
/// written.
bool StoreQuery(const Profile& queries, const StoredQuery& query, const QString& replaced = {});
