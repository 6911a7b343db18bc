#include "Child.h"
#include "Outside.h"
#include "Shelf.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <functional>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace {

struct Files : Shelf {
    QString at(const QString& name) { return folder.filePath(name); }

    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(at(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }

    static bool heldOpen(const QString& path)
    {
        for (const QFileInfo& descriptor : QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System))
            if (descriptor.symLinkTarget() == path) return true;
        return false;
    }
};

/// Limits what every connection that opens from now on can hold, in pages of 4 KiB.
struct SmallDisk {
    static int limit(sqlite3* db, char**, const struct sqlite3_api_routines*)
    {
        return sqlite3_exec(db, "PRAGMA max_page_count=40", nullptr, nullptr, nullptr);
    }
    SmallDisk() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(limit)); }
    ~SmallDisk() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(limit)); }
};

/// Gives this process mounts of its own; a user who is not root becomes one for that, to himself.
bool ownMounts()
{
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(CLONE_NEWNS | (user == 0 ? 0 : CLONE_NEWUSER)) != 0) return false;
    if (user == 0) return true;
    const auto tell = [](const QString& name, const QByteArray& text) {
        QFile file(u"/proc/self/"_s + name);
        return file.open(QFile::WriteOnly | QFile::Unbuffered) && file.write(text) == text.size();
    };
    return tell(u"setgroups"_s, "deny") && tell(u"uid_map"_s, "0 " + QByteArray::number(user) + " 1") &&
           tell(u"gid_map"_s, "0 " + QByteArray::number(group) + " 1");
}

/// Fills a table in groups of 20 rows until the disk is full. 0 when the last group was given up and all before it
/// stand, also for whoever opens the file anew.
int fillUntilFull(
    const QString& path, const std::function<void()>& makeRoom = [] {})
{
    const SystemClock clock;
    DBEngine engine(clock);
    Database db = engine.OpenDatabase(path);
    db.CreateTable({u"t"_s, {{u"x"_s, FieldType::Text, 255}}, {}, {}});
    int kept = 0, error = 0;
    for (; error == 0 && kept < 2000; kept += 20) {
        error = errorOf([&] {
            CommandScope scope(engine);
            Recordset rows = db.OpenRecordset(u"t");
            for (int i = 0; i < 20; ++i) {
                rows.AddNew();
                rows[u"x"] = QString(250, u'x');
                rows.Update();
            }
            scope.end();
        });
        if (error != 0) break;
    }
    if (error != DaoErrorNumber::DiskFull) return 1;
    if (db.OpenRecordset(u"t").RecordCount() != kept) return 2;
    makeRoom();
    db.Execute(u"DELETE FROM t");
    db.Close();
    engine.Release(path);
    db = engine.OpenDatabase(path);
    if (outside(path, "PRAGMA integrity_check") != u"ok") return 3;
    return db.OpenRecordset(u"t").RecordCount() == 0 && kept > 0 ? 0 : 4;
}

} // namespace

TEST_F(Files, OpeningTellsWhatIsWrongAndCreatesNothing)
{
    EXPECT_EQ(errorOf([&] { engine.OpenDatabase(at(u"none.db"_s)); }), DaoErrorNumber::FileNotFound);
    EXPECT_FALSE(QFile::exists(at(u"none.db"_s)));
    EXPECT_EQ(errorOf([&] { engine.OpenDatabase(at(u"none/vinora.db"_s)); }), DaoErrorNumber::PathNotValid);
    EXPECT_EQ(errorOf([&] { engine.CreateDatabase(at(u"none/vinora.db"_s)); }), DaoErrorNumber::PathNotValid);
    EXPECT_EQ(errorOf([&] { engine.CreateDatabase(path); }), DaoErrorNumber::FileExists);
    EXPECT_EQ(errorOf([&] { engine.CreateDatabase(at(QString(300, u'x'))); }), 52) << "not what the folder refuses";

    write(u"text.db"_s, QByteArray("just a text, but a long one ").repeated(50));
    write(u"empty.db"_s, {});
    outside(path, "SELECT 1");
    QFile::copy(path, at(u"foreign.db"_s));
    outside(at(u"foreign.db"_s), "PRAGMA application_id=7");
    QDir(folder.path()).mkdir(u"folder.db"_s);
    for (const QString& name : {u"text.db"_s, u"empty.db"_s, u"foreign.db"_s, u"folder.db"_s}) {
        EXPECT_EQ(errorOf([&] { engine.OpenDatabase(at(name)); }), DaoErrorNumber::NotADatabase) << name.toStdString();
        EXPECT_EQ(errorOf([&] { engine.OpenDatabaseReadOnly(at(name)); }), DaoErrorNumber::NotADatabase);
    }
    EXPECT_EQ(QFileInfo(at(u"empty.db"_s)).size(), 0);
}

