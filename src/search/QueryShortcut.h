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

inline constexpr int Conditions = 3;                ///< at most, in a shortcut
inline constexpr int LongestQueryName = 50;         ///< its reader takes 54 characters
inline constexpr int FragmentBuffer = 255;          ///< of who runs a shortcut
inline constexpr int WholeFragmentBuffer = 4 << 20; ///< of who writes it back: no file is longer
inline constexpr int LongestQueryText = 100;        ///< each apostrophe is doubled, and all of it shall be run
inline constexpr int LongestQueryNumber = 5;

struct QueryCondition {
    QString field, comparison, value; ///< "Название", "LIKE", "abc"

    bool operator==(const QueryCondition&) const = default;
};

/// Names of the shortcuts in their order. A damaged count gives at most a thousand of them.
QStringList QueryNames(const Profile& queries);

/// Fields that a shortcut on this catalogue can ask for: number, title, album where there are any, dictionary.
QStringList QueryFields(const CatalogueKind& kind);
/// "=" and "LIKE", and for the number "<" and ">".
QStringList QueryComparisons(const QString& field);
/// Whether its values are those of the catalogue's dictionary.
bool FromDictionary(const CatalogueKind& kind, const QString& field);
inline const QString NumberField = u"Номер"_s;

/// Text is cleaned as it is on its way into the catalogue, so that it meets what stands there.
QString QueryFragment(const QueryCondition& condition);
/// The condition of a fragment; nothing for one that was edited by hand to say more than a condition on one of the
/// catalogue's fields can.
std::optional<QueryCondition> SplitQueryFragment(const CatalogueKind& kind, const QString& fragment);
/// Characters of a value that the file's code page lacks: it keeps a "?" in their place.
QString NotKept(const QString& value);

struct StoredQuery {
    QString name;
    QString category;                               ///< "AD", "PC" or "DVD"; a file that was edited may say anything
    std::array<QString, Conditions> fragments = {}; ///< as they stand, without blanks around; empty for none

    /// The fragments in one, with blanks between them; empty when none was formed.
    QString filter() const;

    bool operator==(const StoredQuery&) const = default;
};

/// The name under which a shortcut can be kept: in the file's code page, without brackets and quotation marks.
QString QueryName(const QString& entered);
/// "Запрос" and the first number behind those in use that makes a free name.
QString NewQueryName(const Profile& queries);
/// Whether the file needs the name for itself: it is a number, or the section of the count.
bool QueryNameReserved(const QString& name);
/// Whether a shortcut has the name. `except` is the one that is being changed.
bool QueryNameTaken(const Profile& queries, const QString& name, const QString& except = {});
/// Null when the file has no such shortcut, or one without a catalogue. Fragments are cut to `buffer` - 1 characters.
std::optional<StoredQuery> ReadStoredQuery(const Profile& queries, const QString& name, int buffer = FragmentBuffer);
/// As a new one, or in place of the shortcut `replaced`, which may have had another name. False when the file cannot be
/// written.
bool StoreQuery(const Profile& queries, const StoredQuery& query, const QString& replaced = {});
/// Takes a shortcut out and moves those behind it up. False when the file does not say how many there are, does not know
/// the name, or cannot be written.
bool DeleteQuery(const Profile& queries, const QString& name);
