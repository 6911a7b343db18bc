#include "search/ListSearch.h"

#include "dao/Collation.h"
#include "dao/DBEngine.h"
#include "dao/Like.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace {

constexpr unsigned MostReaders = 4; // more would wait for the disk

using Field = std::string_view;

/// The field that is compared, and behind it those of a hit: name and path.
std::span<const Field> fieldsOf(const ListQuery& query)
{
    static constexpr std::array<Field, 3> name{"Имя", "Имя", "Путь"}, path{"Путь", "Имя", "Путь"},
        comment{"Комментарий", "Имя", "Путь"};
    static constexpr std::array<Field, 2> title{"Название", "Название"};
    if (query.kind == ListQuery::Tracks) return title;
    if (query.commentOnly) return comment;
    return query.kind == ListQuery::Folders ? path : name;
}

QString text(Field field) { return QString::fromUtf8(field.data(), qsizetype(field.size())); }

Selection selectionOf(std::span<const Field> fields)
{
    QStringList names;
    for (const Field field : fields) names += text(field);
    return Selection(names);
}

/// The row of a folder itself is the one whose name is its path.
bool ofKind(ListQuery::Kind kind, std::string_view name, std::string_view path)
{
    return kind == ListQuery::Tracks || (name == path) == (kind == ListQuery::Folders);
}

} // namespace

void RequireCriterion(const ListQuery& query)
{
    if (!query.text.contains(u'"')) return;
    const QString criterion =
        (query.wholeWord ? u"%1 = \"%2\""_s : u"%1 LIKE \"*%2*\""_s).arg(text(fieldsOf(query).front()), query.text);
    throw RuntimeError(DaoErrorNumber::MalformedCriterion,
                       u"Ошибка в условии поиска: «%1». Уберите кавычки из текста поиска."_s.arg(criterion));
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
            return true;
        });
    });
    return discs;
}

/// One walk, between the threads that take part in it.
struct ListSearch::Walk {
    Walk(const ListQuery& query, const std::vector<ListedDisc>& discs, int readers)
        : kind(query.kind), wholeWord(query.wholeWord), sought(query.text.toStdString()), pattern('*' + sought + '*'),
          fields(fieldsOf(query)), selection(selectionOf(fields)), lists(discs.size()), readersLeft(readers)
    {
        for (std::size_t i = 0; i < discs.size(); ++i) lists[i].name = discs[i].list;
    }

    const ListQuery::Kind kind;
    const bool wholeWord;
    const std::string sought;
    const LikePattern pattern;
    const std::span<const Field> fields;
    const Selection selection; ///< of them
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
    /// `hits` is the reader's own, whose room lasts from list to list; the list gets a copy of just its size.
    void readList(TableReader& reader, ListHits& hits, List& list) const;
    bool matches(std::string_view text) const;
    /// Whether there are hits to be taken now, and are the first ones.
    bool finish(List& list);
};

/// By a program's own comparisons, as they stand in every statement.
bool ListSearch::Walk::matches(std::string_view text) const
{
    if (!text.data()) return false; // Null
    return wholeWord ? CompareText(text, sought) == 0 : pattern.matches(text);
}

void ListSearch::Walk::readList(TableReader& reader, ListHits& hits, List& list) const
{
    hits.clear();
    const auto take = [&](std::span<const std::string_view> texts) {
        if (matches(texts[0])) {
            const std::string_view path = texts.size() > 2 ? texts[2] : std::string_view();
            if (ofKind(kind, texts[1], path)) hits.add(texts[1], path);
        }
        return !stopped.load(std::memory_order_relaxed);
    };
    try {
        if (!reader.readTexts(list.name, fields, take)) {
            hits.clear();
            std::array<std::string_view, 3> texts;
            reader.read(list.name, selection, [&](const TableReader::Row& row) {
                for (std::size_t i = 0; i < fields.size(); ++i) texts[i] = row.text(int(i));
                return take(std::span(texts).first(fields.size()));
            });
        }
    } catch (const RuntimeError& error) {
        list.error = error;
    }
    if (hits.size() > 0) list.hits = hits;
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
    ListHits hits;
    for (;;) {
        const std::size_t mine = next++;
        if (stopped || mine >= lists.size()) return;
        readList(reader, hits, lists[mine]);
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

void ListSearch::start(const ListQuery& query, const std::vector<ListedDisc>& discs)
{
    stop();
    const auto readers = int(m_readers.size());
    m_threads.reserve(m_readers.size());
    m_walk = std::make_unique<Walk>(query, discs, readers);
    try {
        for (const auto& reader : m_readers)
            m_threads.emplace_back([walk = m_walk.get(), &reader = *reader, this] { walk->run(reader, m_wake); });
    } catch (const std::system_error&) {
        if (m_threads.empty()) {
            m_walk.reset();
            throw RuntimeError(7, u"Поиск не начат: системе не хватает памяти для него."_s);
        }
        // Those that were given read what the others would have, or have read it by now.
        const bool over = [&] {
            const std::lock_guard lock(m_walk->mutex);
            return (m_walk->readersLeft -= readers - int(m_threads.size())) == 0;
        }();
        if (over) m_wake();
    }
}

void ListSearch::stop()
{
    if (m_walk) m_walk->stopped = true;
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
