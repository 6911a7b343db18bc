#include "search/ListSearch.h"

#include "dao/DBEngine.h"

#include <algorithm>
#include <mutex>

namespace {

constexpr unsigned MostReaders = 4; // more would wait for the disk

QString soughtField(const ListQuery& query)
{
    if (query.kind == ListQuery::Tracks) return u"Название"_s;
    if (query.commentOnly) return u"Комментарий"_s;
    return query.kind == ListQuery::Folders ? u"Путь"_s : u"Имя"_s;
}

QStringList fieldsOf(const ListQuery& query)
{
    return query.kind == ListQuery::Tracks ? QStringList{u"Название"_s} : QStringList{u"Имя"_s, u"Путь"_s};
}

/// The row of a folder itself is the one whose name is its path.
bool ofKind(ListQuery::Kind kind, std::string_view name, std::string_view path)
{
    return kind == ListQuery::Tracks || (name == path) == (kind == ListQuery::Folders);
}

} // namespace

QString CriterionOf(const ListQuery& query)
{
    const QString criterion = soughtField(query) +
                              (query.wholeWord ? u" = \"%1\""_s : u" LIKE \"*%1*\""_s).arg(query.text);
    if (query.text.contains(u'"'))
        throw RuntimeError(DaoErrorNumber::MalformedCriterion,
                           u"Ошибка в условии поиска: «%1». Уберите кавычки из текста поиска."_s.arg(criterion));
    return criterion;
}

std::vector<ListedDisc> ListedDiscs(const Database& main, const CatalogueKind& kind)
{
    QStringList fields{kind.key, u"Номер"_s}, listed;
    for (int k = 1; k <= 6; ++k) {
        fields += CatalogueKind::listField(k);
        listed += CatalogueKind::listField(k) + u" IS NOT NULL"_s;
    }
    std::vector<ListedDisc> discs;
    // A walk through a recordset would read every row by itself.
    TableReader reader(main);
    reader.reading([&] {
        reader.read(kind.table, Selection(fields, listed.join(u" OR "_s)), [&](const TableReader::Row& row) {
            for (int k = 1; k <= 6; ++k) {
                const std::string_view list = row.text(k + 1);
                if (list.empty()) continue;
                discs.push_back(
                    {row.number(0), int(row.number(1)), k, QString::fromUtf8(list.data(), qsizetype(list.size()))});
            }
        });
    });
    return discs;
}

/// One walk, between the threads that take part in it.
struct ListSearch::Walk {
    Walk(const ListQuery& query, const std::vector<ListedDisc>& discs, int readers)
        : kind(query.kind), selection(fieldsOf(query), CriterionOf(query)), lists(discs.size()), readersLeft(readers)
    {
        for (std::size_t i = 0; i < discs.size(); ++i) lists[i].name = discs[i].list;
    }

    const ListQuery::Kind kind;
    const Selection selection;
    std::atomic<bool> stopped = false;
    std::atomic<std::size_t> next = 0; ///< list that no reader has taken

    struct List {
        QString name;
        ListHits hits = {};
        std::optional<RuntimeError> error = {};
        bool read = false;
    };
    std::mutex mutex; // of everything below; a list belongs to its reader until it is read
    std::vector<List> lists;
    std::size_t ready = 0; ///< all lists before it are read
    std::size_t taken = 0;
    bool woken = false; ///< for the first hits
    int readersLeft;
    std::exception_ptr failure;

    void run(TableReader& reader, const std::function<void()>& wake);

private:
    void readLists(TableReader& reader, const std::function<void()>& wake);
    void readList(TableReader& reader, List& list) const;
    /// Whether there are hits to be taken now, and are the first ones.
    bool finish(List& list);
};

void ListSearch::Walk::readList(TableReader& reader, List& list) const
{
    const bool tracks = kind == ListQuery::Tracks;
    try {
        reader.read(list.name, selection, [&](const TableReader::Row& row) {
            const std::string_view path = tracks ? std::string_view() : row.text(1);
            if (const std::string_view name = row.text(0); ofKind(kind, name, path)) list.hits.add(name, path);
        });
    } catch (const RuntimeError& error) {
        list.error = error;
    }
    list.hits.shrink();
}

bool ListSearch::Walk::finish(List& list)
{
    const std::lock_guard lock(mutex);
    list.read = true;
    bool hits = false;
    for (; ready < lists.size() && lists[ready].read; ++ready) hits |= lists[ready].hits.size() > 0;
    return hits && !std::exchange(woken, true);
}

void ListSearch::Walk::readLists(TableReader& reader, const std::function<void()>& wake)
{
    for (;;) {
        const std::size_t mine = next++;
        if (stopped || mine >= lists.size()) return;
        readList(reader, lists[mine]);
        if (stopped) return; // the list was read in part
        if (finish(lists[mine])) wake();
    }
}

void ListSearch::Walk::run(TableReader& reader, const std::function<void()>& wake)
{
    std::exception_ptr thrown;
    try {
        reader.reading([&] { readLists(reader, wake); });
    } catch (const std::exception&) {
        thrown = std::current_exception();
    }
    const bool last = [&] {
        const std::lock_guard lock(mutex);
        if (thrown && !stopped.exchange(true)) failure = thrown;
        return --readersLeft == 0;
    }();
    if (last) wake();
}

ListSearch::ListSearch(const Database& lists, std::function<void()> wake) : m_wake(std::move(wake))
{
    const unsigned readers = std::clamp(std::thread::hardware_concurrency(), 1u, MostReaders);
    for (unsigned i = 0; i < readers; ++i) m_readers.push_back(std::make_unique<TableReader>(lists));
}

ListSearch::~ListSearch() { stop(); }

void ListSearch::warm()
{
    wait();
    for (const auto& reader : m_readers)
        m_threads.emplace_back([&reader = *reader] {
            try {
                reader.open();
            } catch (const std::exception&) {
                // The first walk will say so.
            }
        });
}

void ListSearch::start(const ListQuery& query, const std::vector<ListedDisc>& discs)
{
    stop();
    m_walk = std::make_unique<Walk>(query, discs, int(m_readers.size()));
    for (const auto& reader : m_readers)
        m_threads.emplace_back([walk = m_walk.get(), &reader = *reader, this] { walk->run(reader, m_wake); });
}

void ListSearch::stop()
{
    if (m_walk) {
        m_walk->stopped = true;
        for (const auto& reader : m_readers) reader->interrupt();
    }
    wait();
}

void ListSearch::wait()
{
    for (std::thread& thread : m_threads) thread.join();
    m_threads.clear();
}

ListSearch::Step ListSearch::take(Hits& hits)
{
    Step step;
    std::vector<std::pair<std::size_t, ListHits>> found;
    std::exception_ptr failure;
    {
        Walk& walk = *m_walk;
        const std::lock_guard lock(walk.mutex);
        for (; walk.taken < walk.ready; ++walk.taken) {
            Walk::List& list = walk.lists[walk.taken];
            if (list.error) step.unread.push_back({walk.taken, *list.error});
            if (list.hits.size() > 0) found.emplace_back(walk.taken, std::move(list.hits));
        }
        step.walked = walk.taken;
        step.finished = walk.readersLeft == 0;
        failure = walk.failure;
    }
    for (auto& [disc, list] : found) hits.append(disc, std::move(list));
    if (!step.finished) return step;
    wait();
    m_walk.reset();
    if (failure) std::rethrow_exception(failure);
    return step;
}
