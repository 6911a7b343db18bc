#include "catalogue/DiscRecord.h"
#include "catalogue/DiscRemoval.h"
#include "catalogue/Given.h"
#include "catalogue/Reduction.h"
#include "catalogue/UpDown.h"
#include "harness/ScreenTest.h"
#include "store/DiscTables.h"

namespace {
class DiscRecords : public ScreenTest {
protected:
    Database main() { return program.mainDatabase(); }
    void touch(const QString& name)
    {
        QDir().mkpath(path("box"));
        EXPECT_TRUE(QFile(path(name)).open(QIODevice::WriteOnly));
    }
};

TEST_F(DiscRecords, NamesAreFoundWithoutRegardToCaseAndElseAdded)
{
    const DictionaryKind& dictionary = Computer().dictionary;
    const qint64 quest = FindOrAddName(main(), dictionary, "кВеСт");
    EXPECT_EQ(rows(u"SELECT Описание FROM Описание WHERE КодОписания = %1"_s.arg(quest)).trimmed(), "Квест");
    EXPECT_EQ(FindOrAddName(main(), dictionary, ""), 1);
    const qint64 added = FindOrAddName(main(), dictionary, "Шахматы");
    EXPECT_EQ(added, 24);
    EXPECT_EQ(FindOrAddName(main(), dictionary, "ШАХМАТЫ"), added);
    EXPECT_EQ(NamesOf(main(), dictionary).size(), 24);
    EXPECT_EQ(NamesOf(main(), dictionary).last(), "Шахматы");
}

TEST_F(DiscRecords, TitlesComeInStoredOrderAndNumbersMayBeShared)
{
    shelf.audio(7, "Кино", "Ночь");
    shelf.audio(3, "Аквариум");
    shelf.audio(7, "Алиса", "Энергия");
    shelf.computer(7, "Debian");
    EXPECT_EQ(TitlesOf(main(), Audio()).join('|'), "Кино|Ночь|Аквариум||Алиса|Энергия");
    EXPECT_EQ(TitlesOf(main(), Computer()).join('|'), "Debian");
    EXPECT_EQ(FirstDiscNumbered(main(), Audio(), 7), "Кино - Ночь");
    EXPECT_EQ(FirstDiscNumbered(main(), Audio(), 3), "Аквариум - ");
    EXPECT_EQ(FirstDiscNumbered(main(), Computer(), 7), "Debian");
    EXPECT_EQ(FirstDiscNumbered(main(), Computer(), 3), std::nullopt);
}

TEST_F(DiscRecords, AnAddedDiscIsReadBackByTheKeyThatSavingGave)
{
    shelf.computer(7, "Тот же номер");
    const DiscRecord saved{.key = 0,
                           .number = 7,
                           .name = "Debian \"sarge\"",
                           .year = "",
                           .description = "Квест",
                           .discs = 2,
                           .extra = {{"РасОписание", u"две\nстроки"_s}},
                           .binding = "1A2B"};
    const qint64 code = FindOrAddName(main(), Computer().dictionary, saved.description);
    const qint64 key = SaveDisc(main(), Computer(), saved, code, clock.today());
    EXPECT_EQ(rows(u"SELECT Номер, Год, Дисков, ДатаЗаписи, ДатаИзменения, ДискID1, ДискID1_d FROM Компьютер "
                   "WHERE КодКомпьютерныйДиск = %1"_s.arg(key))
                  .trimmed(),
              "7 | Null | 2 | 2003-11-14 | 2003-11-14 | Null | 1A2B");
    EXPECT_EQ(rows("SELECT ПослОбновлКомпьютер, ПослОбновлАудио FROM _Информация").trimmed(), "2003-11-14 | Null");

    const auto read = ReadRecord(main(), Computer(), key);
    EXPECT_TRUE(read);
    EXPECT_EQ(read->name, saved.name);
    EXPECT_EQ(read->description, "Квест");
    EXPECT_EQ(read->extra, saved.extra);
    EXPECT_FALSE(ReadRecord(main(), Computer(), key + 1));
}

TEST_F(DiscRecords, AChangeKeepsNumberDateAddedAndBindings)
{
    const qint64 key = shelf.computer(3, "Старое").added("2001-02-03").bound(2, "BEEF").key();
    shelf.computer(3, "Тот же номер");
    auto record = *ReadRecord(main(), Computer(), key);
    record.name = "Новое";
    record.number = 99;
    record.binding = "CAFE";
    EXPECT_EQ(SaveDisc(main(), Computer(), record, 1, clock.today()), key);
    EXPECT_EQ(
        rows("SELECT Номер, Название, ДатаЗаписи, ДатаИзменения, ДискID1_d, ДискID2_d FROM Компьютер"),
        "3 | Новое | 2001-02-03 | 2003-11-14 | Null | BEEF\n3 | Тот же номер | 2003-11-14 | Null | Null | Null\n");
}

TEST_F(DiscRecords, ReductionAsksOnlyForDiscsThatGoAndHaveListsAndLeavesBindings)
{
    const qint64 key =
        shelf.computer(1, "Набор").discs(6).list(2, "AAAA", {"\\a"}).list(4, "BBBB", {"\\b"}).bound(4, "BBBB").key();
    const struct {
        int before, after;
        bool loses;
    } cases[] = {{6, 6, false}, {6, 5, false}, {6, 4, false}, {6, 3, true}, {3, 2, false}, {2, 1, true}, {3, 6, false}};
    for (const auto& [before, after, loses] : cases)
        EXPECT_EQ(LosesLists(main(), Computer(), {key, before, after}), loses) << before << after;

    DropLostLists(main(), program.filesDatabase(), Computer(), {key, 4, 3});
    EXPECT_FALSE(program.filesDatabase().HasTable("BBBB"));
    EXPECT_TRUE(program.filesDatabase().HasTable("AAAA"));
    EXPECT_EQ(rows("SELECT ДискID2, ДискID4, ДискID4_d FROM Компьютер").trimmed(), "AAAA | Null | BBBB");

    const qint64 dvd = shelf.dvd(1, "Фильм").discs(3).key();
    EXPECT_FALSE(LosesLists(main(), Dvd(), {dvd, 3, 1}));
}

TEST_F(DiscRecords, RemovalTakesListsRowAndCoverAndPassesOverAListThatIsGone)
{
    const qint64 key = shelf.computer(5, "Прочь").discs(2).list(1, "AAAA", {"\\a"}).set("ДискID2", u"GONE"_s).key();
    shelf.computer(5, "Тот же номер").list(1, "BBBB", {"\\b"});
    touch("box/pc_5.box");
    touch("box/ad_5.box");
    {
        const CommandScope scope(engine);
        const BlockedDatabase blocked(program.shared.MainDBPath);
        EXPECT_THROW(RemoveDisc(program, Computer(), key), RuntimeError);
    }
    EXPECT_TRUE(QFile::exists(path("box/pc_5.box"))) << "no cover goes before its disc";
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Компьютер").trimmed(), "2");

    RemoveDisc(program, Computer(), key);
    EXPECT_EQ(rows("SELECT Название FROM Компьютер").trimmed(), "Тот же номер");
    EXPECT_FALSE(program.filesDatabase().HasTable("AAAA"));
    EXPECT_TRUE(program.filesDatabase().HasTable("BBBB"));
    EXPECT_FALSE(QFile::exists(path("box/pc_5.box")));
    EXPECT_TRUE(QFile::exists(path("box/ad_5.box")));
    EXPECT_EQ(rows("SELECT ПослОбновлКомпьютер FROM _Информация").trimmed(), "2003-11-14");
}

TEST(Steps, StopAtTheirEndsAndKeepTheirDigits)
{
    const auto year = CountBetween(0, 9999, 4);
    const auto count = CountBetween(1, 6);
    const UpDown::Step time = CountTime;
    const struct {
        const UpDown::Step& step;
        const char *text, *down, *up;
    } cases[] = {{year, "2003", "2002", "2004"},
                 {year, "0000", "0000", "0001"},
                 {year, "9999", "9998", "9999"},
                 {year, "9", "0008", "0010"},
                 {year, "", "", "0001"},
                 {year, "99999", "99998", "99999"},
                 {count, "1", "1", "2"},
                 {count, "6", "5", "6"},
                 {time, "00:00", "00:00", "00:01"},
                 {time, "45:59", "45:58", "45:60"},
                 {time, "45:99", "45:98", "46:00"},
                 {time, "01:00", "00:99", "01:01"},
                 {time, "99:99", "99:98", "99:99"},
                 {time, "7", "06:99", "07:01"}};
    for (const auto& [step, text, down, up] : cases) {
        EXPECT_EQ(step(text, -1), down) << text;
        EXPECT_EQ(step(text, 1), up) << text;
    }
}
}
