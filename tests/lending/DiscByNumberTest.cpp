#include "harness/ScreenTest.h"
#include "lending/frmAddInDueFromMain.h"
#include "lending/frmDiskHistory.h"

namespace {
class DiscByNumber : public ScreenTest {
protected:
    Script enter(const char* number)
    {
        co_await type("txtNumber", number);
        co_await key(Qt::Key_Return);
    }
    /// A disc out is marked, and the ledger says so and since when it is back.
    QString state(const QString& table)
    {
        return rows("SELECT Должник FROM " + table) + rows("SELECT Долг, ДатаВозвратаРеальная FROM Должники");
    }
};

TEST_F(DiscByNumber, RefusesWhatCannotBeLentOrTakenBack)
{
    shelf.audio(7, "Кино").lent("Иванов", "2003-10-01");
    shelf.audio(8, "Аквариум");
    shelf.dvd(9, "Солярис");
    run<frmAddInDueFromMain>([&]() -> Script {
        EXPECT_EQ(title() + ' ' + focus(), "Управление должниками txtNumber");
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        co_await picture("frmAddInDueFromMain");
        expectBox("Указан не верный номер диска. Повторите ввод.", 48);
        co_await enter("0");
        expectBox("Диск № 9 отсутствует в каталоге.", 48);
        co_await enter("9");
        expectBox("Диск № 7 уже находится у должника.", 48);
        co_await enter("7");
        EXPECT_EQ(control<QLineEdit>("txtNumber").selectedText(), "7");
        co_await click("optMethod_1");
        EXPECT_EQ(focus(), "txtNumber");
        expectBox("Диск № 8 не одалживался!", 48);
        co_await enter("8");
    });
}

TEST_F(DiscByNumber, IsLentOnceItIsConfirmed)
{
    shelf.audio(8, "Аквариум");
    run<frmAddInDueFromMain>([&]() -> Script {
        const QString question = "Подтвердите добавление должника на диск № 8:\r'Аквариум'";
        expectBox(question, 65, Answer::Cancel);
        co_await enter("8");
        EXPECT_EQ(windowName(), "frmAddInDueFromMain");
        expectBox(question, 65, Answer::Ok);
        expectForm("frmAddInDue");
        co_await enter("8");
        EXPECT_EQ(shown("txtCategory") + shown("lblNumber"), "Аудио диск8");
        co_await type("txtFIO", "Петрова");
        co_await click("imgButton_0");
        EXPECT_EQ(windowName() + shown("txtNumber"), "frmAddInDueFromMain");
    });
    EXPECT_EQ(state("Аудио"), "-1\n-1 | Null\n");
    EXPECT_FALSE(program.shared.DialogDone);
}

TEST_F(DiscByNumber, IsBackInTheLedgerBeforeTheQuestionAndInTheCatalogueAfterIt)
{
    shelf.dvd(2, "Солярис").lent("Иванов", "2003-10-01");
    run<frmAddInDueFromMain>(
        [&]() -> Script {
            const QString question =
                "Подтвердите удаление должника на Компьютерный диск № 2:\r'Солярис'\rДолжник: Иванов";
            co_await click("optMethod_1");
            expectBox(question, 33, Answer::Cancel);
            co_await enter("2");
            EXPECT_EQ(state("DVD"), "-1\n0 | 2003-11-14\n");
            clock.pass(1);
            expectBox(question, 33, Answer::Ok);
            expectBox("Операция успешно завершена!", 64);
            co_await enter("2");
            EXPECT_EQ(shown("txtNumber"), "");
        },
        &Dvd());
    EXPECT_EQ(state("DVD"), "0\n0 | 2003-11-15\n");
}

TEST_F(DiscByNumber, OfAnAudioDiscIsAskedAboutWithItsAlbum)
{
    shelf.audio(3, "Кино", "Ночь").lent("Иванов", "2003-10-01");
    run<frmAddInDueFromMain>([&]() -> Script {
        co_await click("optMethod_1");
        expectBox("Подтвердите удаление должника на Аудио диск № 3:\r'Кино - Ночь'\rДолжник: Иванов", 33,
                  Answer::Cancel);
        co_await enter("3");
    });
}

TEST_F(DiscByNumber, ThatWasPickedIsThatOneAlsoWhereItsNumberIsShared)
{
    shelf.audio(7, "Кино", "Ночь");
    const ShelfDisc second = shelf.audio(7, "Кино", "Группа крови");
    run<frmAddInDueFromMain>([&]() -> Script {
        screens.picked = DiscChoice{.key = second.key(), .number = 7};
        co_await click("imgButton_2");
        expectBox("Подтвердите добавление должника на диск № 7:\r'Кино - Группа крови'", 65, Answer::Cancel);
        co_await key(Qt::Key_Return);
        expectBox("Подтвердите добавление должника на диск № 7:\r'Кино - Ночь'", 65, Answer::Cancel);
        co_await enter("7");
        screens.picked.reset();
        co_await click("optMethod_1");
        co_await click("optCategory_2");
        co_await click("imgButton_2");
        EXPECT_EQ(shown("txtNumber"), "7");
    });
    EXPECT_EQ(screens.opened.join(' '), "PickDisc addAD PickDisc delDVD");
}

TEST_F(DiscByNumber, HasAHistoryOfItsBorrowers)
{
    shelf.audio(7, "Кино").lent("Петрова", "2003-01-12", "2003-02-01").lent("Иванов", "2003-05-09");
    const ShelfDisc fresh = shelf.computer(7, "Debian");
    run<frmDiskHistory>([&]() -> Script {
        EXPECT_EQ(sharedMnemonics() + unnamedStops(), "");
        expectBox("Введите номер диска!", 48);
        co_await key(Qt::Key_Return);
        expectBox("Указан не верный номер диска. Повторите ввод.", 48);
        co_await enter("0");
        co_await enter("7");
        EXPECT_EQ(shown("lblHistory"), "История диска № 7:");
        const QString taken = "Петрова | 12.01.2003 | 01.02.2003\n", out = "Иванов  | 09.05.2003 | нет\n";
        EXPECT_EQ(shown("lvHistory"), taken + out);
        co_await clickHeader("lvHistory", "Брал");
        EXPECT_EQ(shown("lvHistory"), out + taken) << "dates sort as texts";
        co_await picture("frmDiskHistory");
        co_await click("optCategory_2");
        EXPECT_FALSE(visible("lvHistory")) << "it is not that disc's";
        expectBox("Диск № 7 отсутствует в каталоге.", 48);
        co_await keys("7\n");
        co_await click("optCategory_1");
        screens.picked = DiscChoice{.key = fresh.key(), .number = 7};
        co_await click("imgButton_1");
        EXPECT_EQ(screens.opened.join(' '), "PickDisc fullPC");
        EXPECT_EQ(visible("txtNoHistory") ? shown("txtNoHistory") : "", "Диск № 7 не одалживался!");
        EXPECT_FALSE(visible("lvHistory"));
    });
}
}
