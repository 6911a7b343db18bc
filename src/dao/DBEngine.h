#pragma once

#include "dao/Database.h"
#include "platform/Clock.h"
#include "platform/RuntimeError.h"

#include <chrono>
#include <memory>

/// Numbers of errors that routines handle themselves.
namespace DaoErrorNumber {
inline constexpr int OutOfRange = 6;
inline constexpr int TableExists = 3010;
inline constexpr int NotEditing = 3020;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int DuplicateKey = 3022;
inline constexpr int FileNotFound = 3024;
inline constexpr int DiskFull = 3026;
inline constexpr int NotUpdatable = 3027;
inline constexpr int DiskError = 3043;
inline constexpr int PathNotValid = 3044;
inline constexpr int InUse = 3045;
inline constexpr int Damaged = 3049;
inline constexpr int CannotOpenOrWrite = 3051;
inline constexpr int NoSuchParameter = 3061;
inline constexpr int MalformedStatement = 3075;
inline constexpr int MalformedCriterion = 3077;
inline constexpr int TableNotFound = 3078;
inline constexpr int UndefinedFunction = 3085;
inline constexpr int NotAName = 3125;
inline constexpr int TextTooLong = 3163;
inline constexpr int ReferredTo = 3200;
inline constexpr int NothingReferredTo = 3201;
inline constexpr int FileExists = 3204;
inline constexpr int Locked = 3218;
inline constexpr int NotSupported = 3251;
inline constexpr int NoSuchItem = 3265;
inline constexpr int EmptyTextNotAllowed = 3315;
inline constexpr int NotADatabase = 3343;
inline constexpr int Closed = 3420;
inline constexpr int WrongType = 3421;
}

/// The storage engine of the process: at most one connection per file, kept while a handle uses it and a while after.
///
/// Writes are grouped by command. The first write to a file opens a transaction; outside of any CommandScope it is
/// committed at once, inside of one when the outermost scope ends, when a ModalScope begins, when Commit() is called (at
/// the end of the process) or, in a long routine, by Yield(). Closing recordsets and handles commits nothing.
/// A kill leaves whole groups.
class DBEngine {
public:
    /// `keepIdle`: how long a connection outlives its last handle, where an event loop runs.
    explicit DBEngine(const Clock& clock, std::chrono::milliseconds keepIdle = std::chrono::seconds(30));
    ~DBEngine();
    DBEngine(const DBEngine&) = delete;
    DBEngine& operator=(const DBEngine&) = delete;

    /// An empty database; 3204 when the file exists, 3044 when its folder does not, 3051 when it cannot be written.
    void CreateDatabase(const QString& path);
    /// For reading and writing: 3024 no such file (it is never created), 3044 no such folder, 3051 the file or its folder
    /// cannot be written, the file being there or not, 3343 not a database, 3045 another file took its place while
    /// handles on the old one are open.
    Database OpenDatabase(const QString& path);
    /// For looking at a file of others: nothing in it can be changed, and 3051 does not arise. The file may be contrived:
    /// no statement runs longer than some seconds (3049), and none of its triggers, views, virtual tables and computed
    /// fields is ever run.
    Database OpenDatabaseReadOnly(const QString& path);
    /// A compact copy of a file that nobody has open in this process. `target` must not exist (3204). 3051 and 3026 are
    /// about the target when it cannot be made; other errors are about the source.
    void CompactDatabase(const QString& source, const QString& target);

    /// Commits and closes the connection of a file that is about to be deleted, copied or replaced, so that a plain copy
    /// of it is whole. A handle or recordset that is still open on it is a mistake of the caller: error 3045.
    void Release(const QString& path);
    void ReleaseAll();

    /// Ends the group on every connection. Throws when a group could not be kept (3026 disk full).
    void Commit();
    /// Commit() when the last one is more than a second ago: for routines that yield to the event loop.
    void Yield();
    /// The group is given up: for the end of the process when Commit() itself failed.
    void Rollback() noexcept;

private:
    friend class CommandScope;
    friend class ModalScope;
    struct State;
    std::shared_ptr<State> d; ///< handles know it weakly: the last one on a file starts the time it is kept
};

/// One command of the user. Scopes nest; the end of the outermost one commits, also when an exception passes, since what
/// a routine wrote before its fault is kept. A commit that fails while an exception passes is dropped with its group.
/// Otherwise a failing commit throws from end() or, without it, from the destructor.
class CommandScope {
public:
    explicit CommandScope(DBEngine& engine);
    /// Ends the scope early so that a failing commit can be reported. The destructor then does nothing.
    void end();
    ~CommandScope() noexcept(false);
    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

private:
    DBEngine& m_engine;
    int m_exceptions; ///< on their way when the scope began
    bool m_open = true;
};

/// While something modal is up: what the routine that opened it has written is committed, and the commands of the user in
/// it are outermost ones again, each kept at its own end. A failing commit throws from the constructor.
class ModalScope {
public:
    explicit ModalScope(DBEngine& engine);
    ~ModalScope();
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

private:
    DBEngine& m_engine;
    int m_scopes; ///< of the routines that wait for the modal window
};
