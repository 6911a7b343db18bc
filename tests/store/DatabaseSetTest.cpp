#include "store/DatabaseSet.h"
#include "harness/ScreenTest.h"
#include "store/DiscTables.h"
#include "store/Summary.h"
#include "store/Updates.h"

using DatabaseSet = ScreenTest;

TEST_F(DatabaseSet, FolderSurvivesTheSettingsFileWhateverItsName)
{
    EXPECT_EQ(LocalDatabaseFolder(program), folder.path());
    const char16_t* folders[] = {u"/home/иван/диски", u"/home/日本語", u"/tmp/💿",      u"/tmp/50%",    u"/tmp/50%25",
                                 u"/tmp/blank ",      u" /tmp",        u"/a\"b\"",     u"/tmp/\"",     u"/a\nb=c",
                                 u"/tmp/%D0",         u"/a;b",         u"/tmp/slash/", u"/100% хитов", u"/%日%%41%4💿"};
    for (const char16_t* name : folders) {
        const QString path = QString::fromUtf16(name);
        ASSERT_TRUE(WritePathLocalDB(program, path)) << qPrintable(path);
        EXPECT_EQ(LocalDatabaseFolder(program), path);
    }
    ASSERT_TRUE(WritePathLocalDB(program, u"/home/иван"_s));
    EXPECT_EQ(option("PathLocalDB"), u"/home/иван"_s) << "readable to other programs";

    // What the setting would cut is refused.
    ASSERT_TRUE(WritePathLocalDB(program, u'/' + QString(253, u'a')));
    EXPECT_FALSE(WritePathLocalDB(program, u'/' + QString(254, u'b')));
    EXPECT_FALSE(WritePathLocalDB(program, u'/' + QString(30, QChar(0x65E5)))) << "nine characters for each";
    EXPECT_EQ(ReadPathLocalDB(program), u'/' + QString(253, u'a'));
}

TEST_F(DatabaseSet, StampsCreateTheOneRowAndKeepTheOtherDates)
{
    const Database main = program.mainDatabase();
    EXPECT_FALSE(LastUpdate(main, Audio()).isValid());
    for (const auto& [kind, day] : {std::pair{&Audio(), 1}, {&Dvd(), 2}, {&Audio(), 3}})
        StampUpdate(main, *kind, QDate(2003, 5, day));
    EXPECT_EQ(rows("SELECT * FROM _Информация"), "2003-05-03 | Null | 2003-05-02 | Null\n");
    EXPECT_EQ(LastUpdate(main, Audio()), QDate(2003, 5, 3));
    EXPECT_FALSE(LastUpdate(main, Computer()).isValid());
}

TEST_F(DatabaseSet, SummaryCountsDiscsAndOpenLoansPerCatalogue)
{
    shelf.audio(1, "А").lent("Иванов", "2003-01-01", "2003-02-01").lent("Иванов", "2003-03-01");
    shelf.audio(2, "Б");
    shelf.dvd(1, "В").lent("Петрова", "2003-01-01");
    StampUpdate(program.mainDatabase(), Dvd(), QDate(2003, 5, 2));

    const auto [audio, computer, dvd] = Summarise(program.mainDatabase());
    EXPECT_EQ(audio.discs, 2);
    EXPECT_EQ(audio.lent, 1);
    EXPECT_EQ(computer.discs + computer.lent, 0);
    EXPECT_EQ(dvd.lent, 1);
    EXPECT_EQ(dvd.lastUpdate, QDate(2003, 5, 2));
}

TEST_F(DatabaseSet, LoansDueTodayAreOverdueAndThoseWithoutTermNever)
{
    shelf.computer(1, "сегодня").lent("Иванов", "2003-10-01", {}, "2003-11-14");
    shelf.computer(2, "завтра").lent("Иванов", "2003-10-01", {}, "2003-11-15");
    shelf.computer(3, "без срока").lent("Иванов", "2003-10-01");
    shelf.computer(4, "возвращён").lent("Иванов", "2003-10-01", "2003-11-10", "2003-11-01");
    shelf.dvd(1, "давно").lent("Иванов", "2003-10-01", {}, "2003-10-02");
    program.mainDatabase().Execute(u"UPDATE Должники SET ДатаВозврата = ? WHERE ДатаВозврата = ?",
                                   {QDateTime(clock.today(), QTime(18, 30)), clock.today()});
    EXPECT_EQ(OverdueLoans(program.mainDatabase(), clock.today()), (PerCatalogue{0, 1, 1}));
}

TEST_F(DatabaseSet, DropsListsButNeitherWhatIsGoneNorWhatIsNoList)
{
    shelf.computer(1, "Debian").list(1, "123", {"\\README"});
    const Database lists = ListDatabase(program, Computer());
    for (const char* id : {"123", "123", "", "Фильтр1", "фильтр2", "sqlite_master"}) DropList(lists, id);
    EXPECT_EQ(lists.TableNames().join(' '), "Фильтр1 Фильтр2");
}
