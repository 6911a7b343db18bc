// What becomes of main databases that others made, some of them with ill intent.
#include "store/ExternalDatabase.h"
#include "dao/Outside.h"
#include "harness/ScreenTest.h"
#include "store/Updates.h"

#include <QDir>
#include <QElapsedTimer>
#include <QtEndian>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace DaoErrorNumber;

class ExternalDatabase : public ScreenTest {
protected:
    /// A database like the local one, then changed by somebody.
    QString friends(const QList<QByteArray>& changes = {})
    {
        engine.ReleaseAll();
        const QString friends = path("friend.db");
        QFile::remove(friends);
        EXPECT_TRUE(QFile::copy(program.shared.MainDBPath, friends));
        sqlite3* db = nullptr;
        EXPECT_EQ(sqlite3_open(QFile::encodeName(friends).constData(), &db), SQLITE_OK);
        RegisterCollation(db);
        for (const QByteArray& sql : QList<QByteArray>{"PRAGMA ignore_check_constraints=ON"} + changes)
            EXPECT_EQ(sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
                << sql.toStdString() << ": " << sqlite3_errmsg(db);
        sqlite3_close(db);
        return friends;
    }
    /// Number of the error, 0 when the database is on view. It must never be written.
    int view(const QString& path)
    {
        const QByteArray before = contents(path);
        const QStringList beside = QDir(folder.path()).entryList(QDir::Files | QDir::System);
        const QString own = program.shared.MainDBPath;
        int error = 0;
        try {
            summary = ViewExternalDatabase(program, path);
            EXPECT_EQ(program.shared.MainDBPath, path);
            EXPECT_TRUE(program.shared.ExternalDBOpen);
        } catch (const RuntimeError& e) {
            error = e.number();
            EXPECT_EQ(program.shared.MainDBPath, own);
            EXPECT_FALSE(program.shared.ExternalDBOpen);
        }
        engine.ReleaseAll();
        program.shared.MainDBPath = own;
        program.shared.ExternalDBOpen = false;
        EXPECT_EQ(contents(path), before);
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::System), beside);
        return error;
    }
    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return QFileInfo(path).isFile() && file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    ExternalSummary summary;
};

TEST_F(ExternalDatabase, IsSummedUpAndEveryHandleOnItIsForLookingOnly)
{
    shelf.audio(1, "Кино");
    shelf.computer(1, "Debian").lent("Иванов", "2003-01-01");
    shelf.computer(2, "Словари");
    EXPECT_EQ(view(friends({"CREATE TRIGGER t AFTER DELETE ON Аудио BEGIN DELETE FROM Компьютер; END"})), 0);
    EXPECT_EQ(summary[0].discs, 1);
    EXPECT_FALSE(summary[0].lastUpdate.isValid());
    EXPECT_EQ(summary[1].discs, 2);

    const QString noFormats = friends({"DROP TABLE ФорматЗвука"});
    EXPECT_EQ(view(noFormats), 0) << "the catalogue of DVDs need not be there";
    EXPECT_THROW(RequireCatalogue(engine.OpenDatabaseReadOnly(noFormats), Dvd()), RuntimeError);

    StampUpdate(program.mainDatabase(), Computer(), QDate(2003, 5, 2));
    ViewExternalDatabase(program, friends());
    EXPECT_THROW(program.mainDatabase().Execute(u"DELETE FROM Аудио"), RuntimeError);
    EXPECT_EQ(LastUpdate(program.mainDatabase(), Computer()), QDate(2003, 5, 2));
    EXPECT_NO_THROW(RequireCatalogue(program.mainDatabase(), Dvd()));
}

TEST_F(ExternalDatabase, IsRefusedForWhatACatalogueCouldNotShow)
{
    shelf.audio(1, "Кино");
    const QByteArray stamp = "INSERT INTO _Информация (ПослОбновлАудио) VALUES (";
    const struct {
        int error;
        QList<QByteArray> changes;
    } cases[] = {
        {TableNotFound, {"DROP TABLE Компьютер"}},
        {TableNotFound, {"DROP TABLE Стиль"}},
        {TableNotFound, {"DROP TABLE _Информация"}},
        {TableNotFound,
         {"ALTER TABLE Аудио RENAME TO а",
          "CREATE VIEW Аудио AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT а.* FROM n, а"}},
        {TableNotFound,
         {"DROP TABLE Аудио", "CREATE VIEW Аудио AS SELECT * FROM б", "CREATE VIEW б AS SELECT * FROM Аудио"}},
        {TableNotFound, {"DROP TABLE Аудио", "CREATE VIRTUAL TABLE Аудио USING fts5(Название)"}},
        {NoSuchParameter, {"DROP TABLE Аудио", "CREATE TABLE Аудио (КодАудиоДиск PRIMARY KEY) WITHOUT ROWID"}},
        {NoSuchItem, {"ALTER TABLE Компьютер RENAME COLUMN Номер TO Число"}},
        {NotADatabase, {"ALTER TABLE Аудио ADD Еще AS (hex(zeroblob(500000)))"}},
        {TextTooLong, {"UPDATE Аудио SET Записей1 = CAST(zeroblob(30000000) AS TEXT)"}},
        {TextTooLong, {"UPDATE Аудио SET Записей1 = zeroblob(20000)"}},
        {TextTooLong,
         {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 30000) "
          "INSERT INTO Описание (Описание) SELECT hex(zeroblob(20)) FROM n"}},
        // Wrong types are shown as they are.
        {0,
         {stamp + "'когда-то')",
          "UPDATE Аудио SET Номер = 9000000000000000000, Дисков = 'много', ДатаЗаписи = x'00FF'"}},
        {0, {stamp + "-1e300)", "CREATE INDEX и ON Аудио (hex(Название)) WHERE length(Название) > 3"}},
    };
    rusage before, after;
    getrusage(RUSAGE_SELF, &before);
    for (const auto& each : cases) {
        EXPECT_EQ(view(friends(each.changes)), each.error) << each.changes.constLast().toStdString();
        EXPECT_TRUE(each.error || !summary[0].lastUpdate.isValid());
    }
    getrusage(RUSAGE_SELF, &after);
