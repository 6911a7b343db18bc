// The links that bind the disc in the drive to a number of its catalogue, and undo it.
#include "mainwindow/MainWindowTest.h"

namespace {
class Binding : public MainWindow {
protected:
    Binding()
    {
        putIn();
        watch();
    }
    /// What the link of the computer card offers, a second later.
    Script lookedAt(const QString& link)
    {
        co_await advance(1000);
        EXPECT_EQ(visible("lblSharePC") ? shown("lblSharePC") : QString(), link);
    }
    QString bindings() { return rows("SELECT Номер, ДискID1_d, ДискID2_d FROM Компьютер ORDER BY Номер"); }

    const QString question = "Установить привязку на диск №7 (CD2):\rDebian?";
};
}

TEST_F(Binding, BindsToTheDiscThatWasPickedAndUnbinds)
{
    shelf.computer(7, "Debian").discs(2).bound(2, "OLD");
    walk([&]() -> Script {
        co_await lookedAt("Привязать");
        co_await picture("link-bind");
        expectForm("frmSelectCD");
        co_await click("lblSharePC");
        co_await key(Qt::Key_Escape);
        EXPECT_TRUE(visible("lblSharePC")) << "nothing was done, nothing is refreshed";

        const QString taken = "Диск № 7 уже привязан к другому номеру диска!";
        expectForm("frmSelectCD");
        co_await focusOn("lblSharePC");
        co_await key(Qt::Key_Return);
        co_await select("cmbCountCD", "2");
        expectBox(taken, 48);
        expectBox(question, 36, Answer::No);
        co_await click("imgButton_0");
        EXPECT_EQ(bindings(), "7 | Null | OLD\n");

        co_await lookedAt("Привязать");
        expectForm("frmSelectCD");
        co_await click("lblSharePC");
        co_await select("cmbCountCD", "2");
        expectBox(taken, 48);
        expectBox(question, 36);
        expectBox("Привязка успешно установлена на диск №7 (CD2)", 64);
        co_await click("imgButton_0");
        EXPECT_EQ(bindings(), "7 | Null | 1A2B3C4D\n");

        co_await lookedAt("Удалить привязку");
        EXPECT_EQ(shown("lblNewPC"), "Диск № 7 (CD2):\nDebian");
        co_await picture("link-unbind");
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            EXPECT_EQ(bindings(), "7 | Null | 1A2B3C4D\n");
            expectBox("Вы уверены, что хотите удалить привязку с этого диска?", 36, answer);
            co_await click("lblSharePC");
        }
        EXPECT_EQ(bindings(), "7 | Null | Null\n");
        co_await lookedAt("Привязать");
    });
}

TEST_F(Binding, RefusesADiscThatIsTheFirstOneOfAnotherRow)
{
    shelf.computer(7, "Debian");
    walk([&]() -> Script {
        co_await lookedAt("Привязать");
        shelf.computer(9, "Другой").bound(1, "1A2B3C4D");
        expectForm("frmSelectCD");
        co_await click("lblSharePC");
        expectBox("Этот диск уже привязан к №9!", 48);
        co_await click("imgButton_0");
        EXPECT_EQ(bindings(), "7 | Null | Null\n9 | 1A2B3C4D | Null\n");
    });
}

TEST_F(Binding, ADiscTakenOutInBetweenLeavesAnEmptyBinding)
{
    shelf.audio(1, "Кино", "Ночь");
    drives.v.medium = FakeDisc::data("Audio CD", 0xA0D10, 221);
    const auto audio = [&] { return rows("SELECT ДискID1_d FROM Аудио"); };
    const auto disc = drives.v.medium;
    walk([&]() -> Script {
        co_await advance(1000);
        for (const char* refusal : {"", "Этот диск уже привязан к №1!"}) {
            drives.v.medium = disc;
            co_await advance(1000);
            expectForm("frmSelectCD");
            co_await click("lblShareAD");
            drives.v.medium.reset();
            if (*refusal) {
                expectBox(refusal, 48);
            } else {
                expectBox("Установить привязку на диск №1 (CD1):\rКино - Ночь?", 36);
                expectBox("Привязка успешно установлена на диск №1 (CD1)", 64);
            }
            co_await click("imgButton_0");
            EXPECT_EQ(audio(), "\n");
        }
    });
}

TEST_F(Binding, UnbindsEverySlotOfTheFirstRowAlone)
{
    shelf.computer(7, "Debian").discs(3).bound(1, "1A2B3C4D").bound(3, "1A2B3C4D");
    shelf.computer(8, "Копия").bound(1, "1A2B3C4D");
    const QString question = "Вы уверены, что хотите удалить привязку с этого диска?";
    walk([&]() -> Script {
        co_await lookedAt("Удалить привязку");
        expectBox(question, 36);
        co_await click("lblSharePC");
        EXPECT_EQ(bindings(), "7 | Null | Null\n8 | 1A2B3C4D | Null\n");
        EXPECT_EQ(rows("SELECT ДискID3_d FROM Компьютер WHERE Номер = 7"), "Null\n");
        co_await lookedAt("Удалить привязку");
        drives.v.medium.reset();
        expectBox(question, 36);
        co_await click("lblSharePC");
        EXPECT_EQ(bindings(), "7 | Null | Null\n8 | 1A2B3C4D | Null\n") << "the disc was taken out";
    });
}

TEST_F(MainWindow, NumbersAndDictionariesAreKeptFromTheMenu)
{
    shelf.computer(7, "Debian").bound(1, "1A2B3C4D");
    putIn();
    watch();
    walk([&]() -> Script {
        co_await advance(1000);
        expectForm("frmChangeNumber");
        co_await trigger("ID_Catalog_ChangeNumber");
        co_await check("optCategory_1");
        co_await type("txtNumberOld", "7");
        co_await type("txtNumberNew", "8");
        expectBox("Подтвердите изменение диска № 7:\r'Debian' на № 8.", 65);
        expectBox("Диск № 7 был успешно изменен на № 8.", 64);
        co_await key(Qt::Key_Return);
        co_await key(Qt::Key_Escape);
        co_await advance(1000);
        EXPECT_EQ(shown("lblNewPC"), "Диск № 8:\nDebian") << "the sign speaks of the new number";
        for (const char* screen : {"Style", "Description", "Genre"}) {
            expectForm(u"frmEdit"_s + screen);
            co_await trigger(u"ID_DB_Edit"_s + screen);
            co_await key(Qt::Key_Escape);
        }
    });
}
