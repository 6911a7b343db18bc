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
    /// Follows the link and picks the second disc of the only set, which is bound already.
    Script bindAgain(Answer answer)
    {
        expectForm("frmSelectCD");
        co_await focusOn("lblSharePC");
        co_await key(Qt::Key_Return);
        EXPECT_FALSE(visible("lblBound"));
        co_await select("cmbCountCD", "2");
        EXPECT_TRUE(visible("lblBound"));
        co_await picture("picker-bound");
        expectBox("Диск № 7 уже привязан к другому номеру диска!", 48);
        expectBox("Установить привязку на диск №7 (CD2):\rDebian?", 36, answer);
        if (answer == Answer::Yes) expectBox("Привязка успешно установлена на диск №7 (CD2)", 64);
        co_await click("imgButton_0");
    }
    QString bindings() { return rows("SELECT Номер, ДискID1_d, ДискID2_d FROM Компьютер ORDER BY Номер"); }

    const QString unbind = "Вы уверены, что хотите удалить привязку с этого диска?";
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
        co_await bindAgain(Answer::No);
        EXPECT_EQ(bindings(), "7 | Null | OLD\n");
        co_await lookedAt("Привязать");
        co_await bindAgain(Answer::Yes);

        co_await lookedAt("Удалить привязку");
        EXPECT_EQ(shown("lblNewPC"), "Диск № 7 (CD2):\nDebian");
        co_await picture("link-unbind");
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            EXPECT_EQ(bindings(), "7 | Null | 1A2B3C4D\n");
            expectBox(unbind, 36, answer);
            co_await click("lblSharePC");
        }
        EXPECT_EQ(bindings(), "7 | Null | Null\n");
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
    const auto disc = drives.v.medium = FakeDisc::data("Audio CD", 0xA0D10, 221);
    walk([&]() -> Script {
        for (const bool first : {true, false}) {
            drives.v.medium = disc;
            co_await advance(1000);
            expectForm("frmSelectCD");
            co_await click("lblShareAD");
            drives.v.medium.reset();
            if (first) {
                expectBox("Установить привязку на диск №1 (CD1):\rКино - Ночь?", 36);
                expectBox("Привязка успешно установлена на диск №1 (CD1)", 64);
            } else {
                expectBox("Этот диск уже привязан к №1!", 48);
            }
            co_await click("imgButton_0");
            EXPECT_EQ(rows("SELECT ДискID1_d FROM Аудио"), "\n");
        }
    });
}

TEST_F(Binding, UnbindsEverySlotOfTheFirstRowAlone)
{
    shelf.computer(7, "Debian").discs(2).bound(1, "1A2B3C4D").bound(2, "1A2B3C4D");
    shelf.computer(8, "Копия").bound(1, "1A2B3C4D");
    walk([&]() -> Script {
        for (const bool takenOut : {false, true}) {
            co_await lookedAt("Удалить привязку");
            if (takenOut) drives.v.medium.reset();
            expectBox(unbind, 36);
            co_await click("lblSharePC");
            EXPECT_EQ(bindings(), "7 | Null | Null\n8 | 1A2B3C4D | Null\n");
        }
    });
}

TEST_F(Binding, TheSignSpeaksOfANumberThatWasChanged)
{
    shelf.computer(7, "Debian").bound(1, "1A2B3C4D");
    walk([&]() -> Script {
        co_await advance(1000);
        expectForm("frmChangeNumber");
        co_await trigger("ID_Catalog_ChangeNumber");
        program.mainDatabase().Execute(u"UPDATE Компьютер SET Номер = 8");
        co_await key(Qt::Key_Escape);
        co_await advance(1000);
        EXPECT_EQ(shown("lblNewPC"), "Диск № 8:\nDebian");
        for (const char* screen : {"Style", "Description", "Genre"}) {
            expectForm(u"frmEdit"_s + screen);
            co_await trigger(u"ID_DB_Edit"_s + screen);
            co_await key(Qt::Key_Escape);
        }
    });
}