TEST_F(Files, AFolderThatCannotBeWrittenIsNoticedOnOpening)
{
    open().Close();
    engine.ReleaseAll();
    QFile::setPermissions(path, QFile::Permissions(0x6666));
    const QByteArray directory = QFile::encodeName(folder.path());
    ::chmod(directory.constData(), 0555);
    const int errors = inChild([&] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) return 9; // permissions do not bind root
        DBEngine own(clock);
        if (errorOf([&] { own.OpenDatabase(path); }) != DaoErrorNumber::CannotOpenOrWrite) return 1;
        if (errorOf([&] { own.CreateDatabase(at(u"new.db"_s)); }) != DaoErrorNumber::CannotOpenOrWrite) return 2;
        if (errorOf([&] { own.OpenDatabase(at(u"new.db"_s)); }) != DaoErrorNumber::CannotOpenOrWrite) return 5;
        if (errorOf([&] { own.OpenDatabaseReadOnly(at(u"new.db"_s)); }) != DaoErrorNumber::FileNotFound) return 6;
        const Database look = own.OpenDatabaseReadOnly(path);
        if (look.OpenRecordset(u"Стиль").RecordCount() != 0) return 3;
        return errorOf([&] { look.Execute(u"DELETE FROM Стиль"); }) == DaoErrorNumber::CannotOpenOrWrite ? 0 : 4;
    });
    ::chmod(directory.constData(), 0755);
    EXPECT_EQ(errors, 0);
}

TEST_F(Files, AFileIsReleasedOnlyWithoutOpenHandlesAndIsWholeThen)
{
    Database db = open();
    EXPECT_EQ(errorOf([&] { engine.Release(path); }), DaoErrorNumber::InUse);
    {
        Recordset rows = db.OpenRecordset(u"Стиль");
        db.Close();
        EXPECT_EQ(errorOf([&] { engine.Release(path); }), DaoErrorNumber::InUse);
        EXPECT_EQ(errorOf([&] { engine.CompactDatabase(path, at(u"~vinora.db"_s)); }), DaoErrorNumber::InUse);
    }
    {
        CommandScope scope(engine);
        style(engine.OpenDatabase(path), u"Rock"_s);
        engine.Release(path);
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"vinora.db"_s});
        ASSERT_TRUE(QFile::copy(path, at(u"copy.db"_s)));
    }
    EXPECT_EQ(all(engine.OpenDatabase(at(u"copy.db"_s)), u"SELECT Стиль FROM Стиль"), "Rock");
    engine.ReleaseAll();
    EXPECT_FALSE(heldOpen(path));
    EXPECT_EQ(errorOf([&] { db.HasTable(u"Стиль"_s); }), DaoErrorNumber::Closed);
}

TEST_F(Files, AnIdleConnectionEndsWithItsTime)
{
    DBEngine quick(clock, std::chrono::milliseconds(40));
    Database db = quick.OpenDatabase(path);
    Recordset rows = open().OpenRecordset(u"Стиль");
    rows.Close();
    engine.ReleaseAll();
    const auto wait = [&](int milliseconds) {
        for (QElapsedTimer timer =
                 [] {
                     QElapsedTimer t;
                     t.start();
                     return t;
                 }();
             !timer.hasExpired(milliseconds);)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    };
    EXPECT_TRUE(heldOpen(path));
    db.Close();
    EXPECT_TRUE(heldOpen(path));
    db = quick.OpenDatabase(path);
    db.Close();
    for (int i = 0; i < 20 && heldOpen(path); ++i) wait(20);
    EXPECT_FALSE(heldOpen(path));
}

