#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_file;

/// Texts of tables, decoded from the pages of the file without a statement for each row: a third of the time. Numbers in
/// brackets are sections of SQLite's "Database File Format".
///
/// Only what every file of the program looks like is decoded: UTF-8, rows within their page, plain tables. Whatever else
/// stands in the file, damage too, is left to a statement, which knows what to say about it.
class TablePages {
public:
    /// Texts in the order of the fields that were asked for, until the next row; Null has no data(). False ends the walk.
    using Take = std::function<bool(std::span<const std::string_view> texts)>;

    /// Reads what tables there are, unless it knows them by this version of the schema. `db` holds a read lock from before
    /// to after everything that is done here, and there is no log of writes ahead. False when the file is out of the
    /// ordinary.
    bool open(sqlite3* db, std::int64_t schemaVersion);
    /// Rows in the order of their keys. False when the table is out of the ordinary, or not known: what was taken then is
    /// to be forgotten.
    bool read(const std::string& table, std::span<const std::string_view> fields, const Take& take) const;

private:
    struct Table {
        std::uint32_t root;
        std::size_t layout; ///< index in m_layouts
    };
    struct Field {
        std::uint64_t type;
        const std::uint8_t* data;
    };
    struct Walk;
    using Page = std::span<const std::uint8_t>;

    bool readHeader(sqlite3_file* file);
    bool readSchema();
    bool walk(std::uint32_t root, std::span<const std::size_t> places,
              const std::function<bool(std::span<const Field>)>& take) const;
    bool walkPages(std::uint32_t first, std::size_t count, int depth, Walk& walk) const;
    bool walkPage(Page page, std::size_t header, int depth, Walk& walk) const;
    bool readRow(Page payload, Walk& walk) const;
    std::size_t layoutOf(std::vector<std::string> fields);

    sqlite3_file* m_file = nullptr;
    std::size_t m_pageSize = 0;
    std::size_t m_usable = 0; ///< bytes of a page
    std::uint32_t m_pages = 0;
    std::int64_t m_schemaVersion = -1; ///< that m_tables are of
    std::unordered_map<std::string, Table> m_tables;
    std::vector<std::vector<std::string>> m_layouts; ///< names of fields in their order; most lists share one
};
