#include "catalogue/Numbering.h"
#include "catalogue/Covers.h"
#include "catalogue/Given.h"
#include "catalogue/NumberChange.h"
#include "harness/ScreenTest.h"

#include <QDir>

namespace {
class Numbering : public ScreenTest {
protected:
    void discs(std::initializer_list<int> numbers, const CatalogueKind& kind = Computer())
    {
        for (const int number : numbers) shelf.disc(kind, number, u"Диск %1"_s.arg(number));
    }
    QString numbers() { return rows("SELECT Номер FROM Компьютер ORDER BY КодКомпьютерныйДиск").simplified(); }
    int offer(const CatalogueKind& kind, int refused)
    {
        return NextOffer(program.mainDatabase(), kind, refused).value_or(0);
    }

    void cover(const QString& name)
    {
        QDir().mkpath(path("box"));
        QFile file(path("box/" + name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(name.toUtf8());
    }
    /// The files of the box folder, with what they were at first where that differs.
    QString covers()
    {
        QStringList found;
        for (const QString& name : QDir(path("box")).entryList(QDir::Files)) {
            QFile file(path("box/" + name));
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            const QString was = QString::fromUtf8(file.readAll());
            found += was == name ? name : was + ">" + name;
        }
        return found.join(' ');
    }
};

TEST_F(Numbering, FirstFreeNumberFillsGapsBeforeTheEnd)
{
    EXPECT_EQ(FirstFreeNumber(program.mainDatabase(), Computer()), 1);
    discs({4, 1, 2, 2});
    shelf.computer(5, "Без номера").set("Номер", nullptr);
    discs({3}, Audio());
    const std::pair<int, int> next[] = {{0, 3}, {1, 3}, {2, 3}, {3, 5}, {4, 5}, {5, 6}, {100, 101}};
    for (const auto& [after, free] : next)
        EXPECT_EQ(FirstFreeNumber(program.mainDatabase(), Computer(), after), free) << after;
}

TEST_F(Numbering, SearchOfTheAudioCatalogueGivesUpWhereARefusalComesToTenThousand)
{
    EXPECT_EQ(offer(Audio(), 9997), 9998);
    EXPECT_EQ(offer(Audio(), 9998), 9999);
    EXPECT_EQ(offer(Audio(), 9999), 0);
    EXPECT_EQ(offer(Computer(), 9999), 10000);
    discs({9999}, Audio());
    EXPECT_EQ(offer(Audio(), 9998), 10000) << "a number that is taken does not count";
}

TEST_F(Numbering, MovesNumbersAndOfCoversThoseOfDvdsUpToTheCountOfRows)
{
    discs({3, 1, 2, 10});
    discs({1, 2, 3}, Dvd());
    program.mainDatabase().Execute(u"UPDATE Компьютер SET ДатаИзменения = Null");
    for (const char* name : {"dvd_1.box", "dvd_2.box", "dvd_3.box", "dvd_10.box", "pc_2.box", "ad_3.box"}) cover(name);
    int start = 2;
    EXPECT_TRUE(MoveNumbers(program, Computer(), start));
    EXPECT_EQ(start, 0);
    EXPECT_EQ(numbers(), "4 1 3 11");
    EXPECT_EQ(covers(), "ad_3.box dvd_1.box dvd_10.box dvd_2.box>dvd_3.box dvd_3.box>dvd_4.box pc_2.box");
    EXPECT_EQ(rows("SELECT Номер FROM DVD ORDER BY Номер").simplified(), "1 2 3");
    EXPECT_EQ(rows("SELECT ПослОбновлКомпьютер FROM _Информация"), "");
    EXPECT_EQ(rows("SELECT COUNT(*) FROM Компьютер WHERE ДатаИзменения IS NULL").trimmed(), "4");
}

TEST_F(Numbering, ShiftPastTheLastNumberMovesNothingAndStaysAskedFor)
{
    discs({1, 32767});
    cover("dvd_1.box");
    int start = 1;
    EXPECT_FALSE(MoveNumbers(program, Computer(), start));
    EXPECT_EQ(start, 1);
    EXPECT_EQ(numbers(), "1 32767");
    EXPECT_EQ(covers(), "dvd_1.box");
}

TEST_F(Numbering, CoversStayWhereNumbersCannotBeCommitted)
{
    discs({1});
    cover("dvd_1.box");
    int start = 1;
    const auto move = [&] {
        const BlockedDatabase blocked(program.shared.MainDBPath);
        MoveNumbers(program, Computer(), start);
    };
    expectFault("vinoraModule, MoveNumbers()");
    EXPECT_THROW(move(), ProcessEnded);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(covers(), "dvd_1.box");
    EXPECT_EQ(numbers(), "1");
}

TEST_F(Numbering, ASwapThatCannotBeCommittedIsNoHalfOfOne)
{
    discs({1, 2});
    cover("dvd_1.box");
    {
        const BlockedDatabase blocked(program.shared.MainDBPath);
        const Database main = program.mainDatabase();
        EXPECT_THROW(
            SwapNumbers(program, Computer(), *DiscNumbered(main, Computer(), 1), *DiscNumbered(main, Computer(), 2)),
            RuntimeError);
        engine.Rollback();
    }
    EXPECT_EQ(numbers(), "1 2");
    EXPECT_EQ(covers(), "dvd_1.box");
}

TEST_F(Numbering, ASwapTakesTheCoversOfDvdsAlongWhicheverOfThemThereAre)
{
    const std::pair<QStringList, const char*> cases[] = {
        {{"dvd_1.box", "dvd_2.box", "pc_1.box"}, "dvd_2.box>dvd_1.box dvd_1.box>dvd_2.box pc_1.box"},
        {{"dvd_1.box"}, "dvd_1.box>dvd_2.box"},
        {{"dvd_2.box", "dvd_0.box"}, "dvd_0.box dvd_2.box>dvd_1.box"},
        {{"dvd_0.box"}, "dvd_0.box"}, // left by a swap that came to a bad end
    };
    discs({1, 2});
    const auto numbered = [&](int number) { return *DiscNumbered(program.mainDatabase(), Computer(), number); };
    for (const auto& [before, after] : cases) {
        QDir(path("box")).removeRecursively();
        for (const QString& name : before) cover(name);
        SwapNumbers(program, Computer(), numbered(1), numbered(2));
        EXPECT_EQ(covers(), after);
    }
    EXPECT_EQ(numbers(), "1 2") << "four swaps";
    cover("dvd_1.box");
    SwapNumbers(program, Computer(), numbered(1), numbered(1));
    ChangeNumber(program, Computer(), numbered(2), 5);
    ChangeNumber(program, Computer(), numbered(1), 2);
    EXPECT_EQ(numbers(), "2 5");
    EXPECT_EQ(covers(), "dvd_1.box>dvd_2.box");
}

TEST_F(Numbering, WorksOnAsManyDiscsAsThereAreNumbers)
{
    discs({1});
    FillNumbers(program, LastNumber - 1);
    int start = 1;
    EXPECT_TRUE(MoveNumbers(program, Computer(), start));
    EXPECT_EQ(rows("SELECT MIN(Номер), MAX(Номер), COUNT(*) FROM Компьютер").trimmed(), "2 | 32767 | 32766");
    EXPECT_EQ(FirstFreeNumber(program.mainDatabase(), Computer()), 1);
    discs({1});
    EXPECT_EQ(FirstFreeNumber(program.mainDatabase(), Computer()), std::nullopt);
}
}