TEST_F(Files, AFileThatWasReplacedIsNeverWrittenNorReadBesideTheOldOne)
{
    Database db = open();
    Recordset rows = db.OpenRecordset(u"Стиль");
    const auto replace = [&] {
        ASSERT_TRUE(QFile::copy(path, at(u"other.db"_s)));
        ASSERT_EQ(::rename(QFile::encodeName(at(u"other.db"_s)).constData(), QFile::encodeName(path).constData()), 0);
    };
    replace();
    const auto sum = [&] {
        QFile file(path);
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        return qHash(file.readAll());
    };
    const size_t before = sum();
    EXPECT_EQ(errorOf([&] { style(db, u"Rock"_s); }), DaoErrorNumber::CannotOpenOrWrite);
    EXPECT_EQ(sum(), before);
    EXPECT_EQ(errorOf([&] { engine.OpenDatabase(path); }), DaoErrorNumber::InUse);
    EXPECT_EQ(errorOf([&] { engine.OpenDatabaseReadOnly(path); }), DaoErrorNumber::InUse);
    QFile::rename(path, at(u"new.db"_s));
    QFile::link(at(u"new.db"_s), path);
    EXPECT_EQ(errorOf([&] { engine.OpenDatabase(path); }), DaoErrorNumber::InUse) << "however it is reached";
    EXPECT_EQ(rows.RecordCount(), 0);
    rows.Close();
    db.Close();
    style(engine.OpenDatabase(path), u"Jazz"_s); // nobody looks at the old one any more
    EXPECT_EQ(outside(path, "SELECT max(Стиль) FROM Стиль"), u"Jazz"_s);

    engine.ReleaseAll();
    QFile::remove(path);
    QFile::rename(at(u"new.db"_s), path);
    EXPECT_EQ(errorOf([&] {
                  CommandScope scope(engine);
                  style(engine.OpenDatabase(path), u"Rock"_s);
                  replace();
                  scope.end();
              }),
              DaoErrorNumber::CannotOpenOrWrite)
        << "a group that went to the old file is lost, and that is told";
    Database gone = open();
    QFile::remove(path);
    EXPECT_EQ(errorOf([&] { style(gone, u"Rock"_s); }), DaoErrorNumber::CannotOpenOrWrite);
    EXPECT_EQ(errorOf([&] { engine.OpenDatabase(path); }), DaoErrorNumber::FileNotFound);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Files, AFullDiskGivesUpTheGroupAndNothingElse)
{
    EXPECT_EQ(inChild([&] {
                  const SmallDisk disk;
                  return fillUntilFull(path);
              }),
              0);
}

