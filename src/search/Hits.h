#pragma once

#include "platform/Literals.h"

#include <QString>
#include <atomic>
#include <string>
#include <string_view>
#include <vector>

/// A disc of a catalogue that has a list.
struct ListedDisc {
    qint64 key = 0; ///< of the catalogue row
    int number = 0;
    int disc = 1; ///< of the set
    QString list; ///< the name of its list
};

/// What was found in one list. All its texts are one, in UTF-8: a million hits take some 20 bytes each besides their names.
class ListHits {
public:
    /// Hits of one folder that follow each other share its path.
    void add(std::string_view name, std::string_view path);

    std::size_t size() const { return m_rows.size(); }
    std::string_view name(std::size_t row) const { return part(m_rows[row].name, m_rows[row].nameSize); }
    std::string_view path(std::size_t row) const { return part(m_rows[row].path, m_rows[row].pathSize); }
    void clear(); ///< keeps its room

private:
    struct Row {
        quint32 name, nameSize, path, pathSize;
    };
    std::string_view part(quint32 at, quint32 size) const { return std::string_view(m_texts).substr(at, size); }

    std::vector<Row> m_rows;
    std::string m_texts;
};

/// What a search has found, in an order of its own: at first that of the catalogue.
class Hits {
public:
    struct Place {
        quint32 disc, row;
        bool operator==(const Place&) const = default;
    };
    using Order = std::vector<Place>;
    enum Column { Name, Number, Path };

    Hits() = default;
    explicit Hits(std::vector<ListedDisc> discs);

    /// Each disc at most once, in their order.
    void append(std::size_t disc, ListHits hits);
    std::size_t size() const { return m_order.size(); }

    const ListedDisc& disc(std::size_t hit) const { return m_discs[m_order[hit].disc]; }
    QString name(std::size_t hit) const { return text(m_order[hit], Name); }
    /// Of the folder; empty for tracks.
    QString path(std::size_t hit) const { return text(m_order[hit], Path); }
    /// The disc's number, and behind it which disc of the set it is unless that is the first: "7 (2)".
    QString number(std::size_t hit) const;

    /// The order by one column, equal ones as the catalogue has them; texts in the order of titles, numbers by their value.
    /// For a thread of its own while nothing is appended; empty when `stopped` became true. Throws what the system throws
    /// without memory or threads.
    Order sorted(Column column, bool descending, const std::atomic<bool>& stopped) const;
    const Order& order() const { return m_order; }
    void setOrder(Order order) { m_order = std::move(order); }

private:
    QString text(Place place, Column column) const;

    std::vector<ListedDisc> m_discs;
    std::vector<ListHits> m_lists; ///< of each disc
    Order m_order;
};
