#include "harness/ScreenTest.h"
#include "lending/Borrowers.h"
#include "lending/frmAddInDue.h"

namespace {
class LendDisc : public ScreenTest {
protected:
    template<class Body> void lend(const ShelfDisc& disc, const Body& body, const CatalogueKind& kind = Audio())
    {
        play([&] { ShowAddInDue(program, kind, disc.key()); }, body);
    }
    QString loans()
    {
        return rows("SELECT Имя, Категория, КодДиска, ДатаВыдачи, ДатаВозврата, Долг FROM Должники, ИменаДолжников "
                    "WHERE КодИмяДолжника = КодИмени ORDER BY КодДолжника");
    }
};

TEST_F(LendDisc, ANewNameIsANewBorrowerAndTheTermIsNotInThePast)
{
    const ShelfDisc disc = shelf.audio(7, "Кино", "Группа крови");
    lend(disc, [&]() -> Script {
        QString told;
        for (const char* name : {"lblHeader", "lblNumber", "txtCategory", "lblDescription", "txtName", "dtpBackDate"})
            told += shown(name) + '|';
        EXPECT_EQ(told, "Добавление в список нового должника|7|Аудио диск|Группа/Исполнитель|Кино|14.11.2003|");
        EXPECT_EQ(title(), "Добавление должника");
        EXPECT_EQ(focus(), "txtFIO");
        EXPECT_EQ(shown("chDueNonStop"), "бессрочный  долг");
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        for (const char* empty : {"", "  "}) {
            expectBox("Введите или выберите из списка имя должника.\rДанное поле является обязательным для заполнения.",
                      48);
            co_await type("txtFIO", empty);
            co_await click("imgButton_0");
            EXPECT_EQ(focus(), "txtFIO");
        }
        co_await type("txtFIO", "Иван \"Грозный\"");
        co_await keys("\t01.11.2003\t");
        EXPECT_EQ(shown("dtpBackDate") + focus(), "14.11.2003chDueNonStop");
        co_await key(Qt::Key_Backtab, Qt::ShiftModifier);
        co_await keys("01.12.2003");
        co_await key(Qt::Key_Return);
    });
    EXPECT_TRUE(program.shared.DialogDone);
    EXPECT_EQ(loans(), "Иван 'Грозный' | AD | 1 | 2003-11-14 | 2003-12-01 | -1\n");
    EXPECT_EQ(rows("SELECT Телефон FROM ИменаДолжников"), "нет\n");
    EXPECT_EQ(rows("SELECT Должник FROM Аудио"), "-1\n");
}

TEST_F(LendDisc, CompletesKnownNamesAndGivingUpWritesNothing)
{
    shelf.borrower("Петров");
    shelf.borrower("Петренко");
    const ShelfDisc film = shelf.dvd(3, "Фильм");
    lend(
        film,
        [&]() -> Script {
            EXPECT_EQ(items("txtFIO"), "Петренко\nПетров\n");
            co_await keys("пет");
            EXPECT_EQ(shown("txtFIO"), "Петров") << "the first in stored order";
            co_await keys("ре");
            EXPECT_EQ(shown("txtFIO"), "Петренко");
            co_await key(Qt::Key_Backspace);
            EXPECT_EQ(shown("txtFIO"), "Петр");
            co_await key(Qt::Key_Escape);
        },
        Dvd());
    EXPECT_FALSE(program.shared.DialogDone);
    EXPECT_EQ(loans(), "");
    lend(
        film,
        [&]() -> Script {
            co_await select("txtFIO", "Петров");
            co_await check("chDueNonStop");
            EXPECT_FALSE(enabled("dtpBackDate"));
            EXPECT_FALSE(enabled("lblDueDay"));
            co_await click("imgButton_0");
        },
        Dvd());
    EXPECT_EQ(loans(), "Петров | DVD | 1 | 2003-11-14 | Null | -1\n");
    EXPECT_EQ(BorrowerNames(program.mainDatabase()).size(), 2);
}

TEST_F(LendDisc, AChosenNameIsThatBorrowerWhoeverElseBeginsSo)
{
    for (const char* name : {"Петров", "Петр", "Иван \"Грозный\""}) shelf.borrower(name);
    int number = 0;
    for (const char* name : {"Петр", "Иван \"Грозный\""})
        lend(shelf.audio(++number, "Кино"), [&]() -> Script {
            co_await select("txtFIO", name);
            EXPECT_EQ(shown("txtFIO"), name);
            co_await click("imgButton_0");
        });
    EXPECT_EQ(rows("SELECT КодИмяДолжника FROM Должники"), "2\n3\n");
}

TEST_F(LendDisc, WhatHappenedToTheDiscMeanwhileIsTold)
{
    const ShelfDisc disc = shelf.audio(7, "Кино");
    for (const char* change : {"UPDATE Аудио SET Должник = True", "DELETE FROM Аудио"})
        lend(disc, [&]() -> Script {
            co_await type("txtFIO", "Иванов");
            co_await act([&] { program.mainDatabase().Execute(QString::fromUtf8(change)); });
            expectBox(*change == 'U' ? "Диск № 7 уже находится у должника." : "Диск № 7 отсутствует в каталоге.", 48);
            co_await click("imgButton_0");
        });
    EXPECT_FALSE(program.shared.DialogDone);
    EXPECT_EQ(loans() + rows("SELECT Имя FROM ИменаДолжников"), "");
}

TEST_F(LendDisc, WarnsOfWhoBringsDiscsBackLate)
{
    shelf.computer(1, "Поздно").lent("Сидоров", "2003-01-01", "2003-03-01", "2003-01-31");
    shelf.computer(2, "Вовремя").lent("Иванов", "2003-01-01", "2003-01-31", "2003-01-31");
    const ShelfDisc disc = shelf.computer(9, "Новый");
    lend(
        disc,
        [&]() -> Script {
            for (const auto& [typed, word] : {std::pair{"Иванов", ""}, {"Сид", "Ужасный!!!"}, {"Сидорова", ""}}) {
                co_await type("txtFIO", typed);
                EXPECT_EQ(visible("lblRating1") ? shown("lblRating3") : "", word) << typed;
                EXPECT_EQ(visible("lblRating3"), *word != 0);
            }
            co_await select("txtFIO", "Сидоров");
            EXPECT_TRUE(visible("lblRating2"));
            co_await picture("frmAddInDue");
        },
        Computer());
}
}