TEST_F(Files, AFullFileSystemGivesUpTheGroupAndNothingElse)
{
    const QByteArray disk = QFile::encodeName(at(u"disk"_s));
    ASSERT_EQ(::mkdir(disk.constData(), 0755), 0);
    constexpr int NoMount = 77;
    const int result = inChild([&] {
        if (!ownMounts()) return NoMount;
        ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        if (::mount("tmpfs", disk.constData(), "tmpfs", 0, "size=320k") != 0) return NoMount;
        const QString small = at(u"disk/vinora.db"_s);
        DBEngine(clock).CreateDatabase(small);
        write(u"disk/ballast"_s, QByteArray(200'000, 'x'));
        if (const int full = fillUntilFull(small, [&] { QFile::remove(at(u"disk/ballast"_s)); })) return full;

        // Room enough, but none for one file more, so that the journal cannot be made.
        if (::mount("tmpfs", disk.constData(), "tmpfs", 0, "nr_inodes=3") != 0) return NoMount;
        DBEngine own(clock);
        own.CreateDatabase(small);
        write(u"disk/ballast"_s, {});
        const auto change = [&] { own.OpenDatabase(small).CreateTable(table(u"t"_s, {{u"n"_s, FieldType::Long}})); };
        return errorOf(change) == DaoErrorNumber::DiskFull ? 0 : 9;
    });
    if (result == NoMount) GTEST_SKIP() << "this user cannot mount a file system";
    EXPECT_EQ(result, 0);
}

TEST_F(Files, ACompactCopyIsADatabaseOfOurs)
{
    Database db = open();
    style(db, u"Rock"_s);
    style(db, u"Jazz"_s);
    db.Execute(u"DELETE FROM Стиль WHERE Стиль = 'jazz'");
    db.Close();
    const QString target = at(u"~vinora.db"_s);
    engine.CompactDatabase(path, target);
    EXPECT_EQ(errorOf([&] { engine.CompactDatabase(path, target); }), DaoErrorNumber::FileExists);
    const Database copy = engine.OpenDatabase(target);
    EXPECT_EQ(copy.TableNames(), engine.OpenDatabase(path).TableNames());
    EXPECT_EQ(style(copy, u"Pop"_s), 3); // counters go on
    EXPECT_EQ(errorOf([&] { engine.CompactDatabase(at(u"none.db"_s), at(u"x.db"_s)); }), DaoErrorNumber::FileNotFound);
}

TEST_F(Files, AFileFromElsewhereIsLookedAtAndNeverChanged)
{
    style(open(), u"Rock"_s);
    engine.ReleaseAll();
    for (const char* trap : {"CREATE VIEW Аудио2 AS SELECT * FROM Стиль",
                             "CREATE TRIGGER t AFTER DELETE ON Стиль BEGIN DELETE FROM Аудио; END",
                             "CREATE VIRTUAL TABLE Поиск USING fts5(x)", "CREATE TABLE Чужая (a, b BLOB)",
                             "INSERT INTO Чужая VALUES (1, x'FF41')", "UPDATE Стиль SET Стиль = CAST(x'80FF' AS TEXT)"})
        ASSERT_EQ(outside(path, trap), QString()) << trap;
    {
        const Database db = engine.OpenDatabaseReadOnly(path);
        EXPECT_FALSE(db.HasTable(u"Аудио2"_s) || db.HasTable(u"Поиск"_s));
        EXPECT_EQ(errorOf([&] { db.OpenRecordset(u"SELECT * FROM Аудио2"); }), DaoErrorNumber::TableNotFound);
        Recordset rows = db.OpenRecordset(u"Чужая");
        EXPECT_EQ(rows[u"b"].text().back(), u'A');
        EXPECT_EQ(db.OpenRecordset(u"Стиль")[u"Стиль"].text().size(), 2);
        rows.Edit();
        rows[u"a"] = 5;
        EXPECT_EQ(errorOf([&] { rows.Update(); }), DaoErrorNumber::CannotOpenOrWrite);
        EXPECT_EQ(errorOf([&] {
                      db.CreateTable(table(u"x"_s, {{u"n"_s, FieldType::Long}}));
                  }),
                  DaoErrorNumber::CannotOpenOrWrite);
    }
    engine.ReleaseAll();
    EXPECT_EQ(engine.OpenDatabase(path).Execute(u"DELETE FROM Стиль"), 1); // and the trigger slept
    engine.ReleaseAll();
    ASSERT_EQ(outside(path, "ALTER TABLE Чужая ADD c AS (a || 'x')"), QString());
    EXPECT_EQ(errorOf([&] { engine.OpenDatabaseReadOnly(path); }), DaoErrorNumber::NotADatabase) << "a field that runs";
    ASSERT_EQ(outside(path, "PRAGMA journal_mode=WAL"), u"wal"_s);
    EXPECT_EQ(errorOf([&] { engine.OpenDatabaseReadOnly(path); }), DaoErrorNumber::NotADatabase);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"vinora.db"_s});
}

TEST_F(Files, ADatabaseCutShortIsAnErrorAndNoCrash)
{
    {
        Database db = open();
        CommandScope scope(engine);
        for (int i = 0; i < 300; ++i) style(db, u"Стиль %1"_s.arg(i));
    }
    engine.ReleaseAll();
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray whole = file.readAll();
    for (qsizetype size = 0; size < whole.size(); size += 1111) {
        write(u"cut.db"_s, whole.left(size));
        int read = 0;
        const int error = errorOf([&] {
            const Database db = engine.OpenDatabaseReadOnly(at(u"cut.db"_s));
            const Recordset rows = db.OpenRecordset(u"Стиль");
            for (; read < rows.RecordCount(); ++read) EXPECT_EQ(rows.row(read)[1].text(), u"Стиль %1"_s.arg(read));
        });
        if (error == 0)
            EXPECT_EQ(read, 300) << size; // the cut took another table's page
        else
            EXPECT_TRUE(error == DaoErrorNumber::NotADatabase || error == DaoErrorNumber::Damaged) << error;
        engine.ReleaseAll();
    }
}
