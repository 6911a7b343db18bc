#include "dao/TablePages.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <sqlite3.h>

namespace {

constexpr std::size_t HeaderSize = 100;         // [1.3]
constexpr std::size_t MostPages = 32;           // that are read at once
constexpr int MostDepth = 12;                   // of a tree; a file has no room for more
constexpr std::uint8_t Interior = 5, Leaf = 13; // [1.6]
constexpr std::size_t MostFields = 4;

using Bytes = std::span<const std::uint8_t>;

std::uint32_t big16(const std::uint8_t* p) { return std::uint32_t(p[0]) << 8 | p[1]; }
std::uint32_t big32(const std::uint8_t* p) { return big16(p) << 16 | big16(p + 2); }

/// [1.6] A number of 1 to 9 bytes, seven bits each, the ninth in full. False at the end of the bytes.
bool varint(Bytes bytes, std::size_t& at, std::uint64_t& number)
{
    if (at < bytes.size() && bytes[at] < 0x80) { // nearly all of them
        number = bytes[at++];
        return true;
    }
    number = 0;
    for (int i = 0; i < 9; ++i) {
        if (at >= bytes.size()) return false;
        const std::uint8_t byte = bytes[at++];
        if (i == 8) {
            number = number << 8 | byte;
            return true;
        }
        number = number << 7 | (byte & 0x7F);
        if (byte < 0x80) return true;
    }
    return false;
}

/// [2.1] Bytes of a value in a row; none for the reserved types.
std::optional<std::uint64_t> sizeOf(std::uint64_t type)
{
    static constexpr std::array<std::uint8_t, 10> sizes{0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    if (type < sizes.size()) return sizes[type];
    if (type < 12) return {};
    return (type - 12) / 2;
}

constexpr std::uint64_t Null = 0;
bool isText(std::uint64_t type) { return type >= 13 && type % 2 == 1; }

/// Empty for anything else, without data() for what is not stored.
std::string_view textOf(std::uint64_t type, const std::uint8_t* data)
{
    if (!isText(type)) return {};
    return {reinterpret_cast<const char*>(data), std::size_t((type - 13) / 2)};
}

bool nameCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// The names of a table's fields in their order, from its CREATE TABLE. Nothing for one with computed fields, which are
/// not all stored, with a key of its own, or in words that the program does not use.
std::optional<std::vector<std::string>> fieldsOf(std::string_view sql)
{
    std::vector<std::string> fields;
    int depth = 0;
    bool first = false; // of a definition
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        if (c == '"' || c == '\'') {
            const std::size_t end = sql.find(c, at + 1);
            if (end == sql.npos || (end + 1 < sql.size() && sql[end + 1] == c)) return {};
            if (depth == 1 && first) {
                if (c != '"') return {};
                fields.emplace_back(sql.substr(at + 1, end - at - 1));
                first = false;
            }
            at = end + 1;
        } else if (nameCharacter(c)) {
            std::size_t end = at;
            while (end < sql.size() && nameCharacter(sql[end])) ++end;
            std::string word(sql.substr(at, end - at));
            std::ranges::transform(word, word.begin(), [](char l) { return l >= 'a' && l <= 'z' ? char(l - 32) : l; });
            if (word == "AS" || word == "GENERATED" || (depth == 0 && !fields.empty())) return {};
            if (depth == 1 && first && word != "CONSTRAINT") return {};
            first = false;
            at = end;
        } else {
            if (c == '(' && ++depth == 1) first = fields.empty();
            if (c == ')' && --depth < 0) return {};
            if (c == ',' && depth == 1) first = true;
            const bool comment = sql.substr(at, 2) == "--" || sql.substr(at, 2) == "/*";
            if (comment || c == '[' || c == '`') return {}; // other quotation marks
            ++at;
        }
    }
    if (depth != 0 || fields.empty()) return {};
    return fields;
}

} // namespace

/// What is asked of a table, and how far it may go.
struct TablePages::Walk {
    std::span<const std::size_t> places; ///< of the fields in a row
    const std::function<bool(std::span<const Field>)>& take;
    std::uint32_t pagesLeft; ///< a tree that goes in circles ends here
};

bool TablePages::open(sqlite3* db, std::int64_t schemaVersion)
{
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK) return false;
    if (!file || !file->pMethods || !readHeader(file)) return false;
    if (schemaVersion == m_schemaVersion) return true;
    m_tables.clear();
    m_layouts.clear();
    m_schemaVersion = -1;
    if (!readSchema()) return false;
    m_schemaVersion = schemaVersion;
    return true;
}

bool TablePages::readHeader(sqlite3_file* file)
{
    m_file = file;
    std::array<std::uint8_t, HeaderSize> header;
    sqlite3_int64 size = 0;
    if (file->pMethods->xFileSize(file, &size) != SQLITE_OK ||
        file->pMethods->xRead(file, header.data(), int(header.size()), 0) != SQLITE_OK)
        return false;
    static constexpr char Magic[] = "SQLite format 3";
    constexpr std::uint32_t Utf8 = 1;
    constexpr std::uint8_t Journal = 1; // no log of writes ahead
    if (std::memcmp(header.data(), Magic, sizeof Magic) != 0) return false;
    if (header[19] != Journal || big32(&header[56]) != Utf8) return false;
    m_pageSize = big16(&header[16]) == 1 ? 65536 : big16(&header[16]);
    if (m_pageSize < 512) return false;
    m_usable = m_pageSize - header[20];
    if (m_usable < 480) return false;
    m_pages = std::uint32_t(std::min<sqlite3_int64>(size / sqlite3_int64(m_pageSize), 0xFFFFFFFE));
    return true;
}

