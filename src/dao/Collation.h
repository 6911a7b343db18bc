#pragma once

#include <cstdint>
#include <string_view>

struct sqlite3;

/// Name of the collation in the schema of every text field.
inline constexpr char CollationName[] = "Russian";

/// Order of two UTF-8 texts without regard to case: punctuation, digits, Latin, Cyrillic, Ё beside Е. Negative, 0 or
/// positive. Texts that differ in accents alone are not equal.
int CompareText(std::string_view left, std::string_view right);

/// The beginning of a text, which tells most pairs apart without a look at the rest: for sorting many.
struct TextStart {
    std::uint64_t ranks = 0;
    bool decides = false; ///< against another one that does, where the ranks differ
};
TextStart StartOf(std::string_view text);
/// CompareText(left, right).
inline int CompareText(TextStart leftStart, std::string_view left, TextStart rightStart, std::string_view right)
{
    if (leftStart.decides && rightStart.decides && leftStart.ranks != rightStart.ranks)
        return leftStart.ranks < rightStart.ranks ? -1 : 1;
    return CompareText(left, right);
}

void RegisterCollation(sqlite3* db);