#ifndef __SANITIZE_ADDRESS__ // which keeps for a while what was freed
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 150'000) << "KiB, most of it this test's own copies";
#endif
}

TEST_F(ExternalDatabase, IsRefusedForWhatIsNoWholeFileThatCouldBeWritten)
{
    const auto write = [&](const QString& name, const QByteArray& bytes) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        return path(name);
    };
    const QByteArray whole = contents(friends());
    EXPECT_EQ(view(path("none.db")), FileNotFound);
    EXPECT_EQ(view(write("text.db", QByteArray("a text ").repeated(400))), NotADatabase);
    EXPECT_EQ(view(write("empty.db", {})), NotADatabase);
    EXPECT_EQ(view(write("cut.db", whole.first(whole.size() / 2))), Damaged);
    QDir(folder.path()).mkdir("folder.db");
    EXPECT_EQ(view(path("folder.db")), NotADatabase);
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe.db")).constData(), 0644), 0);
    EXPECT_EQ(view(path("pipe.db")), NotADatabase);
    EXPECT_TRUE(QFile::link("loop.db", path("loop.db")));
    EXPECT_EQ(view(path("loop.db")), FileNotFound);
    EXPECT_TRUE(QFile::link(path("friend.db"), path("link.db")));
    EXPECT_EQ(view(path("link.db")), 0);
    QFile::setPermissions(path("friend.db"), QFile::ReadOwner | QFile::ReadUser);
    EXPECT_EQ(view(path("link.db")), CannotOpenOrWrite);

    sqlite3* writer = nullptr;
    const QString busy = write("busy.db", whole);
    ASSERT_EQ(sqlite3_open(QFile::encodeName(busy).constData(), &writer), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_THROW(ViewExternalDatabase(program, busy), RuntimeError) << "it is just being written";
    sqlite3_close(writer);
}

/// A table whose pages name one another again and again: a few kilobytes that read as 70^8 rows.
static QByteArray WithEndlessTable(QByteArray file, int root)
{
    const auto big = [](quint32 number) {
        const quint32 ordered = qToBigEndian(number);
        return QByteArray(reinterpret_cast<const char*>(&ordered), 4);
    };
    const int pageSize = qFromBigEndian<quint16>(file.constData() + 16);
    const quint32 pages = quint32(file.size() / pageSize);
    const QByteArray leaf = file.mid((root - 1) * pageSize, pageSize);
    const auto interior = [&](quint32 child) {
        constexpr int cells = 70;
        QByteArray pointers, page = QByteArray::fromHex("05000000460000");
        for (int i = cells; i > 0; --i) pointers += big(quint32(pageSize - 5 * i)).last(2);
        page[5] = char((pageSize - 5 * cells) >> 8);
        page[6] = char(pageSize - 5 * cells);
        page += '\0' + big(child) + pointers;
        return page.leftJustified(pageSize - 5 * cells, '\0') + (big(child) + '\1').repeated(cells);
    };
    for (quint32 level = 0; level < 7; ++level) file += interior(pages + level + 2);
    file += leaf;
    file.replace((root - 1) * pageSize, pageSize, interior(pages + 1));
    file.replace(28, 4, big(pages + 8));
    return file;
}

TEST_F(ExternalDatabase, ATableWithoutEndIsGivenUp)
{
    shelf.audio(1, "Кино");
    const int root = outside(friends(), "SELECT rootpage FROM sqlite_schema WHERE name = 'Аудио'").toInt();
    const QByteArray endless = WithEndlessTable(contents(path("friend.db")), root);
    QFile file(path("friend.db"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(endless);
    file.close();
    ASSERT_EQ(outside(path("friend.db"), "SELECT count(*) FROM (SELECT Название FROM Аудио LIMIT 1000000)"), "1000000");
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(view(path("friend.db")), Damaged);
    EXPECT_LT(time.elapsed(), 20'000);
}