std::size_t TablePages::layoutOf(std::vector<std::string> fields)
{
    const auto known = std::ranges::find(m_layouts, fields);
    const auto index = std::size_t(known - m_layouts.begin());
    if (known == m_layouts.end()) m_layouts.push_back(std::move(fields));
    return index;
}

/// [2.6] The schema is a table itself, with its root in page 1: type, name, tbl_name, rootpage, sql.
bool TablePages::readSchema()
{
    static constexpr std::array<std::size_t, 4> places{0, 1, 3, 4};
    return walk(1, places, [&](std::span<const Field> fields) {
        if (textOf(fields[0].type, fields[0].data) != "table") return true;
        const auto size = sizeOf(fields[2].type);
        if (fields[2].type < 1 || fields[2].type > 4 || !size) return true; // a virtual table has no root
        std::uint32_t root = 0;
        for (std::size_t i = 0; i < *size; ++i) root = root << 8 | fields[2].data[i];
        if (auto layout = fieldsOf(textOf(fields[3].type, fields[3].data)))
            m_tables[std::string(textOf(fields[1].type, fields[1].data))] = {root, layoutOf(std::move(*layout))};
        return true;
    });
}

bool TablePages::read(const std::string& table, std::span<const std::string_view> fields, const Take& take) const
{
    const auto known = m_tables.find(table);
    if (known == m_tables.end() || fields.size() > MostFields) return false;
    const std::vector<std::string>& layout = m_layouts[known->second.layout];
    std::array<std::size_t, MostFields> places;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        places[i] = std::size_t(std::ranges::find(layout, fields[i]) - layout.begin());
        if (places[i] == layout.size()) return false;
    }
    std::array<std::string_view, MostFields> texts;
    bool wanted = true;
    const bool walked = walk(known->second.root, std::span(places).first(fields.size()),
                             [&](std::span<const Field> row) {
                                 for (std::size_t i = 0; i < row.size(); ++i) {
                                     if (row[i].type != Null && !isText(row[i].type)) return false;
                                     texts[i] = textOf(row[i].type, row[i].data);
                                 }
                                 return wanted = take(std::span(texts).first(row.size()));
                             });
    return walked || !wanted;
}

bool TablePages::walk(std::uint32_t root, std::span<const std::size_t> places,
                      const std::function<bool(std::span<const Field>)>& take) const
{
    Walk walk{places, take, m_pages};
    return walkPages(root, 1, 0, walk);
}

/// Pages that stand behind each other in the file.
bool TablePages::walkPages(std::uint32_t first, std::size_t count, int depth, Walk& walk) const
{
    if (depth > MostDepth || first == 0 || count > walk.pagesLeft || first - 1 > m_pages - count) return false;
    walk.pagesLeft -= std::uint32_t(count);
    const std::size_t size = count * m_pageSize;
    const auto pages = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    const auto offset = sqlite3_int64(first - 1) * sqlite3_int64(m_pageSize);
    if (m_file->pMethods->xRead(m_file, pages.get(), int(size), offset) != SQLITE_OK) return false;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t header = first + i == 1 ? HeaderSize : 0;
        if (!walkPage(Page(pages.get() + i * m_pageSize, m_usable), header, depth, walk)) return false;
    }
    return true;
}

/// [1.6] A page is a header, the places of its cells in the order of their keys, free room, and the cells.
bool TablePages::walkPage(Page page, std::size_t header, int depth, Walk& walk) const
{
    const std::uint8_t kind = page[header];
    if (kind != Leaf && kind != Interior) return false;
    const std::size_t cells = big16(&page[header + 3]), places = header + (kind == Leaf ? 8 : 12);
    if (places + 2 * cells > page.size()) return false;
    std::uint32_t first = 0, count = 0; // children that stand behind each other
    const auto child = [&](std::uint32_t number) {
        if (count > 0 && number == first + count && count < MostPages) {
            ++count;
            return true;
        }
        const bool read = count == 0 || walkPages(first, count, depth + 1, walk);
        first = number;
        count = 1;
        return read;
    };
    for (std::size_t i = 0; i < cells; ++i) {
        std::size_t at = big16(&page[places + 2 * i]);
        if (kind == Interior) {
            if (at + 4 > page.size() || !child(big32(&page[at]))) return false;
            continue;
        }
        std::uint64_t size = 0, key = 0;
        if (!varint(page, at, size) || !varint(page, at, key)) return false;
        // [1.6] A longer row goes on in pages of its own; so does a damaged one that leaves its page.
        if (size > page.size() - 35 || size > page.size() - at) return false;
        if (!readRow(page.subspan(at, size), walk)) return false;
    }
    if (kind == Leaf) return true;
    return child(big32(&page[header + 8])) && walkPages(first, count, depth + 1, walk);
}

/// [2.1] A row is the size of its header, the types of its values, and the values.
bool TablePages::readRow(Page payload, Walk& walk) const
{
    std::array<Field, MostFields> fields;
    std::uint64_t header = 0;
    std::size_t at = 0;
    if (!varint(payload, at, header) || header < at || header > payload.size()) return false;
    std::uint64_t data = header; // offset of the value at hand
    std::size_t place = 0, found = 0;
    for (const Page types = payload.first(header); found < walk.places.size(); ++place) {
        std::uint64_t type = 0;
        // A row that was written before its table got its last fields lacks them.
        if (!varint(types, at, type)) return false;
        const auto size = sizeOf(type);
        if (!size || *size > payload.size() - data) return false;
        for (std::size_t i = 0; i < walk.places.size(); ++i) {
            if (walk.places[i] != place) continue;
            fields[i] = {type, payload.data() + data};
            ++found;
        }
        data += *size;
    }
    return walk.take(std::span(fields).first(found));
}
