#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

/// A compiled pattern of LIKE, without regard to case:
///
///     *        any text, empty too
///     ?        any one character
///     #        one digit
///     [a-я]    one character of the class; Ё stands between Е and Ж
///     [!a-я]   one character outside of it
///
/// "[*]" is an asterisk. A "[" that nothing closes stands for itself. Bytes that are no UTF-8 match "?" one by one.
class LikePattern {
public:
    explicit LikePattern(std::string_view pattern);
    bool matches(std::string_view text) const;

private:
    struct Range {
        char32_t first, last; ///< folded
    };
    struct Piece {
        enum Kind { Letter, Any, Star, Digit, Class, NotClass } kind;
        char32_t letter = 0; ///< folded
        std::vector<Range> ranges{};
        bool takes(char32_t folded) const;
    };
    /// A literal whose letters have two forms of the same number of bytes, to be sought byte by byte.
    struct Literal {
        struct Form {
            std::uint8_t size;
            char lower[2], upper[2];
        };
        std::vector<Form> forms;
        std::size_t size = 0;   ///< bytes
        std::uint8_t skip[256]; ///< how far to go on when this byte stands at the end of the window
        std::uint8_t skipAfterMiss = 1;
        bool at(const char* p) const;
        bool in(std::string_view text) const;
    };
    enum class Shape { General, Whole, Prefix, Suffix, Inside };

    void compile(std::u32string_view pattern);
    void simplify();
    bool matchesPieces(std::string_view text) const;

    std::vector<Piece> m_pieces;
    Shape m_shape = Shape::General;
    Literal m_literal;
};

/// Puts this LIKE in the place of SQLite's own.
void RegisterLike(sqlite3* db);
