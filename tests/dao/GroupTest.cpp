#include "Outside.h"
#include "Shelf.h"

#include <QElapsedTimer>
#include <QThread>

namespace {

struct Groups : Shelf {
    Database db = open();

    /// What another process would see.
    int seen() { return outside(path, "SELECT count(*) FROM Аудио").toInt(); }
};

} // namespace

TEST_F(Groups, AWriteOutsideOfAnyCommandIsKeptAtOnce)
{
    disc(db, 1, u"x"_s);
    EXPECT_EQ(seen(), 1);
}

TEST_F(Groups, ACommandIsSeenAsAWholeWhenTheOutermostScopeEnds)
{
    {
        CommandScope outer(engine);
        disc(db, 1, u"x"_s);
        {
            CommandScope inner(engine);
            disc(db, 2, u"x"_s);
        }
        engine.OpenDatabase(path).Close();
        EXPECT_EQ(seen(), 0);
        EXPECT_EQ(db.OpenRecordset(u"Аудио").RecordCount(), 2);
        disc(db, 3, u"x"_s);
        engine.Yield(); // too early
        EXPECT_EQ(seen(), 0);
    }
    EXPECT_EQ(seen(), 3);
}

TEST_F(Groups, ACommandInAModalWindowIsKeptAtItsOwnEnd)
{
    CommandScope opener(engine);
    disc(db, 1, u"x"_s);
    {
        const ModalScope modal(engine);
        EXPECT_EQ(seen(), 1);
        CommandScope command(engine);
        disc(db, 2, u"x"_s);
        EXPECT_EQ(seen(), 1);
        command.end();
        EXPECT_EQ(seen(), 2);
    }
    disc(db, 3, u"x"_s);
    engine.Rollback();
    EXPECT_EQ(seen(), 2);
}

TEST_F(Groups, ARoutineThatYieldsKeepsAllButItsLastSecond)
{
    CommandScope scope(engine);
    disc(db, 1, u"x"_s);
    QThread::msleep(1050);
    disc(db, 2, u"x"_s);
    engine.Yield();
    EXPECT_EQ(seen(), 2);
    disc(db, 3, u"x"_s);
    engine.Yield();
    EXPECT_EQ(seen(), 2);
}

TEST_F(Groups, AFaultKeepsWhatWasWrittenBeforeIt)
{
    const auto routine = [&] {
        CommandScope scope(engine);
        disc(db, 1, u"x"_s);
        disc(db, 99999, u"x"_s);
    };
    EXPECT_EQ(errorOf(routine), DaoErrorNumber::OutOfRange);
    EXPECT_EQ(seen(), 1);

    CommandScope scope(engine);
    disc(db, 2, u"x"_s);
    engine.Rollback();
    scope.end();
    EXPECT_EQ(seen(), 1);
}

TEST_F(Groups, ATableOfAGroupThatWasGivenUpIsGone)
{
    {
        CommandScope scope(engine);
        db.CreateTable(table(u"1A"_s, {{u"n"_s, FieldType::Long}}));
        EXPECT_TRUE(db.HasTable(u"1A"_s));
        db.DropTable(u"Должники"_s);
        engine.Rollback();
    }
    EXPECT_FALSE(db.HasTable(u"1A"_s));
    EXPECT_EQ(db.OpenRecordset(u"Должники").RecordCount(), 0);
}

TEST_F(Groups, ACommitThatFailsIsReportedAndItsGroupGivenUp)
{
    // Another program reads all the while, so that nothing can be written.
    sqlite3* reader = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(path).constData(), &reader), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT * FROM sqlite_schema", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto ended = [&] {
        CommandScope scope(engine);
        disc(db, 1, u"x"_s);
        scope.end();
    };
    EXPECT_EQ(errorOf(ended), DaoErrorNumber::Locked);
    const auto destroyed = [&] {
        CommandScope scope(engine);
        disc(db, 1, u"x"_s);
    };
    EXPECT_EQ(errorOf(destroyed), DaoErrorNumber::Locked);
    sqlite3_close(reader);
    EXPECT_EQ(db.OpenRecordset(u"Аудио").RecordCount(), 0);
    disc(db, 2, u"x"_s);
    EXPECT_EQ(seen(), 1);
}
