#pragma once

#include "dao/TableReader.h"
#include "platform/RuntimeError.h"
#include "search/Hits.h"
#include "store/CatalogueKind.h"

#include <functional>
#include <memory>
#include <optional>
#include <thread>

/// What to look for in the lists of all discs.
struct ListQuery {
    enum Kind { Files, Folders, Tracks } kind = Files;
    QString text;             ///< a pattern of LIKE, unless wholeWord
    bool wholeWord = false;   ///< the field is the text; else it contains it
    bool commentOnly = false; ///< sought in comments; without effect on tracks

    const CatalogueKind& catalogue() const { return kind == Tracks ? Audio() : Computer(); }
};

/// A query is the criterion `Имя LIKE "*text*"`, `Имя = "text"` or one on another field. Error 3077 for a quotation mark in
/// the text, which would break it.
void RequireCriterion(const ListQuery& query);

/// The discs of a catalogue that have lists, in the order of its table, 1 to 6 of each row.
std::vector<ListedDisc> ListedDiscs(const Database& main, const CatalogueKind& kind);

/// A walk through the lists of one database, by a few threads that only read. Hits come out in the order of the catalogue,
/// whichever thread finds them. All functions are for the thread that made it.
class ListSearch {
public:
    /// `wake` is called from other threads: when the first hits wait to be taken, and at the end.
    ListSearch(const Database& lists, std::function<void()> wake);
    ~ListSearch(); ///< stops it

    /// Of a query that passes RequireCriterion. Error 7 when the system gives no thread for it.
    void start(const ListQuery& query, const std::vector<ListedDisc>& discs);
    /// Returns at once, or nearly; what was found can still be taken.
    void stop();
    bool running() const { return m_walk != nullptr; }

    struct Unread {
        std::size_t disc; ///< index
        RuntimeError error;
    };
    struct Step {
        std::size_t walked = 0; ///< discs, so far
        bool finished = false;
        std::vector<Unread> unread = {}; ///< lists that are missing or damaged, since the last step
    };
    /// Takes over what was found since the last time. Throws the error for which no list can be read at all, as if the
    /// walk had ended. After a finished step it does not run any more.
    Step take(Hits& hits);
    /// Returns when there is nothing left to do; for those who have no window to keep alive.
    void wait();

private:
    struct Walk;

    std::vector<std::unique_ptr<TableReader>> m_readers;
    std::function<void()> m_wake;
    std::unique_ptr<Walk> m_walk;
    std::vector<std::thread> m_threads;
};
