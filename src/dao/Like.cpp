#include "dao/Like.h"

#include <QChar>
#include <algorithm>
#include <cstring>
#include <new>
#include <sqlite3.h>

namespace {

std::size_t utf8Size(char32_t c) { return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4; }

/// The lower case where it takes as many bytes as the letter itself; otherwise the letter.
char32_t fold(char32_t c)
{
    if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
    if (c > 0x10FFFF) return c;
    const char32_t lower = QChar::toLower(c);
    return utf8Size(lower) == utf8Size(c) ? lower : c;
}

/// The next character; a byte that begins none is one by itself, above all of Unicode.
char32_t next(const char*& p, const char* end)
{
    const auto byte = [&](int i) { return static_cast<unsigned char>(p[i]); };
    const auto tail = [&](int i) { return p + i < end && (byte(i) & 0xC0) == 0x80; };
    const unsigned char first = byte(0);
    if (first >= 0xC2 && first < 0xE0 && tail(1)) {
        const char32_t c = (first & 0x1Fu) << 6 | (byte(1) & 0x3Fu);
        p += 2;
        return c;
    }
    if (first >= 0xE0 && first < 0xF0 && tail(1) && tail(2)) {
        const char32_t c = (first & 0x0Fu) << 12 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
        p += 3;
        return c;
    }
    if (first >= 0xF0 && first < 0xF5 && tail(1) && tail(2) && tail(3)) {
        const char32_t c = (first & 0x07u) << 18 | (byte(1) & 0x3Fu) << 12 | (byte(2) & 0x3Fu) << 6 | (byte(3) & 0x3Fu);
        p += 4;
        return c;
    }
    ++p;
    return first < 0x80 ? first : 0x110000u + first;
}

/// Order inside of classes: code points, but ё between е and ж.
char32_t place(char32_t folded) { return folded == U'ё' ? U'е' * 2 + 1 : folded * 2; }

/// Whether the letter has exactly one other form, of the same number of bytes.
bool plain(char32_t c) { return c < 0x80 || (c >= 0xC0 && c <= 0xFE) || (c >= 0x400 && c <= 0x45F); }

int put(char* bytes, char32_t c)
{
    if (c < 0x80) {
        bytes[0] = static_cast<char>(c);
        return 1;
    }
    bytes[0] = static_cast<char>(0xC0 | c >> 6);
    bytes[1] = static_cast<char>(0x80 | (c & 0x3F));
    return 2;
}

} // namespace

LikePattern::LikePattern(std::string_view pattern)
{
    std::u32string decoded;
    for (const char *p = pattern.data(), *end = p + pattern.size(); p != end;) decoded.push_back(next(p, end));
    compile(decoded);
    simplify();
}

void LikePattern::compile(std::u32string_view pattern)
{
    const std::size_t lastClose = pattern.rfind(U']'); // looked for once: a text may be nothing but brackets
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char32_t c = pattern[i];
        if (c == '*') {
            if (m_pieces.empty() || m_pieces.back().kind != Piece::Star) m_pieces.push_back({Piece::Star});
        } else if (c == '?') {
            m_pieces.push_back({Piece::Any});
        } else if (c == '#') {
            m_pieces.push_back({Piece::Digit});
        } else if (c == '[' && lastClose != pattern.npos && i < lastClose) {
            const std::size_t close = pattern.find(U']', i + 1);
            std::u32string_view inside = pattern.substr(i + 1, close - i - 1);
            Piece piece{Piece::Class};
            if (!inside.empty() && inside[0] == '!') {
                piece.kind = Piece::NotClass;
                inside.remove_prefix(1);
            }
            for (std::size_t k = 0; k < inside.size(); ++k) {
                const bool range = k + 2 < inside.size() && inside[k + 1] == '-';
                const std::size_t last = range ? k + 2 : k;
                piece.ranges.push_back({place(fold(inside[k])), place(fold(inside[last]))});
                k = last;
            }
            if (!inside.empty()) m_pieces.push_back(std::move(piece));
            i = close;
        } else {
            m_pieces.push_back({Piece::Letter, fold(c)});
        }
    }
}

