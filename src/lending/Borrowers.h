#pragma once

#include "dao/Database.h"

#include <optional>

/// Those who borrow discs: ИменаДолжников. Names and telephones are never empty; a telephone that nobody told is NoPhone.
/// Names compare without regard to case; longer ones than LongestName are error 3163, as are longer telephones.
inline constexpr int LongestName = 50;
inline constexpr int LongestPhone = 15;
inline const QString NoPhone = u"нет"_s;

enum class NameOrder { Added, Alphabet };
QStringList BorrowerNames(const Database& main, NameOrder order = NameOrder::Added);
/// The key of the first borrower of that name.
std::optional<qint64> FindBorrower(const Database& main, const QString& name);
/// Without a telephone. The new key.
qint64 AddBorrower(const Database& main, const QString& name);
qint64 FindOrAddBorrower(const Database& main, const QString& name);
void RenameBorrower(const Database& main, qint64 key, const QString& name);
/// His loans go with him: the history of discs and the ratings forget them. False, and nothing is deleted, while one of them
/// is open: its disc would stay marked as lent.
bool DeleteBorrower(const Database& main, qint64 key);
bool HasOpenLoans(const Database& main, qint64 key);

/// Empty for a key that is gone.
QString PhoneOf(const Database& main, qint64 key);
/// An empty text is NoPhone. What stands there now.
QString ChangePhone(const Database& main, qint64 key, const QString& text);
