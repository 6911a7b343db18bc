#include "search/Hits.h"

#include "dao/Collation.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <thread>

void ListHits::add(std::string_view name, std::string_view path)
{
    if (m_texts.size() + name.size() + path.size() > std::numeric_limits<quint32>::max())
        throw std::length_error("a list holds more than 4 GiB of hits");
    const auto put = [this](std::string_view text) {
        const auto at = quint32(m_texts.size());
        m_texts += text;
        return at;
    };
    Row row{put(name), quint32(name.size()), 0, quint32(path.size())};
    if (!m_rows.empty() && this->path(m_rows.size() - 1) == path)
        row.path = m_rows.back().path;
    else
        row.path = put(path);
    m_rows.push_back(row);
}

void ListHits::clear()
{
    m_rows.clear();
    m_texts.clear();
}

Hits::Hits(std::vector<ListedDisc> discs) : m_discs(std::move(discs)), m_lists(m_discs.size()) {}

void Hits::append(std::size_t disc, ListHits hits)
{
    for (quint32 row = 0; row < hits.size(); ++row) m_order.push_back({quint32(disc), row});
    m_lists[disc] = std::move(hits);
}

QString Hits::number(std::size_t hit) const
{
    const ListedDisc& found = disc(hit);
    const QString number = QString::number(found.number);
    return found.disc == 1 ? number : number + u" (%1)"_s.arg(found.disc);
}

QString Hits::text(Place place, Column column) const
{
    const ListHits& list = m_lists[place.disc];
    const std::string_view text = column == Path ? list.path(place.row) : list.name(place.row);
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

namespace {

struct Stopped {};

/// A hit beside what it is sorted by, so that comparing looks nothing up.
struct Sorting {
    Hits::Place place;
    TextStart start; ///< of `text`
    std::string_view text;
};

/// Sorts the halves at the same time. `less` may throw Stopped.
template<class Less> void sortInHalves(std::vector<Sorting>& rows, const Less& less)
{
    const auto middle = rows.begin() + std::ptrdiff_t(rows.size() / 2);
    const auto half = [&](auto first, auto last) {
        try {
            std::sort(first, last, less);
        } catch (Stopped) {
            return false;
        }
        return true;
    };
    bool done = false;
    std::thread other([&] { done = half(middle, rows.end()); });
    const bool mine = half(rows.begin(), middle);
    other.join();
    if (!mine || !done) throw Stopped{};
    std::inplace_merge(rows.begin(), middle, rows.end(), less);
}

} // namespace

Hits::Order Hits::sorted(Column column, bool descending, const std::atomic<bool>& stopped) const
{
    std::vector<Sorting> rows;
    rows.reserve(m_order.size());
    for (std::size_t disc = 0; disc < m_lists.size(); ++disc) {
        const ListHits& list = m_lists[disc];
        const quint64 number = quint64(m_discs[disc].number) << 3 | quint64(m_discs[disc].disc);
        for (quint32 row = 0; row < list.size(); ++row) {
            if (stopped.load(std::memory_order_relaxed)) return {};
            const std::string_view text = column == Name ? list.name(row) : column == Path ? list.path(row) : "";
            rows.push_back({{quint32(disc), row}, column == Number ? TextStart{number, true} : StartOf(text), text});
        }
    }
    const auto less = [&](const Sorting& a, const Sorting& b) {
        if (stopped.load(std::memory_order_relaxed)) throw Stopped{};
        const int order = CompareText(a.start, a.text, b.start, b.text);
        if (order != 0) return descending ? order > 0 : order < 0;
        return a.place.disc != b.place.disc ? a.place.disc < b.place.disc : a.place.row < b.place.row;
    };
    Order order;
    try {
        sortInHalves(rows, less);
        order.reserve(rows.size());
        for (const Sorting& row : rows) order.push_back(row.place);
    } catch (Stopped) {
        order.clear();
    }
    return order;
}
