#pragma once

#include <string_view>

struct sqlite3;

/// Name of the collation in the schema of every text field.
inline constexpr char CollationName[] = "Russian";

/// Order of two UTF-8 texts without regard to case: punctuation, digits, Latin, Cyrillic, Ё beside Е. Negative, 0 or
/// positive. Texts that differ in accents alone are not equal.
int CompareText(std::string_view left, std::string_view right);

void RegisterCollation(sqlite3* db);