void LikePattern::simplify()
{
    auto first = m_pieces.begin(), last = m_pieces.end();
    const bool open = first != last && first->kind == Piece::Star;
    if (open) ++first;
    const bool openEnd = first != last && (last - 1)->kind == Piece::Star;
    if (openEnd) --last;
    if (first == last) return;
    if (!std::all_of(first, last, [](const Piece& p) { return p.kind == Piece::Letter && plain(p.letter); })) return;

    for (auto piece = first; piece != last; ++piece) {
        Literal::Form form{};
        const char32_t upper = QChar::toUpper(piece->letter);
        form.size = static_cast<std::uint8_t>(put(form.lower, piece->letter));
        put(form.upper, utf8Size(upper) == form.size && fold(upper) == piece->letter ? upper : piece->letter);
        m_literal.size += form.size;
        m_literal.forms.push_back(form);
    }
    // Horspool's search: the byte at the window's end says how far the window can move.
    const auto distance = [&](std::size_t behind) {
        return static_cast<std::uint8_t>(std::min<std::size_t>(behind, 255));
    };
    std::memset(m_literal.skip, distance(m_literal.size), sizeof m_literal.skip);
    m_literal.skipAfterMiss = distance(m_literal.size);
    std::size_t behind = m_literal.size;
    const Literal::Form& end = m_literal.forms.back();
    const auto endsLike = [&](char byte) { return byte == end.lower[end.size - 1] || byte == end.upper[end.size - 1]; };
    for (const Literal::Form& form : m_literal.forms)
        for (int i = 0; i < form.size; ++i) {
            --behind;
            for (const char byte : {form.lower[i], form.upper[i]}) {
                m_literal.skip[static_cast<unsigned char>(byte)] = distance(behind);
                if (behind > 0 && endsLike(byte)) m_literal.skipAfterMiss = distance(behind);
            }
        }
    m_shape = open ? (openEnd ? Shape::Inside : Shape::Suffix) : (openEnd ? Shape::Prefix : Shape::Whole);
}

bool LikePattern::Literal::at(const char* p) const
{
    for (const Form& form : forms) {
        if (form.size == 1) {
            if (p[0] != form.lower[0] && p[0] != form.upper[0]) return false;
        } else if ((p[0] != form.lower[0] || p[1] != form.lower[1]) &&
                   (p[0] != form.upper[0] || p[1] != form.upper[1])) {
            return false;
        }
        p += form.size;
    }
    return true;
}

bool LikePattern::Literal::in(std::string_view text) const
{
    if (text.size() < size) return false;
    const char* const last = text.data() + text.size() - size;
    for (const char* p = text.data(); p <= last;) {
        const std::uint8_t step = skip[static_cast<unsigned char>(p[size - 1])];
        if (step == 0) {
            if (at(p)) return true;
            p += skipAfterMiss;
        } else {
            p += step;
        }
    }
    return false;
}

bool LikePattern::matches(std::string_view text) const
{
    switch (m_shape) {
    case Shape::Inside: return m_literal.in(text);
    case Shape::Whole: return text.size() == m_literal.size && m_literal.at(text.data());
    case Shape::Prefix: return text.size() >= m_literal.size && m_literal.at(text.data());
    case Shape::Suffix:
        return text.size() >= m_literal.size && m_literal.at(text.data() + text.size() - m_literal.size);
    case Shape::General: break;
    }
    return matchesPieces(text);
}

bool LikePattern::Piece::takes(char32_t folded) const
{
    switch (kind) {
    case Letter: return letter == folded;
    case Any: return true;
    case Digit: return folded >= '0' && folded <= '9';
    case Class:
    case NotClass: {
        const char32_t at = place(folded);
        const bool inside = std::any_of(ranges.begin(), ranges.end(),
                                        [at](const Range& range) { return range.first <= at && at <= range.last; });
        return inside == (kind == Class);
    }
    case Star: break;
    }
    return false;
}

bool LikePattern::matchesPieces(std::string_view text) const
{
    const char *p = text.data(), *const end = p + text.size();
    std::size_t piece = 0, pieceAfterStar = 0;
    const char* afterStar = nullptr; // where the last star's share of the text ends
    for (;;) {
        if (piece < m_pieces.size() && m_pieces[piece].kind == Piece::Star) {
            pieceAfterStar = ++piece;
            if (piece == m_pieces.size()) return true;
            afterStar = p;
            continue;
        }
        if (p == end) return piece == m_pieces.size();
        const char* behind = p;
        const char32_t c = fold(next(behind, end));
        if (piece < m_pieces.size() && m_pieces[piece].takes(c)) {
            ++piece;
            p = behind;
            continue;
        }
        if (afterStar == nullptr) return false;
        next(afterStar, end);
        p = afterStar;
        piece = pieceAfterStar;
    }
}

extern "C" {

static void destroyPattern(void* pattern) { delete static_cast<LikePattern*>(pattern); }

static void like(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const auto text = [](sqlite3_value* value) {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
        return std::string_view(bytes, bytes ? static_cast<std::size_t>(sqlite3_value_bytes(value)) : 0);
    };
    if (sqlite3_value_type(arguments[1]) == SQLITE_NULL || sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
    try {
        if (const auto* kept = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 0))) {
            sqlite3_result_int(context, kept->matches(text(arguments[1])));
            return;
        }
        auto* pattern = new LikePattern(text(arguments[0]));
        sqlite3_result_int(context, pattern->matches(text(arguments[1])));
        sqlite3_set_auxdata(context, 0, pattern, destroyPattern); // may destroy it at once
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}
}

void RegisterLike(sqlite3* db)
{
    sqlite3_create_function_v2(db, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr, like,
                               nullptr, nullptr, nullptr);
}
